// UTF-8 <-> UTF-16 for test code: building statements and messages, printing values.
// Kept apart from the library's own conversions so tests never check the library
// with itself.
#pragma once

#include <string>
#include <string_view>

namespace tabra::test {

std::string toUtf8(std::u16string_view text);
std::u16string toUtf16(std::string_view text);

} // namespace tabra::test
