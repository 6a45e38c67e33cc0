// Literal values of conditions and assignments, formatted by ODBC SQL data type.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tabra::query {

// Reads a number typed with comma as decimal separator and point as thousands
// separator, whatever the locale: "," becomes ".", digits, "+" and "-" stay, every
// other character (the point and any exponent letter included) is dropped. So
// "1.234,5" gives "1234.5" and "1.5" gives "15".
std::u16string normalizeNumberText(std::u16string_view text);

// The value as an SQL literal of the data type, cut to capacity - 1 characters:
// numeric types (-6, -5, 2 to 8) normalised and bare; dates and timestamps (9, 11)
// parsed in the user's date format and written as an ODBC date constant (a value that
// is no date is quoted as text, so that the database reports it); every other type
// quoted with '...' around at most 499 characters. Quotes inside are not doubled.
std::u16string formatSqlLiteral(std::u16string_view value, int32_t dataType, size_t capacity);

} // namespace tabra::query
