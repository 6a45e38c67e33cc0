// Filling list boxes with the data sources the driver manager knows and with the
// schemas of a connection that own tables.
#include "core/connection/connection_info.h"
#include "core/odbc/bound_column.h"
#include "core/resource_ids.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/statement_runner.h"
#include "ostrel.h"
#include "tabra_connection.h"

using tabra::odbc::RunResult;
using tabra::odbc::sqlText;

namespace {

constexpr SQLSMALLINT kNameBytes = 200;  // SQLDataSourcesW buffer lengths, as the driver manager counts them
constexpr int32_t kCatalogColumnDeclared = 99; // wide characters of a catalog column, terminator included
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
    if (tabra::connection::schemaUsage(connection) == 0) return 1;

    tabra::odbc::StatementRunner statement(connection, nullptr);
    if (statement.allocate() != RunResult::Done ||
        statement.check(SQLTablesW(statement.handle(), nullptr, 0, nullptr, 0, nullptr, 0, sqlText(u"'TABLE'"),
                                   SQL_NTS)) != RunResult::Done)
        return 2;
    tabra::odbc::BoundText<100> schema, table;
    if (statement.check(schema.bind(statement.handle(), 2, kCatalogColumnDeclared)) != RunResult::Done ||
        statement.check(table.bind(statement.handle(), 3, kCatalogColumnDeclared)) != RunResult::Done)
        return 2;
    while (tabra::odbc::succeeded(statement.fetch())) {
        if (schema.isNull() || Ostrel_IsBlankString(schema.text)) continue;
        Ostrel_AddBoxEntry(list, schema.text, 0, -1, kAddOnce);
    }
    return 1;
}
