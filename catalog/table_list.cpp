// Table lists: the one place that asks the catalog for table names. The result is one
// flat text of names joined by the caller's separator; a list that does not fit ends
// at the last entry that did.
#include "catalog/bound_column.h"
#include "catalog/catalog_calls.h"
#include "catalog/table_type_flags.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/statement_handle.h"
#include "ostrel.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"

#include <string>

using namespace tabra::catalog;
using tabra::odbc::StatementHandle;
using tabra::odbc::succeeded;

namespace {

constexpr int32_t kColumnCapacity = 100; // one catalog column
constexpr int32_t kColumnDeclared = 99;
constexpr int32_t kEntryCapacity = 200; // one entry: schema.table

// True when the driver answers a non-zero schema usage.
bool driverKnowsSchemas(SQLHDBC connection) {
    SQLUINTEGER usage = 0;
    SQLRETURN rc = SQLGetInfoW(connection, SQL_SCHEMA_USAGE, &usage, sizeof usage, nullptr);
    return succeeded(rc) && usage != 0;
}

// Appends text at the end of a list whose length is known; returns the new length.
int32_t appendAt(char16_t *output, int32_t length, int32_t capacity, const char16_t *text) {
    if (length >= capacity - 1) return length;
    return length + OstrelCopyString(output + length, text, capacity - length);
}

} // namespace

extern "C" int32_t Tabra_GetTables(SQLHDBC connection, int32_t typeFlags, char16_t *output, int32_t capacity,
                                   const char16_t *separator) {
    return Tabra_GetTablesExtended(connection, typeFlags, nullptr, 0, output, capacity, separator);
}

extern "C" int32_t Tabra_GetTablesExtended(SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                           uint8_t qualify, char16_t *output, int32_t capacity,
                                           const char16_t *separator) {
    if (connection == SQL_NULL_HDBC || output == nullptr || capacity < 1) return -1;
    if (separator == nullptr) separator = u",";
    const int32_t separatorLength = textLength(separator);
    const bool schemas = driverKnowsSchemas(connection);

    StatementHandle statement;
    if (!succeeded(statement.allocate(connection))) {
        Tabra_DisplayErrorHdbc(connection);
        return -1;
    }
    if (!succeeded(callTables(statement.get(), schema, typeFlags))) {
        Tabra_DisplayErrorHstmt(statement.get(), nullptr);
        return -1;
    }
    BoundText<kColumnCapacity> catalogName, schemaName, tableName;
    if (!succeeded(catalogName.bind(statement.get(), 1, kColumnDeclared)) ||
        !succeeded(schemaName.bind(statement.get(), 2, kColumnDeclared)) ||
        !succeeded(tableName.bind(statement.get(), 3, kColumnDeclared))) {
        Tabra_DisplayErrorHstmt(statement.get(), nullptr);
        return -1;
    }

    output[0] = u'\0';
    int32_t remaining = capacity;
    int32_t length = 0;
    bool first = true;
    char16_t entry[kEntryCapacity];
    while (SQLFetch(statement.get()) == SQL_SUCCESS) {
        if (tableName.isNull()) tableName.text[0] = u'\0';
        // The bare name decides, even where the entry will be qualified; the appends
        // below are bounded anyway.
        if (textLength(tableName.text) + separatorLength >= remaining) break;
        if ((typeFlags & TABRA_TABLE_TYPE_SYSTEM_TABLE) == 0 && isBookkeepingTable(tableName.text)) continue;

        bool qualified = schemas && !schemaName.isNull() && !Ostrel_IsBlankString(schemaName.text) &&
                         (qualify & TABRA_QUALIFY_SCHEMA) != 0;
        if (qualified) {
            OstrelCopyString(entry, schemaName.text, kEntryCapacity);
            OstrelAppendString(entry, u".", kEntryCapacity);
            OstrelAppendString(entry, tableName.text, kEntryCapacity);
        } else {
            OstrelCopyString(entry, tableName.text, kEntryCapacity);
        }
        if (!first) {
            length = appendAt(output, length, capacity, separator);
            remaining -= separatorLength;
        }
        first = false;
        length = appendAt(output, length, capacity, entry);
        remaining -= textLength(entry);
    }
    return 0;
}

extern "C" int32_t OdbcEh_GetTablesExtended(int32_t context, SQLHDBC connection, int32_t typeFlags,
                                            const char16_t *schema, int32_t, char16_t *output, int32_t capacity,
                                            const char16_t *separator) {
    if (connection == SQL_NULL_HDBC || output == nullptr || capacity < 1) return -1;
    if (separator == nullptr) separator = u",";
    const int32_t separatorLength = textLength(separator);

    StatementHandle statement;
    if (!succeeded(statement.allocate(connection))) {
        OdbcEh_HandleErrorHdbc(context, connection);
        return 2;
    }
    if (!succeeded(callTables(statement.get(), schema, typeFlags))) {
        OdbcEh_HandleErrorHstmt(context, statement.get(), nullptr);
        return -1;
    }
    BoundText<kColumnCapacity> tableName;
    tableName.bind(statement.get(), 3, kColumnDeclared);

    output[0] = u'\0';
    int32_t remaining = capacity;
    int32_t length = 0;
    bool first = true;
    while (SQLFetch(statement.get()) == SQL_SUCCESS) {
        if (tableName.isNull()) tableName.text[0] = u'\0';
        int32_t nameLength = textLength(tableName.text);
        if (nameLength + separatorLength >= remaining) break;
        if (!first) {
            length = appendAt(output, length, capacity, separator);
            remaining -= separatorLength;
        }
        first = false;
        length = appendAt(output, length, capacity, tableName.text);
        remaining -= nameLength;
    }
    return 0;
}
