// Rules shared by the identifier preparation functions.
#include "sqltext/identifier_rules.h"

#include "ostrel.h"

namespace tabra::sqltext {
namespace {

bool isAsciiLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
bool isAsciiDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

constexpr size_t kPartCapacity = 200; // one dotted part: 199 characters and a terminator

// Removes, in this order, leading spaces, leading quote characters, trailing spaces
// and trailing quote characters (all occurrences at each end).
std::u16string trimSpacesAndQuotes(std::u16string part, char16_t quote) {
    auto dropLeading = [&](char16_t c) {
        size_t n = 0;
        while (n < part.size() && part[n] == c) ++n;
        part.erase(0, n);
    };
    auto dropTrailing = [&](char16_t c) {
        while (!part.empty() && part.back() == c) part.pop_back();
    };
    dropLeading(u' ');
    dropLeading(quote);
    dropTrailing(u' ');
    dropTrailing(quote);
    return part;
}

} // namespace

bool isPlainIdentifier(std::u16string_view name) {
    if (name.empty() || !isAsciiLetter(name[0])) return false;
    for (char16_t c : name.substr(1))
        if (!isAsciiLetter(c) && !isAsciiDigit(c) && c != u'_' && c != u'$') return false;
    return true;
}

bool isAllSpaces(std::u16string_view text) {
    for (char16_t c : text)
        if (c != u' ') return false;
    return true;
}

std::u16string wrapBounded(std::u16string_view part, std::u16string_view quote, size_t capacity) {
    std::u16string wrapped;
    wrapped.reserve(part.size() + 2 * quote.size());
    wrapped.append(quote).append(part).append(quote);
    if (capacity > 0 && wrapped.size() > capacity - 1) wrapped.resize(capacity - 1);
    return wrapped;
}

std::vector<std::u16string> splitDottedParts(std::u16string_view name, size_t maxLength) {
    std::vector<std::u16string> parts;
    size_t start = 0;
    for (;;) {
        size_t dot = name.find(u'.', start);
        std::u16string_view part = name.substr(start, dot == std::u16string_view::npos ? dot : dot - start);
        parts.emplace_back(part.substr(0, maxLength));
        if (dot == std::u16string_view::npos) break;
        start = dot + 1;
    }
    return parts;
}

void writePreparedName(std::u16string_view name, std::u16string_view quote, int32_t size, std::u16string &out,
                       BareNameRules &rules) {
    out.clear();
    if (size < 1) return;
    const auto room = static_cast<size_t>(size - 1); // what a destination of size keeps
    int32_t remaining = size;
    bool first = true;
    for (std::u16string part : splitDottedParts(name, kPartCapacity - 1)) {
        part = trimSpacesAndQuotes(std::move(part), quote[0]);
        if (part != u"*" && !Ostrel_IsBlankString(part.c_str()) && !(isPlainIdentifier(part) && rules.staysBare(part)))
            part = wrapBounded(part, quote, kPartCapacity);
        // The "." is written when 3 characters remain but is not counted; nothing is
        // ever written past the destination's room.
        if (!first && remaining >= 3 && out.size() < room) out += u'.';
        first = false;
        auto length = static_cast<int32_t>(part.size());
        if (remaining > length) {
            out.append(part, 0, room - out.size());
            remaining -= length;
        }
    }
}

} // namespace tabra::sqltext
