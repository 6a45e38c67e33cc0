// The entries of a list box or combo box with their item data, for comparing a box's
// contents in one assertion. (Header only.)
#pragma once

#include "ostrel_ui.h"

#include <string>
#include <utility>
#include <vector>

namespace tabra::test {

using BoxEntries = std::vector<std::pair<std::u16string, LPARAM>>;

inline BoxEntries boxEntries(HWND box) {
    BoxEntries entries;
    for (int32_t i = 0; i < Ostrel_GetBoxCount(box); ++i) {
        char16_t text[300] = {};
        Ostrel_GetBoxEntry(box, i, text, 300);
        entries.emplace_back(text, Ostrel_GetItemData(box, i));
    }
    return entries;
}

} // namespace tabra::test
