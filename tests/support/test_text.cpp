#include "support/test_text.h"

namespace tabra::test {

std::string toUtf8(std::u16string_view text) {
    std::string result;
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text[i + 1] - 0xDC00);
            ++i;
        } else if (c >= 0xD800 && c <= 0xDFFF) {
            c = 0xFFFD;
        }
        if (c < 0x80) {
            result += static_cast<char>(c);
        } else if (c < 0x800) {
            result += static_cast<char>(0xC0 | (c >> 6));
            result += static_cast<char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            result += static_cast<char>(0xE0 | (c >> 12));
            result += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            result += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            result += static_cast<char>(0xF0 | (c >> 18));
            result += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
            result += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            result += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return result;
}

std::u16string toUtf16(std::string_view text) {
    std::u16string result;
    size_t i = 0;
    while (i < text.size()) {
        auto byte = static_cast<unsigned char>(text[i]);
        int extra = byte < 0x80 ? 0 : (byte & 0xE0) == 0xC0 ? 1 : (byte & 0xF0) == 0xE0 ? 2 : (byte & 0xF8) == 0xF0 ? 3 : -1;
        char32_t c = extra == 0 ? byte : extra == 1 ? byte & 0x1F : extra == 2 ? byte & 0x0F : byte & 0x07;
        bool valid = extra >= 0 && i + static_cast<size_t>(extra) < text.size() + (extra == 0 ? 1 : 0);
        for (int k = 1; valid && k <= extra; ++k) {
            auto next = static_cast<unsigned char>(text[i + static_cast<size_t>(k)]);
            if ((next & 0xC0) != 0x80) valid = false;
            c = (c << 6) | (next & 0x3F);
        }
        if (!valid) {
            result += u'\uFFFD';
            ++i;
            continue;
        }
        i += static_cast<size_t>(extra) + 1;
        if (c >= 0x10000) {
            c -= 0x10000;
            result += static_cast<char16_t>(0xD800 + (c >> 10));
            result += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
        } else {
            result += static_cast<char16_t>(c);
        }
    }
    return result;
}

} // namespace tabra::test
