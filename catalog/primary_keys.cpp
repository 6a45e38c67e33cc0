// Primary keys from the catalog: the key's columns in the driver's order, and the
// key's name. A driver without a primary-key catalog gives the failure value quietly.
#include "catalog/bound_column.h"
#include "catalog/catalog_calls.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/statement_handle.h"
#include "ostrel.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"
#include "tabra_sqltext.h"

using namespace tabra::catalog;
using tabra::odbc::sqlText;
using tabra::odbc::StatementHandle;
using tabra::odbc::succeeded;

namespace {

constexpr int32_t kNameCapacity = 100;

bool driverHasPrimaryKeys(SQLHDBC connection) {
    SQLUSMALLINT supported = 0;
    return succeeded(SQLGetFunctions(connection, SQL_API_SQLPRIMARYKEYS, &supported)) && supported == 1;
}

// Runs the key catalog for the table (null schema and catalog); the table is given in
// its quoted form where the database type asks for it. Failures are shown.
bool runPrimaryKeys(SQLHDBC connection, const char16_t *table, StatementHandle &statement) {
    if (!succeeded(statement.allocate(connection))) {
        Tabra_DisplayErrorHdbc(connection);
        return false;
    }
    char16_t name[kNameCapacity];
    OstrelCopyString(name, table, kNameCapacity);
    if (Tabra_GetDatabaseType(connection) == DbMySql) {
        char16_t quoted[kNameCapacity];
        Tabra_PrepareNameForSql92(connection, name, quoted, kNameCapacity, 0);
        OstrelCopyString(name, quoted, kNameCapacity);
    }
    if (!succeeded(SQLPrimaryKeysW(statement.get(), nullptr, 0, nullptr, 0, sqlText(name), SQL_NTS))) {
        Tabra_DisplayErrorHstmt(statement.get(), nullptr);
        return false;
    }
    return true;
}

void quoteInPlace(SQLHDBC connection, char16_t *name, int32_t capacity) {
    char16_t quoted[kNameCapacity];
    Tabra_PrepareNameForSql92(connection, name, quoted, kNameCapacity, 0);
    OstrelCopyString(name, quoted, capacity);
}

} // namespace

extern "C" int32_t Tabra_GetPrimaryKeyColumns(SQLHDBC connection, const char16_t *table, int32_t flags,
                                              const char16_t *separator, char16_t *output, int32_t capacity) {
    if (output == nullptr || capacity < 1) return 2;
    output[0] = u'\0';
    if (connection == SQL_NULL_HDBC || !driverHasPrimaryKeys(connection)) return 2;
    if (Ostrel_IsBlankString(table)) return 1;
    if (separator == nullptr) separator = u"\t";
    StatementHandle statement;
    if (!runPrimaryKeys(connection, table, statement)) return 2;
    BoundText<kNameCapacity> column;
    column.bind(statement.get(), 4);
    while (succeeded(SQLFetch(statement.get()))) {
        if (column.isNull()) column.text[0] = u'\0';
        if (flags & TABRA_FIELDS_QUOTE) quoteInPlace(connection, column.text, kNameCapacity);
        if (output[0] != u'\0') OstrelAppendString(output, separator, capacity);
        OstrelAppendString(output, column.text, capacity);
    }
    SQLFreeStmt(statement.get(), SQL_UNBIND);
    return 1;
}

extern "C" int32_t Tabra_GetPrimaryKeyName(SQLHDBC connection, const char16_t *table, uint8_t flags,
                                           char16_t *output, int32_t capacity) {
    if (output == nullptr || capacity < 1) return 2;
    output[0] = u'\0';
    if (connection == SQL_NULL_HDBC || !driverHasPrimaryKeys(connection)) return 2;
    if (Ostrel_IsBlankString(table)) return 1;
    StatementHandle statement;
    if (!runPrimaryKeys(connection, table, statement)) return 2;
    BoundText<kNameCapacity> keyName;
    keyName.bind(statement.get(), 6);
    if (!succeeded(SQLFetch(statement.get())) || keyName.isNull()) keyName.text[0] = u'\0';
    SQLFreeStmt(statement.get(), SQL_UNBIND);
    statement.reset();
    OstrelCopyString(output, keyName.text, capacity);
    if (flags & TABRA_FIELDS_QUOTE) quoteInPlace(connection, output, capacity);
    return 1;
}
