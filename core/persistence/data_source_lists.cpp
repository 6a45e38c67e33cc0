// Filling list boxes with the data sources the driver manager knows and with the
// schemas of a connection that own tables.
#include "core/resource_ids.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/statement_handle.h"
#include "ostrel.h"
#include "tabra_connection.h"

using tabra::odbc::sqlText;

namespace {

constexpr SQLSMALLINT kNameBytes = 200;  // SQLDataSourcesW buffer lengths, as the driver manager counts them
constexpr SQLLEN kCatalogColumnBytes = 99;
constexpr uint32_t kAddOnce = 2;          // Ostrel_AddBoxEntry: keep each text once

} // namespace

extern "C" int32_t Tabra_FillDataSourcesBox(HWND list) {
    Ostrel_FillBox(list, u'\t', nullptr);
    SQLHENV environment = SQL_NULL_HENV;
    if (SQLAllocEnv(&environment) != SQL_SUCCESS) {
        ShowMessage(tabra::core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
        return 2;
    }
    char16_t name[kNameBytes] = {};
    char16_t description[kNameBytes] = {};
    SQLSMALLINT nameLength = 0;
    SQLSMALLINT descriptionLength = 0;
    SQLUSMALLINT direction = SQL_FETCH_FIRST; // user and system data sources alike
    while (SQLDataSourcesW(environment, direction, sqlText(name), kNameBytes, &nameLength, sqlText(description),
                           kNameBytes, &descriptionLength) == SQL_SUCCESS) {
        direction = SQL_FETCH_NEXT;
        if (Ostrel_AddBoxEntry(list, name, 0, -1, 0) < 0) break;
    }
    SQLFreeEnv(environment);
    return 1;
}

extern "C" int32_t Tabra_FillSchemataBox(SQLHDBC connection, HWND list) {
    if (connection == SQL_NULL_HDBC || list == nullptr) return 2;
    Ostrel_ResetBox(list);
    if (Tabra_GetSchemaUsage(connection) == 0) return 1;

    tabra::odbc::StatementHandle statement;
    if (statement.allocate(connection) != SQL_SUCCESS) {
        Tabra_DisplayErrorHdbc(connection);
        return 2;
    }
    SQLRETURN rc = SQLTablesW(statement.get(), nullptr, 0, nullptr, 0, nullptr, 0, sqlText(u"'TABLE'"), SQL_NTS);
    if (!tabra::odbc::succeeded(rc)) {
        Tabra_DisplayErrorHstmt(statement.get(), nullptr);
        return 2;
    }
    char16_t schema[100] = {};
    char16_t table[100] = {};
    SQLLEN schemaIndicator = 0;
    SQLLEN tableIndicator = 0;
    if (!tabra::odbc::succeeded(SQLBindCol(statement.get(), 2, SQL_C_WCHAR, schema, kCatalogColumnBytes * 2,
                                           &schemaIndicator)) ||
        !tabra::odbc::succeeded(SQLBindCol(statement.get(), 3, SQL_C_WCHAR, table, kCatalogColumnBytes * 2,
                                           &tableIndicator))) {
        Tabra_DisplayErrorHstmt(statement.get(), nullptr);
        return 2;
    }
    while (tabra::odbc::succeeded(SQLFetch(statement.get()))) {
        if (schemaIndicator == SQL_NULL_DATA || Ostrel_IsBlankString(schema)) continue;
        Ostrel_AddBoxEntry(list, schema, 0, -1, kAddOnce);
    }
    return 1;
}
