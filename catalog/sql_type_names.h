// The names of ODBC SQL data types, as a user reads them in a column's description:
// the ODBC name without its "SQL_" prefix ("VARCHAR", "WVARCHAR", "TIMESTAMP").
#pragma once

#include <cstdint>
#include <string>

namespace tabra::catalog {

// The name of the type, both ODBC 2 and ODBC 3 codes; a code ODBC does not define is
// written as its number.
std::u16string sqlTypeName(int32_t sqlType);

} // namespace tabra::catalog
