#include "platform/text/bounded_text.h"

#include <algorithm>
#include <cstring>

namespace tabra::platform {

std::size_t boundedLength(const char16_t *text, std::size_t limit) {
    if (!text)
        return 0;
    std::size_t n = 0;
    while (n < limit && text[n] != u'\0')
        ++n;
    return n;
}

std::u16string_view viewOfBuffer(const char16_t *text, std::size_t capacity) {
    if (!text || capacity == 0)
        return {};
    const std::size_t length = boundedLength(text, capacity);
    if (length < capacity)
        return {text, length};
    // No terminator: the buffer holds capacity characters, of which a terminated copy
    // could keep capacity - 1.
    const std::u16string_view whole(text, capacity);
    return whole.substr(0, cutLength(whole, capacity - 1));
}

std::size_t cutLength(std::u16string_view text, std::size_t maxChars) {
    if (text.size() <= maxChars)
        return text.size();
    std::size_t n = maxChars;
    if (n > 0 && isHighSurrogate(text[n - 1]) && isLowSurrogate(text[n]))
        --n;
    return n;
}

int32_t writeBounded(char16_t *destination, int32_t capacity, std::u16string_view text) {
    if (!destination || capacity < 1)
        return -1;
    const std::size_t length = cutLength(text, static_cast<std::size_t>(capacity) - 1);
    // memmove: callers may hand in a view of the destination itself.
    if (length > 0)
        std::memmove(destination, text.data(), length * sizeof(char16_t));
    destination[length] = u'\0';
    return static_cast<int32_t>(length);
}

bool isBlank(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t c) { return c <= 32; });
}

} // namespace tabra::platform
