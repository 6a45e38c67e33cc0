// Report list views: columns, items with sub-item texts, an item parameter and the
// LVIS_SELECTED / LVIS_FOCUSED states and a state image (with LVS_EX_CHECKBOXES every
// item has one: 1 unchecked, 2 checked); LVS_SINGLESEL keeps one selected item; the
// other extended styles are kept for the renderer. State changes notify
// LVN_ITEMCHANGED.
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tabra::window {

struct Window;

struct ListViewColumn {
    std::u16string title;
    int32_t width = 100; // pixels
    int32_t format = 0;  // LVCFMT_* alignment
};

struct ListViewItem {
    std::vector<std::u16string> texts; // [0] the item, [n] sub-item n
    LPARAM param = 0;
    uint32_t state = 0;                // LVIS_* bits
};

struct ListViewState {
    std::vector<ListViewColumn> columns;
    std::vector<ListViewItem> items;
    uint32_t extendedStyle = 0;        // LVS_EX_*
};

bool isSingleSelectionListView(const Window &listView);

// Changes item states (mask bits only) and notifies LVN_ITEMCHANGED for every item
// whose state changed; item -1 means every item. Selecting in a single-selection view
// deselects the others; giving the focus takes it from the others.
void setListViewItemState(Window &listView, int32_t item, uint32_t state, uint32_t mask);

// Handles the LVM_* messages.
bool listViewMessage(Window &listView, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result);

} // namespace tabra::window
