// List boxes with single or multiple selection (LBS_MULTIPLESEL, LBS_EXTENDEDSEL),
// optionally sorted (LBS_SORT), with item data per entry.
#pragma once

#include "platform/window/box_entries.h"
#include "tabra_base.h"

#include <cstdint>
#include <vector>

namespace tabra::window {

struct Window;

struct ListBoxState {
    std::vector<ListEntry> entries;
    int32_t current = -1; // single selection: the selected entry; multiple: the caret
    int32_t top = 0;      // first visible entry (LB_SETTOPINDEX)
};

bool isMultipleSelectionList(const Window &list);

// The indices of the selected entries in order (single selection: at most one).
std::vector<int32_t> selectedListEntries(const Window &list);
// Sets the selection to exactly these indices (single selection: at most one) and
// tells the renderer. No notification to the dialog.
void setListSelection(Window &list, const std::vector<int32_t> &indices);

// Handles the LB_* messages.
bool listBoxMessage(Window &list, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result);

} // namespace tabra::window
