// Whether a table exists: against the table list (the Tabra_* family, which searches
// the first 10000 characters of the list, a deliberate limit), or row by row through
// the catalog (the OdbcEh_* family).
#include "catalog/bound_column.h"
#include "catalog/catalog_calls.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/statement_handle.h"
#include "ostrel.h"
#include "platform/text/case_folding.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"

#include <string>

using namespace tabra::catalog;
using tabra::odbc::StatementHandle;
using tabra::odbc::succeeded;
using tabra::platform::equalIgnoringCase;

namespace {

constexpr int32_t kListCapacity = 10000;
constexpr int32_t kTokenCapacity = 100;

int32_t findInTableList(SQLHDBC connection, int32_t typeFlags, const char16_t *schema, uint8_t qualify,
                        const char16_t *name) {
    std::u16string list(kListCapacity, u'\0');
    if (Tabra_GetTablesExtended(connection, typeFlags, schema, qualify, list.data(), kListCapacity, u"\t") < 0)
        return -1;
    const char16_t *wanted = name ? name : u"";
    char16_t token[kTokenCapacity];
    int32_t position = 0;
    while (Ostrel_ReadToken(list.c_str(), &position, u'\t', token, kTokenCapacity) == 1)
        if (equalIgnoringCase(token, wanted)) return 1;
    return 0;
}

} // namespace

extern "C" int32_t Tabra_DoesTableExist(SQLHDBC connection, int32_t typeFlags, const char16_t *name) {
    return findInTableList(connection, typeFlags, nullptr, 0, name);
}

extern "C" int32_t Tabra_DoesTableExistExtended(SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                                const char16_t *name) {
    return findInTableList(connection, typeFlags, schema, TABRA_QUALIFY_SCHEMA, name);
}

extern "C" int32_t OdbcEh_DoesTableExist(int32_t context, SQLHDBC connection, int32_t typeFlags,
                                         const char16_t *schema, const char16_t *name, int32_t) {
    if (name == nullptr || connection == SQL_NULL_HDBC) return 0;
    StatementHandle statement;
    if (!succeeded(statement.allocate(connection))) {
        OdbcEh_HandleErrorHdbc(context, connection);
        return 2;
    }
    if (!succeeded(callTables(statement.get(), schema, typeFlags))) {
        OdbcEh_HandleErrorHstmt(context, statement.get(), nullptr);
        return 0;
    }
    BoundText<kTokenCapacity> tableName;
    tableName.bind(statement.get(), 3, kTokenCapacity - 1);
    while (succeeded(SQLFetch(statement.get())))
        if (!tableName.isNull() && equalIgnoringCase(tableName.text, name)) return 1;
    return 0;
}
