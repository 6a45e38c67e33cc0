// Column names: whether a column exists, the plain name list of a table, and the
// result column names of a statement.
#include "catalog/bound_column.h"
#include "catalog/catalog_calls.h"
#include "catalog/result_column_attribute.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/statement_handle.h"
#include "ostrel.h"
#include "platform/text/case_folding.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"

using namespace tabra::catalog;
using tabra::odbc::StatementHandle;
using tabra::odbc::succeeded;
using tabra::platform::equalIgnoringCase;

namespace {

constexpr int32_t kNameCapacity = 100;

// Shared by both families: the catalog rows of schema.table searched for the column.
// report decides how failures are shown: (connection, statement) with one null.
template <typename Report>
int32_t findColumn(SQLHDBC connection, const char16_t *schema, const char16_t *table, const char16_t *column,
                   Report report) {
    if (table == nullptr || column == nullptr || connection == SQL_NULL_HDBC) return 0;
    StatementHandle statement;
    if (!succeeded(statement.allocate(connection))) {
        report(connection, SQL_NULL_HSTMT);
        return 2;
    }
    if (!succeeded(callColumns(statement.get(), schema, table))) {
        report(SQL_NULL_HDBC, statement.get());
        return 0;
    }
    BoundText<kNameCapacity> name;
    name.bind(statement.get(), 4, kNameCapacity - 1);
    while (succeeded(SQLFetch(statement.get())))
        if (!name.isNull() && equalIgnoringCase(name.text, column)) return 1;
    return 0;
}

} // namespace

extern "C" int32_t Tabra_DoesFieldExist(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    return findColumn(connection, nullptr, table, column, [](SQLHDBC hdbc, SQLHSTMT hstmt) {
        if (hstmt != SQL_NULL_HSTMT)
            Tabra_DisplayErrorHstmt(hstmt, nullptr);
        else
            Tabra_DisplayErrorHdbc(hdbc);
    });
}

extern "C" int32_t OdbcEh_DoesColumnExist(int32_t context, SQLHDBC connection, const char16_t *table,
                                          const char16_t *schema, const char16_t *column) {
    return findColumn(connection, schema, table, column, [context](SQLHDBC hdbc, SQLHSTMT hstmt) {
        if (hstmt != SQL_NULL_HSTMT)
            OdbcEh_HandleErrorHstmt(context, hstmt, nullptr);
        else
            OdbcEh_HandleErrorHdbc(context, hdbc);
    });
}

extern "C" int32_t OdbcEh_GetColumnNames(int32_t context, SQLHDBC connection, const char16_t *table,
                                         const char16_t *schema, int32_t, const char16_t *separator,
                                         const char16_t *toleratedStates, char16_t *output, int32_t capacity) {
    if (connection == SQL_NULL_HDBC || output == nullptr || capacity < 1) return 2;
    output[0] = u'\0';
    if (table == nullptr) return 2;
    if (separator == nullptr) separator = u"\t";
    StatementHandle statement;
    if (!succeeded(statement.allocate(connection))) {
        OdbcEh_HandleErrorHdbc(context, connection);
        return 2;
    }
    SQLRETURN rc = callColumns(statement.get(), schema, table);
    if (!succeeded(rc)) {
        if (toleratedStates != nullptr &&
            Tabra_IsLastErrorInList(SQL_HANDLE_STMT, statement.get(), toleratedStates, rc) == 1)
            return 1;
        OdbcEh_HandleErrorHstmt(context, statement.get(), nullptr);
        return 2;
    }
    BoundText<kNameCapacity> name;
    name.bind(statement.get(), 4);
    bool first = true;
    while (succeeded(SQLFetch(statement.get()))) {
        if (!first) OstrelAppendString(output, separator, capacity);
        first = false;
        OstrelAppendString(output, name.isNull() ? u"" : name.text, capacity);
    }
    SQLFreeStmt(statement.get(), SQL_UNBIND);
    SQLFreeStmt(statement.get(), SQL_CLOSE);
    return 1;
}

extern "C" int32_t Tabra_GetColumnNamesFromRowSet(SQLHSTMT statement, char16_t separator, char16_t *output,
                                                  int32_t capacity) {
    if (output == nullptr || statement == SQL_NULL_HSTMT || capacity < 1) return 2;
    output[0] = u'\0';
    auto columns = resultColumnAttribute(statement, 0, SQL_COLUMN_COUNT);
    if (!columns) {
        Tabra_DisplayErrorHstmt(statement, nullptr);
        return 2;
    }
    SQLLEN count = *columns;
    if (separator == u'\0') separator = u'\t';
    int32_t remaining = capacity;
    int32_t length = 0;
    char16_t name[kNameCapacity];
    for (SQLUSMALLINT column = 1; column <= count; ++column) {
        name[0] = u'\0';
        SQLSMALLINT reported = 0;
        if (!succeeded(resultColumnName(statement, column, name, sizeof name, &reported))) {
            Tabra_DisplayErrorHstmt(statement, nullptr);
            return 2;
        }
        // The length is taken from the terminator: drivers differ in what they report.
        int32_t nameLength = textLength(name);
        if (nameLength + 2 >= remaining) break;
        if (column > 1) {
            output[length++] = separator;
            --remaining;
        }
        std::char_traits<char16_t>::copy(output + length, name, static_cast<size_t>(nameLength));
        length += nameLength;
        remaining -= nameLength;
    }
    if (remaining >= 1) output[length] = u'\0';
    return 1;
}
