// Reading caller buffers and fixed-capacity fields into work strings.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tabra::query {

// The text of a caller's buffer, up to its terminator but never beyond capacity - 1
// characters; empty for a null buffer or a capacity below 1.
inline std::u16string readBounded(const char16_t *buffer, int32_t capacity) {
    if (buffer == nullptr || capacity < 1) return {};
    size_t length = 0;
    while (length < static_cast<size_t>(capacity - 1) && buffer[length] != u'\0') ++length;
    return std::u16string(buffer, length);
}

// The first `limit` characters of text (a field of fixed capacity).
inline std::u16string leading(std::u16string_view text, size_t limit) {
    return std::u16string(text.substr(0, limit));
}

} // namespace tabra::query
