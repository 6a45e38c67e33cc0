// Text copies handed over as item data.
#include "rowset/item_data_text.h"

#include <cstdlib>
#include <cstring>

namespace tabra::rowset {

LPARAM itemDataText(const char16_t *text, std::size_t length) {
    // malloc, not new: the copy is released by the host, through the C runtime.
    auto *copy = static_cast<char16_t *>(std::malloc((length + 1) * sizeof(char16_t)));
    if (copy == nullptr) return 0;
    if (length > 0) std::memcpy(copy, text, length * sizeof(char16_t));
    copy[length] = u'\0';
    return reinterpret_cast<LPARAM>(copy);
}

} // namespace tabra::rowset
