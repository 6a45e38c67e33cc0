#include "platform/text/utf_conversion.h"

#include "ostrel_text.h"
#include "platform/text/bounded_text.h"

#include <cstring>

namespace tabra::platform {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// One decoded code point and the number of code units it took.
struct Decoded {
    char32_t codePoint;
    std::size_t length;
    bool wellFormed = true;
};

Decoded decodeUtf16At(std::u16string_view text, std::size_t at) {
    const char16_t c = text[at];
    if (isHighSurrogate(c) && at + 1 < text.size() && isLowSurrogate(text[at + 1]))
        return {0x10000 + ((char32_t(c) - 0xD800) << 10) + (char32_t(text[at + 1]) - 0xDC00), 2};
    if (isHighSurrogate(c) || isLowSurrogate(c))
        return {kReplacement, 1, false};
    return {c, 1};
}

// Decodes the UTF-8 sequence at text[at]. An ill-formed sequence yields U+FFFD for its
// maximal subpart: the longest prefix that could still have begun a valid sequence.
Decoded decodeUtf8At(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(at);
    if (lead < 0x80)
        return {lead, 1};
    std::size_t needed;
    char32_t value;
    unsigned char low = 0x80, high = 0xBF; // allowed range of the second byte
    if (lead >= 0xC2 && lead <= 0xDF) {
        needed = 1;
        value = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        needed = 2;
        value = lead & 0x0F;
        if (lead == 0xE0)
            low = 0xA0; // no overlong forms
        if (lead == 0xED)
            high = 0x9F; // no surrogates
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        needed = 3;
        value = lead & 0x07;
        if (lead == 0xF0)
            low = 0x90; // no overlong forms
        if (lead == 0xF4)
            high = 0x8F; // nothing above U+10FFFF
    } else {
        return {kReplacement, 1, false};
    }
    std::size_t length = 1;
    for (std::size_t i = 0; i < needed; ++i, ++length) {
        if (at + length >= text.size())
            return {kReplacement, length, false};
        const unsigned char next = byte(at + length);
        const unsigned char min = i == 0 ? low : 0x80;
        const unsigned char max = i == 0 ? high : 0xBF;
        if (next < min || next > max)
            return {kReplacement, length, false};
        value = (value << 6) | (next & 0x3F);
    }
    return {value, length};
}

void appendUtf8(std::string &out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

void appendUtf16(std::u16string &out, char32_t cp) {
    if (cp < 0x10000) {
        out += static_cast<char16_t>(cp);
    } else {
        out += static_cast<char16_t>(0xD800 + ((cp - 0x10000) >> 10));
        out += static_cast<char16_t>(0xDC00 + ((cp - 0x10000) & 0x3FF));
    }
}

} // namespace

std::string toUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Decoded d = decodeUtf16At(text, at);
        appendUtf8(out, d.codePoint);
        at += d.length;
    }
    return out;
}

std::u16string fromUtf8(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Decoded d = decodeUtf8At(text, at);
        appendUtf16(out, d.codePoint);
        at += d.length;
    }
    return out;
}

std::size_t decodeUtf8Into(std::string_view text, char16_t *out, std::size_t limit) {
    std::size_t written = 0, at = 0;
    while (written < limit && at < text.size()) {
        const auto lead = static_cast<unsigned char>(text[at]);
        if (lead < 0x80) { // the common case, one unit per byte
            out[written++] = lead;
            ++at;
            continue;
        }
        const Decoded d = decodeUtf8At(text, at);
        at += d.length;
        if (d.codePoint < 0x10000) {
            out[written++] = static_cast<char16_t>(d.codePoint);
        } else {
            out[written++] = static_cast<char16_t>(0xD800 + ((d.codePoint - 0x10000) >> 10));
            if (written < limit) out[written++] = static_cast<char16_t>(0xDC00 + ((d.codePoint - 0x10000) & 0x3FF));
        }
    }
    return written;
}

bool isValidUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Decoded d = decodeUtf8At(text, at);
        if (!d.wellFormed)
            return false;
        at += d.length;
    }
    return true;
}

bool isWellFormedUtf16(std::u16string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Decoded d = decodeUtf16At(text, at);
        if (!d.wellFormed)
            return false;
        at += d.length;
    }
    return true;
}

} // namespace tabra::platform

using namespace tabra::platform;

namespace {

// Length of the longest prefix of utf8 (at most maxBytes) that ends on a whole character.
std::size_t wholeCharacterCut(std::string_view utf8, std::size_t maxBytes) {
    if (utf8.size() <= maxBytes)
        return utf8.size();
    std::size_t n = maxBytes;
    // Step back over continuation bytes to the lead byte of the character that is cut.
    while (n > 0 && (static_cast<unsigned char>(utf8[n]) & 0xC0) == 0x80)
        --n;
    return n;
}

} // namespace

extern "C" {

int32_t Ostrel_Utf16ToUtf8(const char16_t *text, char *output, int32_t capacity) {
    if (!output || capacity < 1)
        return -1;
    const std::string utf8 = toUtf8(viewOf(text));
    const std::size_t length = wholeCharacterCut(utf8, static_cast<std::size_t>(capacity) - 1);
    std::memcpy(output, utf8.data(), length);
    output[length] = '\0';
    return static_cast<int32_t>(length);
}

int32_t Ostrel_Utf8ToUtf16(const char *text, char16_t *output, int32_t capacity) {
    if (!output || capacity < 1)
        return -1;
    return writeBounded(output, capacity, fromUtf8(text ? std::string_view(text) : std::string_view()));
}

} // extern "C"
