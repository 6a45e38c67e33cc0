// Column names: whether a column exists, the plain name list of a table, and the
// result column names of a statement.
#include "catalog/catalog_calls.h"
#include "core/diagnostics/odbc_error_display.h"
#include "core/odbc/bound_column.h"
#include "core/odbc/result_column_attribute.h"
#include "core/odbc/statement_runner.h"
#include "ostrel.h"
#include "platform/text/case_folding.h"
#include "tabra_catalog.h"

using namespace tabra::catalog;
using tabra::diagnostics::showOdbcError;
using namespace tabra::odbc;
using tabra::platform::equalIgnoringCase;

namespace {

constexpr int32_t kNameCapacity = 100;

// Shared by both families: the catalog rows of schema.table searched for the column.
// 1 found; 0 not found, missing arguments or a failing catalog call (shown); 2 no
// statement handle (shown).
int32_t findColumn(SQLHDBC connection, const char16_t *schema, const char16_t *table, const char16_t *column) {
    if (table == nullptr || column == nullptr || connection == SQL_NULL_HDBC) return 0;
    StatementRunner statement(connection, nullptr);
    if (statement.allocate() != RunResult::Done) return 2;
    if (statement.check(callColumns(statement.handle(), schema, table)) != RunResult::Done) return 0;
    BoundText<kNameCapacity> name;
    name.bind(statement.handle(), 4, kNameCapacity - 1);
    while (SQL_SUCCEEDED(statement.fetch()))
        if (!name.isNull() && equalIgnoringCase(name.text, column)) return 1;
    return 0;
}

} // namespace

extern "C" int32_t Tabra_DoesFieldExist(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    return findColumn(connection, nullptr, table, column);
}

extern "C" int32_t OdbcEh_DoesColumnExist(int32_t, SQLHDBC connection, const char16_t *table, const char16_t *schema,
                                          const char16_t *column) {
    return findColumn(connection, schema, table, column);
}

extern "C" int32_t OdbcEh_GetColumnNames(int32_t, SQLHDBC connection, const char16_t *table, const char16_t *schema,
                                         int32_t, const char16_t *separator, const char16_t *toleratedStates,
                                         char16_t *output, int32_t capacity) {
    if (connection == SQL_NULL_HDBC || output == nullptr || capacity < 1) return 2;
    output[0] = u'\0';
    if (table == nullptr) return 2;
    if (separator == nullptr) separator = u"\t";
    StatementRunner statement(connection, nullptr, {.tolerated = toleratedStates});
    if (statement.allocate() != RunResult::Done) return 2;
    switch (statement.check(callColumns(statement.handle(), schema, table))) {
    case RunResult::Done: break;
    case RunResult::Tolerated: return 1; // a missing table, for example, is then no error
    default: return 2;
    }
    BoundText<kNameCapacity> name;
    name.bind(statement.handle(), 4);
    bool first = true;
    while (SQL_SUCCEEDED(statement.fetch())) {
        if (!first) OstrelAppendString(output, separator, capacity);
        first = false;
        OstrelAppendString(output, name.isNull() ? u"" : name.text, capacity);
    }
    SQLFreeStmt(statement.handle(), SQL_UNBIND);
    SQLFreeStmt(statement.handle(), SQL_CLOSE);
    return 1;
}

extern "C" int32_t Tabra_GetColumnNamesFromRowSet(SQLHSTMT statement, char16_t separator, char16_t *output,
                                                  int32_t capacity) {
    if (output == nullptr || statement == SQL_NULL_HSTMT || capacity < 1) return 2;
    output[0] = u'\0';
    auto columns = resultColumnAttribute(statement, 0, SQL_COLUMN_COUNT);
    if (!columns) {
        showOdbcError(SQL_HANDLE_STMT, statement, nullptr);
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
            showOdbcError(SQL_HANDLE_STMT, statement, nullptr);
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
