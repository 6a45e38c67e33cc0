// Case-insensitive comparison of UTF-16 text as Windows does it: each code unit is
// mapped to its upper case, independent of the process locale.
#pragma once

#include <string>
#include <string_view>

namespace tabra::platform {

// The upper case of one UTF-16 code unit (surrogates map to themselves). Uses the
// Unicode tables of the C.UTF-8 locale; without it only ASCII letters are mapped.
char16_t foldCase(char16_t c);

bool equalIgnoringCase(std::u16string_view a, std::u16string_view b);

// The text with every code unit folded: a key for case-insensitive lookups.
std::u16string foldedCopy(std::u16string_view text);

} // namespace tabra::platform
