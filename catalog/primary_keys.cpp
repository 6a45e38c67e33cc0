// Primary keys from the catalog: the key's columns in the driver's order, and the
// key's name. A driver without a primary-key catalog gives the failure value quietly.
#include "catalog/primary_keys.h"

#include "core/connection/capabilities.h"
#include "core/odbc/bound_column.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/statement_runner.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "sqltext/sql92_names.h"
#include "tabra_catalog.h"

using namespace tabra::odbc;
using tabra::platform::boundedPrefix;
using tabra::sqltext::prepareNameForSql92;

namespace {

constexpr int32_t kNameCapacity = 100;

bool driverHasPrimaryKeys(SQLHDBC connection) {
    SQLUSMALLINT supported = 0;
    return succeeded(SQLGetFunctions(connection, SQL_API_SQLPRIMARYKEYS, &supported)) && supported == 1;
}

// Runs the key catalog for the table (null schema and catalog); the table is given in
// its quoted form where the database type asks for it. Failures are shown.
bool runPrimaryKeys(SQLHDBC connection, const char16_t *table, StatementRunner &statement) {
    if (statement.allocate() != RunResult::Done) return false;
    char16_t name[kNameCapacity];
    OstrelCopyString(name, table, kNameCapacity);
    if (tabra::connection::capabilities(connection).quotesPrimaryKeyLookup)
        OstrelCopyString(name, prepareNameForSql92(connection, name, kNameCapacity).c_str(), kNameCapacity);
    return statement.check(SQLPrimaryKeysW(statement.handle(), nullptr, 0, nullptr, 0, sqlText(name), SQL_NTS)) ==
           RunResult::Done;
}

// The name quoted for the connection, as capacity characters hold it.
std::u16string quotedName(SQLHDBC connection, const char16_t *name, int32_t capacity) {
    return std::u16string(boundedPrefix(prepareNameForSql92(connection, name, kNameCapacity), capacity));
}

// Runs the key catalog and hands its rows to read, which binds what it needs; the
// columns are unbound and the handle dropped afterwards. nullopt without a key catalog
// (quietly) or after a failure (shown); the empty text for a blank table.
template <typename Read>
std::optional<std::u16string> readKeyRows(SQLHDBC connection, const char16_t *table, Read read) {
    if (connection == SQL_NULL_HDBC || !driverHasPrimaryKeys(connection)) return std::nullopt;
    if (Ostrel_IsBlankString(table)) return std::u16string();
    StatementRunner statement(connection, nullptr);
    if (!runPrimaryKeys(connection, table, statement)) return std::nullopt;
    std::u16string rows = read(statement);
    SQLFreeStmt(statement.handle(), SQL_UNBIND);
    return rows;
}

} // namespace

namespace tabra::catalog {

std::optional<std::u16string> primaryKeyColumns(SQLHDBC connection, const char16_t *table, int32_t flags,
                                                std::u16string_view separator, int32_t capacity) {
    return readKeyRows(connection, table, [&](StatementRunner &statement) {
        BoundText<kNameCapacity> column;
        column.bind(statement.handle(), 4);
        std::u16string list;
        auto append = [&](std::u16string_view text) { list += boundedPrefix(text, capacity - list.size()); };
        while (succeeded(statement.fetch())) {
            const char16_t *name = column.isNull() ? u"" : column.text;
            if (!list.empty()) append(separator);
            append(flags & TABRA_FIELDS_QUOTE ? quotedName(connection, name, kNameCapacity) : std::u16string(name));
        }
        return list;
    });
}

std::optional<std::u16string> primaryKeyName(SQLHDBC connection, const char16_t *table, uint8_t flags,
                                             int32_t capacity) {
    auto name = readKeyRows(connection, table, [&](StatementRunner &statement) {
        BoundText<kNameCapacity> keyName;
        keyName.bind(statement.handle(), 6);
        if (!succeeded(statement.fetch()) || keyName.isNull()) keyName.text[0] = u'\0';
        return std::u16string(boundedPrefix(keyName.text, capacity));
    });
    if (name && (flags & TABRA_FIELDS_QUOTE)) *name = quotedName(connection, name->c_str(), capacity);
    return name;
}

} // namespace tabra::catalog

namespace {

int32_t writeText(const std::optional<std::u16string> &text, char16_t *output, int32_t capacity) {
    if (!text) return 2;
    OstrelCopyString(output, text->c_str(), capacity);
    return 1;
}

} // namespace

extern "C" int32_t Tabra_GetPrimaryKeyColumns(SQLHDBC connection, const char16_t *table, int32_t flags,
                                              const char16_t *separator, char16_t *output, int32_t capacity) {
    if (output == nullptr || capacity < 1) return 2;
    output[0] = u'\0';
    return writeText(tabra::catalog::primaryKeyColumns(connection, table, flags, separator ? separator : u"\t",
                                                       capacity),
                     output, capacity);
}

extern "C" int32_t Tabra_GetPrimaryKeyName(SQLHDBC connection, const char16_t *table, uint8_t flags,
                                           char16_t *output, int32_t capacity) {
    if (output == nullptr || capacity < 1) return 2;
    output[0] = u'\0';
    return writeText(tabra::catalog::primaryKeyName(connection, table, flags, capacity), output, capacity);
}
