// Numbers read from fetched text the way the library always has: leading blanks are
// skipped and reading stops at the first character that does not belong to the number;
// text that holds no number reads as 0.
#pragma once

#include <cstdint>

namespace tabra::catalog {

int32_t readLong(const char16_t *text);
double readDouble(const char16_t *text);

} // namespace tabra::catalog
