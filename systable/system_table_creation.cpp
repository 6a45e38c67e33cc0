// Creating the system table, with a value column whose type suits the database: the
// store's values are long texts, and each product names such a column differently.
#include "systable/system_table.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"
#include "tabra_rowset.h"
#include "tabra_systable.h"

namespace tabra::catalog {

std::u16string systemTableName = u"OstrelSysTable";

namespace {

constexpr char16_t kCreateStatement[] = u"CREATE TABLE %s (Object VARCHAR (100) NOT NULL, Type VARCHAR (50) NOT NULL, "
                                        u"ItemName VARCHAR (50) NOT NULL, ItemValue %s)";

const char16_t *valueColumnType(SQLHDBC connection) {
    switch (Tabra_GetDatabaseType(connection)) {
    case DbAccess: return u"MEMO";
    case DbSqlServer: return u"VARCHAR (5000)";
    default: return u"BLOB";
    }
}

} // namespace

bool systemTableExists(SQLHDBC connection) {
    // Only a plain "no" counts: a catalog that cannot be asked is not taken for a
    // missing table.
    return OdbcEh_DoesTableExist(0, connection, TABRA_TABLE_TYPE_TABLE, nullptr, systemTableName.c_str(), 0) != 0;
}

int32_t ensureSystemTable(SQLHDBC connection) {
    if (systemTableExists(connection)) return 1;
    return Tabra_CreateSystemTable(connection);
}

} // namespace tabra::catalog

using namespace tabra::catalog;

extern "C" int32_t Tabra_CreateSystemTable(SQLHDBC connection) {
    const auto statement = formatSystemTableStatement(kCreateStatement, {systemTableName, valueColumnType(connection)});
    if (!statement) return 2;
    // The only statement of the store whose failure is shown.
    return OdbcEh_PerformSqlStatement(0, connection, statement->c_str(), nullptr);
}
