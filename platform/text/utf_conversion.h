// UTF-16 <-> UTF-8 for file names, file contents and the operating system. Both
// directions are total: a surrogate without its partner and every ill-formed UTF-8
// sequence (maximal subpart, as Unicode recommends) become U+FFFD.
#pragma once

#include <string>
#include <string_view>

namespace tabra::platform {

std::string toUtf8(std::u16string_view text);
std::u16string fromUtf8(std::string_view text);

// True when text is well-formed UTF-8 (no overlong forms, no surrogates, nothing above
// U+10FFFF), so that fromUtf8 replaces nothing.
bool isValidUtf8(std::string_view text);

// True when every surrogate in text has its partner, so that toUtf8 replaces nothing.
bool isWellFormedUtf16(std::u16string_view text);

} // namespace tabra::platform
