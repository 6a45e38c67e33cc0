// Loading a string of the resource library through the translation layer: the one
// way every part of the library gets its texts.
#pragma once

#include "tabra_base.h"

#include <cstdint>

namespace tabra::module {

// Loads string stringId of module (the resource library) into buffer (size
// characters) and lets the translation layer replace it for "TABRADLL". Returns the
// length of the resulting text; 0 for a null buffer, a size below 1, or a string
// that is missing or empty.
int32_t LoadTranslatedString(HMODULE module, int32_t stringId, char16_t *buffer, int32_t size);

} // namespace tabra::module
