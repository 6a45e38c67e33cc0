// Whether a table exists: against the table list (the Tabra_* family), or row by row
// through the catalog (the OdbcEh_* family).
#include "catalog/table_existence.h"

#include "catalog/catalog_calls.h"
#include "catalog/table_list.h"
#include "core/odbc/bound_column.h"
#include "core/odbc/statement_runner.h"
#include "ostrel.h"
#include "platform/text/case_folding.h"
#include "tabra_catalog.h"

#include <string>

namespace tabra::catalog {
namespace {

using odbc::RunResult;

constexpr int32_t kListCapacity = 10000;
constexpr int32_t kTokenCapacity = 100;

} // namespace

int32_t findInTableList(SQLHDBC connection, int32_t typeFlags, const char16_t *schema, uint8_t qualify,
                        const char16_t *name) {
    if (connection == SQL_NULL_HDBC) return -1;
    const auto list = tableList(connection, typeFlags, schema, qualify, kListCapacity, u"\t");
    if (!list) return -1;
    const char16_t *wanted = name ? name : u"";
    char16_t token[kTokenCapacity];
    int32_t position = 0;
    while (Ostrel_ReadToken(list->c_str(), &position, u'\t', token, kTokenCapacity) == 1)
        if (platform::equalIgnoringCase(token, wanted)) return 1;
    return 0;
}

int32_t findInCatalog(SQLHDBC connection, int32_t typeFlags, const char16_t *schema, const char16_t *name) {
    if (name == nullptr || connection == SQL_NULL_HDBC) return 0;
    odbc::StatementRunner statement(connection, nullptr);
    if (statement.allocate() != RunResult::Done) return 2;
    if (statement.check(callTables(statement.handle(), schema, typeFlags)) != RunResult::Done) return 0;
    odbc::BoundText<kTokenCapacity> tableName;
    tableName.bind(statement.handle(), 3, kTokenCapacity - 1);
    while (SQL_SUCCEEDED(statement.fetch()))
        if (!tableName.isNull() && platform::equalIgnoringCase(tableName.text, name)) return 1;
    return 0;
}

} // namespace tabra::catalog

using namespace tabra::catalog;

extern "C" int32_t Tabra_DoesTableExist(SQLHDBC connection, int32_t typeFlags, const char16_t *name) {
    return findInTableList(connection, typeFlags, nullptr, 0, name);
}

extern "C" int32_t Tabra_DoesTableExistExtended(SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                                const char16_t *name) {
    return findInTableList(connection, typeFlags, schema, TABRA_QUALIFY_SCHEMA, name);
}

extern "C" int32_t OdbcEh_DoesTableExist(int32_t, SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                         const char16_t *name, int32_t) {
    return findInCatalog(connection, typeFlags, schema, name);
}
