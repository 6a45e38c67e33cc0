// List boxes with single or multiple selection (LBS_MULTIPLESEL, LBS_EXTENDEDSEL),
// optionally sorted (LBS_SORT), with item data per entry.
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tabra::window {

struct Window;

struct ListEntry {
    std::u16string text;
    LPARAM data = 0;
    bool selected = false; // used by multiple-selection lists
};

struct ListBoxState {
    std::vector<ListEntry> entries;
    int32_t current = -1; // single selection: the selected entry; multiple: the caret
    int32_t top = 0;      // first visible entry (LB_SETTOPINDEX)
};

bool isMultipleSelectionList(const Window &list);

// Index of the first entry at or after start whose text equals (exact) or begins with
// (prefix) text, ignoring case as Win32 does; searching wraps once around; -1 if none.
int32_t findListEntry(const std::vector<ListEntry> &entries, std::u16string_view text, int32_t start, bool exact);
// Index at which a sorted list inserts text (after equal texts).
int32_t sortedPosition(const std::vector<ListEntry> &entries, std::u16string_view text);

// The indices of the selected entries in order (single selection: at most one).
std::vector<int32_t> selectedListEntries(const Window &list);
// Sets the selection to exactly these indices (single selection: at most one) and
// tells the renderer. No notification to the dialog.
void setListSelection(Window &list, const std::vector<int32_t> &indices);

// Handles the LB_* messages.
bool listBoxMessage(Window &list, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result);

} // namespace tabra::window
