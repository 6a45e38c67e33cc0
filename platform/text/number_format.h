// Texts of the resource library that carry numbers: "%d" marks where a number goes.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tabra::platform {

// The format with each "%d" replaced by the next of the numbers in decimal ("%%" is
// one "%"); a "%d" beyond the numbers stays as it is.
std::u16string withNumbers(std::u16string_view format, std::initializer_list<int64_t> numbers);

} // namespace tabra::platform
