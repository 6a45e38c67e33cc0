// Bounded UTF-16 text: lengths that never run past a buffer and cuts that never
// split a surrogate pair. Every exported text writer of the platform goes through
// writeBounded, so the cutting rule lives in one place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tabra::platform {

inline bool isHighSurrogate(char16_t c) { return c >= 0xD800 && c <= 0xDBFF; }
inline bool isLowSurrogate(char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

// The text of a terminated buffer; a null pointer is the empty text.
inline std::u16string_view viewOf(const char16_t *text) {
    return text ? std::u16string_view(text) : std::u16string_view();
}

// Length of a terminated text, looking at no more than limit characters: limit when
// no terminator lies within them.
std::size_t boundedLength(const char16_t *text, std::size_t limit);

// The text of a buffer of capacity characters: up to its terminator, or when there is
// none, the first capacity - 1 characters (cut as cutLength does).
std::u16string_view viewOfBuffer(const char16_t *text, std::size_t capacity);

// The longest length n <= maxChars such that text[0, n) does not end with the high
// half of a surrogate pair whose low half is text[n].
std::size_t cutLength(std::u16string_view text, std::size_t maxChars);

// The part of text a buffer of capacity characters keeps: at most capacity - 1
// characters, cut by cutLength (nothing for a capacity below 1).
inline std::u16string_view boundedPrefix(std::u16string_view text, std::size_t capacity) {
    return capacity < 1 ? std::u16string_view() : text.substr(0, cutLength(text, capacity - 1));
}

// Copies text into destination, cut to capacity - 1 characters by cutLength, and
// terminates it. Returns the length written, or -1 for a null destination or a
// capacity below 1. The source may overlap the destination.
int32_t writeBounded(char16_t *destination, int32_t capacity, std::u16string_view text);

// Blank text: empty or only characters with codes up to 32.
bool isBlank(std::u16string_view text);

} // namespace tabra::platform
