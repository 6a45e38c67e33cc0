// Item data that carries a text: a heap copy handed to a box or list view, which owns
// it from then on (the host releases it with free()).
#pragma once

#include "tabra_base.h"

#include <cstddef>

namespace tabra::rowset {

// A malloc'ed, terminated copy of length characters of text, as item data; 0 when no
// memory could be had.
LPARAM itemDataText(const char16_t *text, std::size_t length);

} // namespace tabra::rowset
