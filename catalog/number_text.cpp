// Decimal numbers from wide text.
#include "catalog/number_text.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <string>

namespace tabra::catalog {

namespace {

// The ASCII form of the number at the start of text (after blanks): sign, digits,
// point, exponent; anything else ends it.
std::string numberPrefix(const char16_t *text, bool fraction) {
    std::string ascii;
    if (text == nullptr) return ascii;
    const char16_t *p = text;
    while (*p == u' ' || (*p >= u'\t' && *p <= u'\r')) ++p;
    if (*p == u'+' || *p == u'-') ascii += static_cast<char>(*p++);
    for (; *p != u'\0'; ++p) {
        char16_t c = *p;
        bool digit = c >= u'0' && c <= u'9';
        bool part = fraction && (c == u'.' || c == u'e' || c == u'E' ||
                                 ((c == u'+' || c == u'-') && !ascii.empty() &&
                                  (ascii.back() == 'e' || ascii.back() == 'E')));
        if (!digit && !part) break;
        ascii += static_cast<char>(c);
    }
    return ascii;
}

} // namespace

int32_t readLong(const char16_t *text) {
    std::string ascii = numberPrefix(text, false);
    bool negative = !ascii.empty() && ascii.front() == '-';
    size_t start = (!ascii.empty() && (ascii.front() == '-' || ascii.front() == '+')) ? 1 : 0;
    int64_t value = 0;
    for (size_t i = start; i < ascii.size(); ++i) {
        value = value * 10 + (ascii[i] - '0');
        if (value > std::numeric_limits<int32_t>::max()) return negative ? std::numeric_limits<int32_t>::min()
                                                                         : std::numeric_limits<int32_t>::max();
    }
    return static_cast<int32_t>(negative ? -value : value);
}

double readDouble(const char16_t *text) {
    std::string ascii = numberPrefix(text, true);
    const char *begin = ascii.c_str();
    if (*begin == '+') ++begin;
    double value = 0.0;
    auto [end, error] = std::from_chars(begin, ascii.c_str() + ascii.size(), value);
    (void)end;
    return error == std::errc() ? value : 0.0;
}

} // namespace tabra::catalog
