// Primary keys from the catalog: the key's columns in the driver's order, and the
// key's name. A driver without a primary-key catalog gives the failure value quietly.
#include "core/connection/connection_info.h"
#include "core/odbc/bound_column.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/statement_runner.h"
#include "ostrel.h"
#include "sqltext/sql92_names.h"
#include "tabra_catalog.h"

using tabra::odbc::BoundText;
using tabra::odbc::RunResult;
using tabra::odbc::sqlText;
using tabra::odbc::StatementRunner;
using tabra::odbc::succeeded;
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
    if (tabra::connection::databaseType(connection) == DbMySql)
        OstrelCopyString(name, prepareNameForSql92(connection, name, kNameCapacity).c_str(), kNameCapacity);
    return statement.check(SQLPrimaryKeysW(statement.handle(), nullptr, 0, nullptr, 0, sqlText(name), SQL_NTS)) ==
           RunResult::Done;
}

void quoteInPlace(SQLHDBC connection, char16_t *name, int32_t capacity) {
    OstrelCopyString(name, prepareNameForSql92(connection, name, kNameCapacity).c_str(), capacity);
}

} // namespace

extern "C" int32_t Tabra_GetPrimaryKeyColumns(SQLHDBC connection, const char16_t *table, int32_t flags,
                                              const char16_t *separator, char16_t *output, int32_t capacity) {
    if (output == nullptr || capacity < 1) return 2;
    output[0] = u'\0';
    if (connection == SQL_NULL_HDBC || !driverHasPrimaryKeys(connection)) return 2;
    if (Ostrel_IsBlankString(table)) return 1;
    if (separator == nullptr) separator = u"\t";
    StatementRunner statement(connection, nullptr);
    if (!runPrimaryKeys(connection, table, statement)) return 2;
    BoundText<kNameCapacity> column;
    column.bind(statement.handle(), 4);
    while (succeeded(statement.fetch())) {
        if (column.isNull()) column.text[0] = u'\0';
        if (flags & TABRA_FIELDS_QUOTE) quoteInPlace(connection, column.text, kNameCapacity);
        if (output[0] != u'\0') OstrelAppendString(output, separator, capacity);
        OstrelAppendString(output, column.text, capacity);
    }
    SQLFreeStmt(statement.handle(), SQL_UNBIND);
    return 1;
}

extern "C" int32_t Tabra_GetPrimaryKeyName(SQLHDBC connection, const char16_t *table, uint8_t flags,
                                           char16_t *output, int32_t capacity) {
    if (output == nullptr || capacity < 1) return 2;
    output[0] = u'\0';
    if (connection == SQL_NULL_HDBC || !driverHasPrimaryKeys(connection)) return 2;
    if (Ostrel_IsBlankString(table)) return 1;
    StatementRunner statement(connection, nullptr);
    if (!runPrimaryKeys(connection, table, statement)) return 2;
    BoundText<kNameCapacity> keyName;
    keyName.bind(statement.handle(), 6);
    if (!succeeded(statement.fetch()) || keyName.isNull()) keyName.text[0] = u'\0';
    SQLFreeStmt(statement.handle(), SQL_UNBIND);
    statement.drop();
    OstrelCopyString(output, keyName.text, capacity);
    if (flags & TABRA_FIELDS_QUOTE) quoteInPlace(connection, output, capacity);
    return 1;
}
