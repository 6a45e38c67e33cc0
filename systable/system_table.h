// The system table store's shared pieces: the table's name, making sure the table is
// there, and its statements, formatted by plain "%s" substitution into a statement of
// at most 1000 characters (terminator included).
#pragma once

#include <sql.h>

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace tabra::systable {

// The name of the system table ("OstrelSysTable").
extern std::u16string systemTableName;

// Whether the system table exists, asked of the catalog (tables only, no schema); a
// catalog that cannot be asked (2) does not count as a missing table.
bool systemTableExists(SQLHDBC connection);

// Creates the system table with the value column the database's type asks for: 1
// created, 2 not (shown: the only statement of the store whose failure is).
int32_t createSystemTable(SQLHDBC connection);

// Creates the system table when it does not exist: 1 when it is there now, else the
// result of the failed creation (2, shown).
int32_t ensureSystemTable(SQLHDBC connection);

// The format with each "%s" replaced by the next text in turn, or nothing when the
// statement would not fit in 1000 characters (such a statement is not run).
std::optional<std::u16string> formatSystemTableStatement(std::u16string_view format,
                                                         std::initializer_list<std::u16string_view> texts);

// The statements of the store. Keys go in as they are; the value goes in escaped,
// with its quotes doubled.
inline constexpr char16_t kReadItemStatement[] =
    u"SELECT ItemValue FROM %s WHERE Object='%s' AND Type='%s' AND ItemName='%s'";
inline constexpr char16_t kDeleteItemStatement[] = u"DELETE FROM %s WHERE Object='%s' AND Type='%s' AND ItemName='%s'";
inline constexpr char16_t kDeleteItemsStatement[] = u"DELETE FROM %s WHERE Object='%s' AND Type='%s' ";
inline constexpr char16_t kWriteItemStatement[] =
    u"INSERT INTO %s (Object,Type,ItemName,ItemValue) VALUES ('%s','%s','%s','%s')";

// Every statement of the store except the creation tolerates every failure.
inline constexpr char16_t kAnyState[] = u"*";

} // namespace tabra::systable
