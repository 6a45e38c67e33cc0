// What the row-set transfers ask about result columns: the SQL type that decides how
// a value is written, and the column names of a file header.
#pragma once

#include <sql.h>

#include <cstdint>
#include <string>

namespace tabra::rowset {

// Capacity of a column name in a file header, in characters (terminator included).
inline constexpr int32_t kHeaderNameCapacity = 100;

// The column's SQL type (SQL_DESC_TYPE); 0 when the driver does not tell.
SQLLEN resultColumnType(SQLHSTMT statement, SQLUSMALLINT column);

// Appends the column names joined by separator to out; the failing call's result when
// a name cannot be had (its diagnostics are on the statement).
SQLRETURN appendColumnNames(SQLHSTMT statement, SQLSMALLINT columns, std::u16string_view separator,
                            std::u16string &out);

} // namespace tabra::rowset
