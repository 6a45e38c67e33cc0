// The words that drop a view on the connected database.
#pragma once

#include "tabra_base.h"

#include <string>

namespace tabra::query::designer {

// "DROP VIEW", or the database type's own words where it has others. Every database
// type the library tells apart drops a view with "DROP VIEW" today.
std::u16string dropViewWord(SQLHDBC connection);

} // namespace tabra::query::designer
