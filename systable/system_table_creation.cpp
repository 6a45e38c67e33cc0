// Creating the system table, with a value column whose type suits the database: the
// store's values are long texts, and each product names such a column differently
// (the capability table's system table value type).
#include "systable/system_table.h"

#include "catalog/table_existence.h"
#include "core/connection/capabilities.h"
#include "rowset/row_set.h"
#include "tabra_catalog.h"
#include "tabra_systable.h"

namespace tabra::systable {

std::u16string systemTableName = u"OstrelSysTable";

namespace {

constexpr char16_t kCreateStatement[] = u"CREATE TABLE %s (Object VARCHAR (100) NOT NULL, Type VARCHAR (50) NOT NULL, "
                                        u"ItemName VARCHAR (50) NOT NULL, ItemValue %s)";

} // namespace

bool systemTableExists(SQLHDBC connection) {
    // Only a plain "no" counts: a catalog that cannot be asked is not taken for a
    // missing table.
    return catalog::findInCatalog(connection, TABRA_TABLE_TYPE_TABLE, nullptr, systemTableName.c_str()) != 0;
}

int32_t createSystemTable(SQLHDBC connection) {
    const auto statement = formatSystemTableStatement(kCreateStatement, {systemTableName, connection::capabilities(connection).systemTableValueType});
    if (!statement) return 2;
    // The only statement of the store whose failure is shown.
    return rowset::performStatement(connection, statement->c_str(), nullptr);
}

int32_t ensureSystemTable(SQLHDBC connection) {
    if (systemTableExists(connection)) return 1;
    return createSystemTable(connection);
}

} // namespace tabra::systable

extern "C" int32_t Tabra_CreateSystemTable(SQLHDBC connection) { return tabra::systable::createSystemTable(connection); }
