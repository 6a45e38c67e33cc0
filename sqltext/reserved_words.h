// Reserved words: names that a database reads as part of the SQL language when they
// stand bare, so a table or column of that name must be quoted.
#pragma once

#include <string_view>

namespace tabra::sqltext {

// Whether name (any case) is one of ODBC's reserved keywords, the list every ODBC
// application is to quote (ORDER, GROUP, KEY, USER, ...).
bool isOdbcReservedWord(std::u16string_view name);

// Whether name (any case) is one of the words of a comma-separated list (the driver's
// SQL_KEYWORDS answer).
bool isInWordList(std::u16string_view name, std::u16string_view list);

} // namespace tabra::sqltext
