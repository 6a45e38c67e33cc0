// Ostrel_ReadToken: the bounded reader of separated lists.
#include "ostrel_text.h"
#include "platform/text/bounded_text.h"

using namespace tabra::platform;

extern "C" int32_t Ostrel_ReadToken(const char16_t *list, int32_t *position, char16_t separator, char16_t *token,
                                    int32_t capacity) {
    if (!list || !position || *position < 0 || !token || capacity < 1)
        return 0;
    const std::u16string_view text(list);
    const auto start = static_cast<std::size_t>(*position);
    if (start >= text.size()) {
        token[0] = u'\0';
        return 0;
    }
    std::size_t end = separator == u'\0' ? std::u16string_view::npos : text.find(separator, start);
    if (end == std::u16string_view::npos)
        end = text.size();
    writeBounded(token, capacity, text.substr(start, end - start));
    // Past the separator, or at the end; a separator that ends the list therefore
    // leaves the position at the end and yields no further (empty) token.
    *position = static_cast<int32_t>(end < text.size() ? end + 1 : end);
    return 1;
}
