// Column facts as C++, from the result-set description of a prepared, never executed
// "SELECT column FROM table": data type, length, nullability, updatability, case
// sensitivity and the auto-increment property. No row is ever fetched. Missing
// arguments fail quietly; ODBC failures are shown (without the statement text).
#pragma once

#include "tabra_catalog.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tabra::catalog {

// The column's ODBC SQL type; 0 on any failure.
int32_t columnDataType(SQLHDBC connection, const char16_t *table, const char16_t *column);
// The column's length; -1 on any failure.
int32_t columnLength(SQLHDBC connection, const char16_t *table, const char16_t *column);
// Every property at once (those that cannot be read stay 0); nullopt on failure.
std::optional<ColumnProperties> columnProperties(SQLHDBC connection, const char16_t *table, const char16_t *column);
// The auto-increment property as the ODBC 3 call answers it; false also on failure.
bool isAutoIncrementColumn(SQLHDBC connection, const char16_t *table, const char16_t *column);
// Whether the column may be written; false also on failure.
bool isUpdatableColumn(SQLHDBC connection, const char16_t *table, const char16_t *column);
// The name of the table's first auto-increment column; nullopt when there is none or
// on failure. capacity goes to the driver as a byte count: at most half of it is used.
std::optional<std::u16string> firstAutoIncrementColumn(SQLHDBC connection, const char16_t *table, int32_t capacity);

} // namespace tabra::catalog
