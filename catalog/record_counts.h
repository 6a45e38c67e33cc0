// Counts and aggregates as C++: records of a table (under a condition), rows of a
// query, the maximum and the sum of a column. Every failure is shown where it happens
// (a refusal of the statement hook quietly) and the count then answers 0, the
// aggregates nullopt.
#pragma once

#include <sql.h>

#include <cstdint>
#include <optional>

namespace tabra::catalog {

// "SELECT Count(*) FROM table" with " WHERE condition" when a condition is given.
int32_t recordCount(SQLHDBC connection, const char16_t *table, const char16_t *condition);
// The maximum (Sum false) or the sum (Sum true) of the column over the table's records
// that meet the condition; a NULL result reads as 0.
std::optional<double> aggregateOf(SQLHDBC connection, const char16_t *table, const char16_t *column,
                                  const char16_t *condition, bool sum);
// The rows the complete statement gives, counted by fetching them all.
int32_t fetchedRowCount(SQLHDBC connection, const char16_t *statement);

} // namespace tabra::catalog
