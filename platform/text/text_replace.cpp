// Ostrel_Replace: replaces every occurrence of one text by another within a buffer.
#include "ostrel_text.h"
#include "platform/text/bounded_text.h"
#include "platform/text/case_folding.h"

#include <string>

using namespace tabra::platform;

namespace {

bool matchesAt(std::u16string_view text, std::size_t at, std::u16string_view find, bool ignoreCase) {
    if (text.size() - at < find.size())
        return false;
    const std::u16string_view candidate = text.substr(at, find.size());
    return ignoreCase ? equalIgnoringCase(candidate, find) : candidate == find;
}

} // namespace

extern "C" int32_t Ostrel_Replace(char16_t *text, int32_t capacity, const char16_t *find, const char16_t *replace,
                                  int32_t flags) {
    if (!text || capacity < 1 || !find || find[0] == u'\0')
        return -1;
    const bool ignoreCase = (flags & OSTREL_REPLACE_IGNORE_CASE) != 0;
    const std::u16string_view source = viewOfBuffer(text, static_cast<std::size_t>(capacity));
    const std::u16string_view findText(find);
    const std::u16string_view replaceText = viewOf(replace);

    // Built aside so that the scan never sees replaced text.
    std::u16string result;
    result.reserve(source.size());
    int32_t count = 0;
    std::size_t at = 0;
    while (at < source.size()) {
        if (matchesAt(source, at, findText, ignoreCase)) {
            result += replaceText;
            at += findText.size();
            ++count;
        } else {
            result += source[at++];
        }
    }
    writeBounded(text, capacity, result);
    return count;
}
