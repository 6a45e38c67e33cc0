// Table lists: the one place that asks the catalog for table names.
#include "catalog/table_list.h"

#include "catalog/catalog_calls.h"
#include "catalog/table_type_flags.h"
#include "core/connection/connection_info.h"
#include "core/odbc/bound_column.h"
#include "core/odbc/statement_runner.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "tabra_catalog.h"

namespace tabra::catalog {
namespace {

using odbc::BoundText;
using odbc::RunResult;
using odbc::StatementRunner;

constexpr int32_t kColumnCapacity = 100; // one catalog column
constexpr int32_t kColumnDeclared = 99;
constexpr int32_t kEntryCapacity = 200; // one entry: schema.table

// Fetches the catalog's rows and joins an entry per row as a buffer of capacity holds
// it. The bare table name decides whether an entry still fits (the writes are bounded
// anyway); entryOf(table, entry) writes a row's entry into the empty entry, or answers
// false to leave the row out.
template <typename EntryOf>
std::u16string joinTableNames(StatementRunner &statement, BoundText<kColumnCapacity> &tableName, int32_t capacity,
                              std::u16string_view separator, EntryOf entryOf) {
    std::u16string list;
    auto append = [&](std::u16string_view text) {
        list += platform::boundedPrefix(text, static_cast<size_t>(capacity) - list.size());
    };
    const auto separatorLength = static_cast<int32_t>(separator.size());
    int32_t remaining = capacity;
    bool first = true;
    std::u16string entry; // its room is reused row after row
    while (statement.fetch() == SQL_SUCCESS) {
        if (tableName.isNull()) tableName.text[0] = u'\0';
        if (textLength(tableName.text) + separatorLength >= remaining) break;
        entry.clear();
        if (!entryOf(std::u16string_view(tableName.text), entry)) continue;
        if (!first) {
            append(separator);
            remaining -= separatorLength;
        }
        first = false;
        append(entry);
        remaining -= static_cast<int32_t>(entry.size());
    }
    return list;
}

} // namespace

std::optional<std::u16string> tableList(SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                        uint8_t qualify, int32_t capacity, std::u16string_view separator) {
    const bool schemas = connection::schemaUsage(connection, odbc::Acceptance::InformationalAccepted) != 0;
    StatementRunner statement(connection, nullptr);
    if (statement.allocate() != RunResult::Done) return std::nullopt;
    if (statement.check(callTables(statement.handle(), schema, typeFlags)) != RunResult::Done) return std::nullopt;
    BoundText<kColumnCapacity> catalogName, schemaName, tableName;
    if (statement.check(catalogName.bind(statement.handle(), 1, kColumnDeclared)) != RunResult::Done ||
        statement.check(schemaName.bind(statement.handle(), 2, kColumnDeclared)) != RunResult::Done ||
        statement.check(tableName.bind(statement.handle(), 3, kColumnDeclared)) != RunResult::Done)
        return std::nullopt;

    const bool qualifying = schemas && (qualify & TABRA_QUALIFY_SCHEMA) != 0;
    return joinTableNames(statement, tableName, capacity, separator,
                          [&](std::u16string_view table, std::u16string &entry) {
                              if ((typeFlags & TABRA_TABLE_TYPE_SYSTEM_TABLE) == 0 && isBookkeepingTable(table))
                                  return false;
                              if (qualifying && !schemaName.isNull() && !Ostrel_IsBlankString(schemaName.text)) {
                                  entry += schemaName.text;
                                  entry += u'.';
                              }
                              entry += table;
                              entry.resize(platform::boundedPrefix(entry, kEntryCapacity).size());
                              return true;
                          });
}

std::optional<std::u16string> plainTableList(SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                             int32_t capacity, std::u16string_view separator, bool &noHandle) {
    StatementRunner statement(connection, nullptr);
    noHandle = statement.allocate() != RunResult::Done;
    if (noHandle) return std::nullopt;
    if (statement.check(callTables(statement.handle(), schema, typeFlags)) != RunResult::Done) return std::nullopt;
    BoundText<kColumnCapacity> tableName;
    tableName.bind(statement.handle(), 3, kColumnDeclared);
    return joinTableNames(statement, tableName, capacity, separator,
                          [](std::u16string_view table, std::u16string &entry) {
                              entry += table;
                              return true;
                          });
}

} // namespace tabra::catalog

using namespace tabra::catalog;

namespace {

// The list written into the caller's output; the output stays untouched after a failure.
int32_t writeList(const std::optional<std::u16string> &list, char16_t *output, int32_t capacity) {
    if (!list) return -1;
    OstrelCopyString(output, list->c_str(), capacity);
    return 0;
}

} // namespace

extern "C" int32_t Tabra_GetTables(SQLHDBC connection, int32_t typeFlags, char16_t *output, int32_t capacity,
                                   const char16_t *separator) {
    return Tabra_GetTablesExtended(connection, typeFlags, nullptr, 0, output, capacity, separator);
}

extern "C" int32_t Tabra_GetTablesExtended(SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                           uint8_t qualify, char16_t *output, int32_t capacity,
                                           const char16_t *separator) {
    if (connection == SQL_NULL_HDBC || output == nullptr || capacity < 1) return -1;
    return writeList(tableList(connection, typeFlags, schema, qualify, capacity, separator ? separator : u","),
                     output, capacity);
}

extern "C" int32_t OdbcEh_GetTablesExtended(int32_t, SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                            int32_t, char16_t *output, int32_t capacity, const char16_t *separator) {
    if (connection == SQL_NULL_HDBC || output == nullptr || capacity < 1) return -1;
    bool noHandle = false;
    auto list = plainTableList(connection, typeFlags, schema, capacity, separator ? separator : u",", noHandle);
    return noHandle ? 2 : writeList(list, output, capacity);
}
