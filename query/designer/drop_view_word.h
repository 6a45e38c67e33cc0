// The words that drop a view on the connected database.
#pragma once

#include "tabra_base.h"

#include <string>

namespace tabra::query::designer {

// The capability table's drop-view word of the connection's database ("DROP VIEW" on
// every database the library tells apart today).
std::u16string dropViewWord(SQLHDBC connection);

} // namespace tabra::query::designer
