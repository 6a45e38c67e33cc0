// UTF-16 <-> UTF-8 for file names, file contents and the operating system. Both
// directions are total: a surrogate without its partner and every ill-formed UTF-8
// sequence (maximal subpart, as Unicode recommends) become U+FFFD.
#pragma once

#include <string>
#include <string_view>

namespace tabra::platform {

std::string toUtf8(std::u16string_view text);
std::u16string fromUtf8(std::string_view text);

// Decodes text into out, at most limit code units, and answers how many were written:
// the same units fromUtf8 gives, cut after the limit-th even when that splits a
// surrogate pair (the high surrogate is kept), which is how ODBC drivers cut wide text
// to a buffer. Nothing is allocated.
std::size_t decodeUtf8Into(std::string_view text, char16_t *out, std::size_t limit);

// True when text is well-formed UTF-8 (no overlong forms, no surrogates, nothing above
// U+10FFFF), so that fromUtf8 replaces nothing.
bool isValidUtf8(std::string_view text);

// True when every surrogate in text has its partner, so that toUtf8 replaces nothing.
bool isWellFormedUtf16(std::u16string_view text);

} // namespace tabra::platform
