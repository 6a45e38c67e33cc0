#include "platform/text/line_encoding.h"

#include "ostrel_text.h"
#include "platform/text/bounded_text.h"

#include <optional>

namespace tabra::platform {
namespace {

constexpr char16_t kHexDigits[] = u"0123456789ABCDEF";

void appendHex(std::u16string &out, char16_t prefix, unsigned value, int digits) {
    out += u'\\';
    out += prefix;
    for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4)
        out += kHexDigits[(value >> shift) & 0xF];
}

std::optional<unsigned> hexValue(char16_t c) {
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    if (c >= u'A' && c <= u'F')
        return c - u'A' + 10;
    if (c >= u'a' && c <= u'f')
        return c - u'a' + 10;
    return std::nullopt;
}

// The value of `digits` hex digits at text[at], or nothing when they are not all there.
std::optional<unsigned> readHex(std::u16string_view text, std::size_t at, std::size_t digits) {
    if (text.size() - at < digits)
        return std::nullopt;
    unsigned value = 0;
    for (std::size_t i = 0; i < digits; ++i) {
        const auto digit = hexValue(text[at + i]);
        if (!digit)
            return std::nullopt;
        value = value * 16 + *digit;
    }
    return value;
}

bool isControl(char16_t c) { return c < 0x20 || (c >= 0x7F && c <= 0x9F); }
bool isLineSeparator(char16_t c) { return c == 0x2028 || c == 0x2029; }

} // namespace

std::u16string encodeOnOneLine(std::u16string_view text, LineEncoding form) {
    std::u16string out;
    out.reserve(text.size() + text.size() / 8);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (c == u'\\') {
            out += u"\\\\";
        } else if (c == u'\t') {
            out += u"\\t";
        } else if (c == u'\n') {
            out += u"\\n";
        } else if (c == u'\r') {
            out += u"\\r";
        } else if (form == LineEncoding::QuoteSafe && c == u'"') {
            out += u"\\q";
        } else if (form == LineEncoding::QuoteSafe && c == u'\'') {
            out += u"\\Q";
        } else if (isControl(c)) {
            appendHex(out, u'x', c, 2);
        } else if (isHighSurrogate(c) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            if (form == LineEncoding::General) {
                // Both halves escaped: the general form stays within the Basic
                // Multilingual Plane, which an ANSI driver behind the driver manager
                // (SQLite's) passes, while it mangles a pair into a broken statement.
                appendHex(out, u'u', c, 4);
                appendHex(out, u'u', text[++i], 4);
            } else {
                out += c;
                out += text[++i];
            }
        } else if (isLineSeparator(c) || isHighSurrogate(c) || isLowSurrogate(c)) {
            appendHex(out, u'u', c, 4);
        } else {
            out += c;
        }
    }
    return out;
}

std::u16string decodeFromOneLine(std::u16string_view encoded) {
    std::u16string out;
    out.reserve(encoded.size());
    std::size_t i = 0;
    while (i < encoded.size()) {
        const char16_t c = encoded[i];
        if (c != u'\\' || i + 1 == encoded.size()) {
            out += c;
            ++i;
            continue;
        }
        const char16_t kind = encoded[i + 1];
        std::optional<char16_t> decoded;
        std::size_t length = 2;
        switch (kind) {
        case u'\\': decoded = u'\\'; break;
        case u't': decoded = u'\t'; break;
        case u'n': decoded = u'\n'; break;
        case u'r': decoded = u'\r'; break;
        case u'q': decoded = u'"'; break;
        case u'Q': decoded = u'\''; break;
        case u'x':
        case u'u': {
            const std::size_t digits = kind == u'x' ? 2 : 4;
            const auto value = readHex(encoded, i + 2, digits);
            // A zero would end the text; no encoder writes it.
            if (value && *value != 0) {
                decoded = static_cast<char16_t>(*value);
                length = 2 + digits;
            }
            break;
        }
        default: break;
        }
        if (decoded) {
            out += *decoded;
            i += length;
        } else {
            out += c; // a backslash that starts no escape stands for itself
            ++i;
        }
    }
    return out;
}

} // namespace tabra::platform

using namespace tabra::platform;

extern "C" {

int32_t Ostrel_EncodeString(const char16_t *text, char16_t *output, int32_t capacity, int32_t mode) {
    if (!output || capacity < 1)
        return -1;
    const std::u16string encoded =
        encodeOnOneLine(viewOf(text), mode == OSTREL_ENCODE_QUOTE_SAFE ? LineEncoding::QuoteSafe : LineEncoding::General);
    if (encoded.size() >= static_cast<std::size_t>(capacity)) {
        output[0] = u'\0';
        return -1;
    }
    return writeBounded(output, capacity, encoded);
}

int32_t Ostrel_DecodeString(char16_t *text) {
    if (!text)
        return -1;
    const std::u16string decoded = decodeFromOneLine(text);
    // Decoding never lengthens a text, so it always fits where the encoding was.
    return writeBounded(text, static_cast<int32_t>(decoded.size() + 1), decoded);
}

} // extern "C"
