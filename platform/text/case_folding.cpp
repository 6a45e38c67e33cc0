#include "platform/text/case_folding.h"

#include "platform/text/bounded_text.h"

#include <algorithm>
#include <locale.h>
#include <wctype.h>

namespace tabra::platform {
namespace {

// The case tables must not depend on the user's locale (a registry written under one
// locale has to read back under another), so they come from C.UTF-8, opened once and
// kept for the life of the process.
locale_t unicodeCaseLocale() {
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr));
    return locale;
}

} // namespace

char16_t foldCase(char16_t c) {
    if (c < 0x80)
        return (c >= u'a' && c <= u'z') ? static_cast<char16_t>(c - 0x20) : c;
    if (isHighSurrogate(c) || isLowSurrogate(c))
        return c;
    const locale_t locale = unicodeCaseLocale();
    if (!locale)
        return c;
    const wint_t upper = towupper_l(static_cast<wint_t>(c), locale);
    // A mapping that leaves the basic plane cannot be one code unit: keep the original.
    return upper <= 0xFFFF ? static_cast<char16_t>(upper) : c;
}

bool equalIgnoringCase(std::u16string_view a, std::u16string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char16_t x, char16_t y) { return foldCase(x) == foldCase(y); });
}

std::u16string foldedCopy(std::u16string_view text) {
    std::u16string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), foldCase);
    return folded;
}

} // namespace tabra::platform
