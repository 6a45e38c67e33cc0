// The primary-key catalog: passed to the SQLite3 driver, unless the data source names
// its keys (PrimaryKeyName=): then the same six columns come from a query on the
// table's key columns with that name as PK_NAME, since SQLite's catalog leaves it null.
#include "driver_entry.h"
#include "handle_registry.h"

#include <string>

namespace tabra::testdriver {
namespace {

// A text as an SQLite string literal.
std::string literal(const std::string &text) {
    std::string quoted = "'";
    for (char c : text) {
        quoted += c;
        if (c == '\'') quoted += c;
    }
    return quoted + "'";
}

} // namespace
} // namespace tabra::testdriver

using namespace tabra::testdriver;

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLPrimaryKeys(SQLHSTMT hstmt, SQLCHAR *szCatalogName, SQLSMALLINT cbCatalogName,
                                                     SQLCHAR *szSchemaName, SQLSMALLINT cbSchemaName,
                                                     SQLCHAR *szTableName, SQLSMALLINT cbTableName) {
    enter("SQLPrimaryKeys", hstmt);
    DataSourceSettings settings = statementSettings(hstmt);
    if (settings.primaryKeyName.empty())
        return TABRA_REAL(SQLPrimaryKeys)(hstmt, szCatalogName, cbCatalogName, szSchemaName, cbSchemaName, szTableName,
                                          cbTableName);
    std::string table = literal(odbcString(szTableName, cbTableName));
    std::string query = "SELECT NULL AS TABLE_CAT, NULL AS TABLE_SCHEM, " + table +
                        " AS TABLE_NAME, name AS COLUMN_NAME, pk AS KEY_SEQ, " + literal(settings.primaryKeyName) +
                        " AS PK_NAME FROM pragma_table_info(" + table + ") WHERE pk > 0 ORDER BY pk";
    return TABRA_REAL(SQLExecDirect)(hstmt, reinterpret_cast<SQLCHAR *>(query.data()), SQL_NTS);
}
