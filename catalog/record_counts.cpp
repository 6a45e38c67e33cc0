// Record counts and the two aggregates maximum and sum, counted by the database. A
// failure (shown) and an empty result both give 0 to the count functions.
#include "catalog/number_text.h"
#include "catalog/single_value_query.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/statement_handle.h"
#include "ostrel.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"
#include "tabra_sqltext.h"

#include <new>
#include <vector>

using namespace tabra::catalog;
using tabra::odbc::sqlText;
using tabra::odbc::StatementHandle;
using tabra::odbc::succeeded;

namespace {

constexpr int32_t kStatementCapacity = 30000;

// The statement of format with column and table, and " WHERE condition" when a
// condition is given; empty when no buffer could be had.
std::vector<char16_t> buildStatement(SQLHDBC connection, const char16_t *format, const char16_t *first,
                                     const char16_t *second, const char16_t *condition) {
    std::vector<char16_t> text;
    try {
        text.assign(kStatementCapacity, u'\0');
    } catch (const std::bad_alloc &) {
        return text;
    }
    Tabra_SprintfSqlStatement(connection, text.data(), kStatementCapacity, format, first, second, nullptr, nullptr,
                              nullptr, nullptr, nullptr, nullptr);
    if (condition != nullptr && condition[0] != u'\0') {
        OstrelAppendString(text.data(), u" WHERE ", kStatementCapacity);
        OstrelAppendString(text.data(), condition, kStatementCapacity);
    }
    return text;
}

int32_t aggregate(SQLHDBC connection, const char16_t *format, const char16_t *table, const char16_t *column,
                  const char16_t *condition, double *result) {
    if (connection == SQL_NULL_HDBC || table == nullptr || table[0] == u'\0' || column == nullptr ||
        column[0] == u'\0')
        return -1;
    auto text = buildStatement(connection, format, column, table, condition);
    if (text.empty()) return -1;
    auto value = querySingleValue(connection, text.data(), kStatementCapacity);
    if (!value) return -1;
    if (result != nullptr) *result = readDouble(value->c_str());
    return 0;
}

} // namespace

extern "C" int32_t Tabra_GetRecordCount(SQLHDBC connection, const char16_t *table, int32_t) {
    return Tabra_GetRecordCountExt(connection, table, nullptr);
}

extern "C" int32_t Tabra_GetRecordCountExt(SQLHDBC connection, const char16_t *table, const char16_t *condition) {
    if (connection == SQL_NULL_HDBC || table == nullptr || table[0] == u'\0') return 0;
    auto text = buildStatement(connection, u"SELECT Count(*) FROM %t", table, nullptr, condition);
    if (text.empty()) return 0;
    auto value = querySingleValue(connection, text.data(), kStatementCapacity);
    return value ? readLong(value->c_str()) : 0;
}

extern "C" int32_t Tabra_GetMaximum(SQLHDBC connection, const char16_t *table, const char16_t *column,
                                    const char16_t *condition, double *result) {
    return aggregate(connection, u"SELECT max(%f) FROM %t", table, column, condition, result);
}

extern "C" int32_t Tabra_AddFields(SQLHDBC connection, const char16_t *table, const char16_t *column,
                                   const char16_t *condition, double *result) {
    return aggregate(connection, u"SELECT Sum(%f) FROM %t", table, column, condition, result);
}

extern "C" int32_t OdbcEh_CountRows(int32_t context, SQLHDBC connection, const char16_t *statementText) {
    if (connection == SQL_NULL_HDBC || statementText == nullptr || statementText[0] == u'\0') return 0;
    StatementHandle statement;
    if (!succeeded(statement.allocate(connection))) {
        OdbcEh_HandleErrorHdbc(context, connection);
        return 0;
    }
    if (Ostrel_DumpSqlStatement(statementText, 0) != 1) return 0;
    if (!succeeded(SQLExecDirectW(statement.get(), sqlText(statementText), SQL_NTS))) {
        OdbcEh_HandleErrorHstmt(context, statement.get(), statementText);
        return 0;
    }
    int32_t count = 0;
    while (succeeded(SQLFetch(statement.get()))) ++count;
    return count;
}
