// Buttons: push and default push buttons, check boxes (two- and three-state, auto or
// not), radio buttons (auto or not) and group boxes; the BS_* type in the style says
// which. A radio group runs from a control with WS_GROUP up to the next one.
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <vector>

namespace tabra::window {

struct Window;

struct ButtonState {
    uint32_t check = 0; // BST_UNCHECKED, BST_CHECKED, BST_INDETERMINATE
};

uint32_t buttonType(const Window &button);
bool isPushButton(const Window &button);
bool isCheckBox(const Window &button);
bool isRadioButton(const Window &button);
bool isGroupBox(const Window &button);

// The radio buttons of the group the radio button belongs to, itself included, in
// creation order.
std::vector<HWND> radioGroupOf(const Window &radio);

// Sets the check state and tells the renderer; no notification to the dialog.
void setButtonCheck(Window &button, uint32_t state);

// What a click does: auto check boxes toggle, auto radio buttons check themselves and
// uncheck their group, then BN_CLICKED goes to the parent. Group boxes ignore clicks.
void clickButton(Window &button);

// Handles BM_GETCHECK, BM_SETCHECK, BM_GETSTATE, BM_SETSTYLE and BM_CLICK.
bool buttonMessage(Window &button, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result);

} // namespace tabra::window
