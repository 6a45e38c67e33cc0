// Combo boxes: a drop-down list (CBS_DROPDOWNLIST: the text is the selected entry's)
// or an editable combo (CBS_DROPDOWN, CBS_SIMPLE: the text is the user's, in
// Window::text), optionally sorted (CBS_SORT), with item data per entry.
#pragma once

#include "platform/window/list_box_control.h"
#include "tabra_base.h"

#include <cstdint>
#include <vector>

namespace tabra::window {

struct Window;

struct ComboBoxState {
    std::vector<ListEntry> entries; // ListEntry::selected is not used
    int32_t current = -1;
    int32_t limit = 32767;          // edit text limit (CB_LIMITTEXT)
    int32_t selectionStart = 0;     // edit selection
    int32_t selectionEnd = 0;
};

bool isDropDownList(const Window &combo);

// Selects entry index (-1: none) and sets the text to it; tells the renderer, no
// notification to the dialog.
void setComboSelection(Window &combo, int32_t index);

// Handles WM_SETTEXT, WM_CHAR (editable combos) and the CB_* messages.
bool comboBoxMessage(Window &combo, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result);

} // namespace tabra::window
