// Record counts and the two aggregates maximum and sum, counted by the database. A
// failure (shown) and an empty result both give 0 to the count functions.
#include "catalog/record_counts.h"

#include "catalog/number_text.h"
#include "catalog/single_value_query.h"
#include "core/odbc/statement_runner.h"
#include "platform/text/bounded_text.h"
#include "sqltext/statement_formatter.h"
#include "tabra_catalog.h"

#include <string>

namespace tabra::catalog {
namespace {

constexpr int32_t kStatementCapacity = 30000;

bool isEmpty(const char16_t *text) { return text == nullptr || text[0] == u'\0'; }

// The statement of format with the names, and " WHERE condition" when a condition is
// given, as 30000 characters hold it.
std::u16string buildStatement(SQLHDBC connection, const char16_t *format, const char16_t *first,
                              const char16_t *second, const char16_t *condition) {
    std::u16string text = sqltext::formatStatement(connection, format, {first, second}, kStatementCapacity);
    if (!isEmpty(condition)) {
        text += platform::boundedPrefix(u" WHERE ", kStatementCapacity - text.size());
        text += platform::boundedPrefix(condition, kStatementCapacity - text.size());
    }
    return text;
}

} // namespace

int32_t recordCount(SQLHDBC connection, const char16_t *table, const char16_t *condition) {
    if (connection == SQL_NULL_HDBC || isEmpty(table)) return 0;
    auto text = buildStatement(connection, u"SELECT Count(*) FROM %t", table, nullptr, condition);
    auto value = querySingleValue(connection, text.c_str());
    return value ? readLong(value->c_str()) : 0;
}

std::optional<double> aggregateOf(SQLHDBC connection, const char16_t *table, const char16_t *column,
                                  const char16_t *condition, bool sum) {
    if (connection == SQL_NULL_HDBC || isEmpty(table) || isEmpty(column)) return std::nullopt;
    auto text = buildStatement(connection, sum ? u"SELECT Sum(%f) FROM %t" : u"SELECT max(%f) FROM %t", column,
                               table, condition);
    auto value = querySingleValue(connection, text.c_str());
    if (!value) return std::nullopt;
    return readDouble(value->c_str());
}

int32_t fetchedRowCount(SQLHDBC connection, const char16_t *text) {
    if (connection == SQL_NULL_HDBC || isEmpty(text)) return 0;
    odbc::StatementRunner statement(connection, text);
    if (statement.run() != odbc::RunResult::Done) return 0;
    int32_t count = 0;
    while (SQL_SUCCEEDED(statement.fetch())) ++count;
    return count;
}

} // namespace tabra::catalog

using namespace tabra::catalog;

namespace {

int32_t storeAggregate(std::optional<double> value, double *result) {
    if (!value) return -1;
    if (result != nullptr) *result = *value;
    return 0;
}

} // namespace

extern "C" int32_t Tabra_GetRecordCount(SQLHDBC connection, const char16_t *table, int32_t) {
    return recordCount(connection, table, nullptr);
}

extern "C" int32_t Tabra_GetRecordCountExt(SQLHDBC connection, const char16_t *table, const char16_t *condition) {
    return recordCount(connection, table, condition);
}

extern "C" int32_t Tabra_GetMaximum(SQLHDBC connection, const char16_t *table, const char16_t *column,
                                    const char16_t *condition, double *result) {
    return storeAggregate(aggregateOf(connection, table, column, condition, false), result);
}

extern "C" int32_t Tabra_AddFields(SQLHDBC connection, const char16_t *table, const char16_t *column,
                                   const char16_t *condition, double *result) {
    return storeAggregate(aggregateOf(connection, table, column, condition, true), result);
}

extern "C" int32_t OdbcEh_CountRows(int32_t, SQLHDBC connection, const char16_t *statement) {
    return fetchedRowCount(connection, statement);
}
