// Buttons. What a click does depends on the button type; only the "auto" check boxes
// and radio buttons change their own state, the others leave it to the dialog.
#include "platform/window/button_control.h"

#include "platform/window/message_dispatch.h"
#include "platform/window/window_registry.h"

namespace tabra::window {

uint32_t buttonType(const Window &button) { return button.style & BS_TYPEMASK; }

bool isPushButton(const Window &button) {
    uint32_t type = buttonType(button);
    return type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON;
}

bool isCheckBox(const Window &button) {
    uint32_t type = buttonType(button);
    return type == BS_CHECKBOX || type == BS_AUTOCHECKBOX || type == BS_3STATE || type == BS_AUTO3STATE;
}

bool isRadioButton(const Window &button) {
    uint32_t type = buttonType(button);
    return type == BS_RADIOBUTTON || type == BS_AUTORADIOBUTTON;
}

bool isGroupBox(const Window &button) { return buttonType(button) == BS_GROUPBOX; }

std::vector<HWND> radioGroupOf(const Window &radio) {
    auto parent = findWindow(radio.parent);
    if (!parent) return {radio.handle};
    const auto &siblings = parent->children;
    std::size_t at = 0;
    while (at < siblings.size() && siblings[at] != radio.handle) ++at;
    if (at == siblings.size()) return {radio.handle};
    // The group starts at the nearest control with WS_GROUP at or before the radio
    // button and ends before the next control with WS_GROUP.
    std::size_t first = at;
    while (first > 0) {
        auto control = findWindow(siblings[first]);
        if (control && (control->style & WS_GROUP)) break;
        --first;
    }
    std::vector<HWND> group;
    for (std::size_t i = first; i < siblings.size(); ++i) {
        auto control = findWindow(siblings[i]);
        if (!control) continue;
        if (i > first && (control->style & WS_GROUP)) break;
        if (control->kind == WindowKind::Button && isRadioButton(*control)) group.push_back(siblings[i]);
    }
    return group;
}

void setButtonCheck(Window &button, uint32_t state) {
    auto *button_state = button.as<ButtonState>();
    if (!button_state || button_state->check == state) return;
    button_state->check = state;
    announce(button, Change::Check);
}

void clickButton(Window &button) {
    auto *state = button.as<ButtonState>();
    if (!state || isGroupBox(button)) return;
    switch (buttonType(button)) {
    case BS_AUTOCHECKBOX:
        setButtonCheck(button, state->check == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED);
        break;
    case BS_AUTO3STATE:
        setButtonCheck(button, (state->check + 1) % 3);
        break;
    case BS_AUTORADIOBUTTON:
        for (HWND member : radioGroupOf(button)) {
            if (member == button.handle) continue;
            if (auto other = findWindow(member)) setButtonCheck(*other, BST_UNCHECKED);
        }
        setButtonCheck(button, BST_CHECKED);
        break;
    default:
        break;
    }
    sendCommandToParent(button, BN_CLICKED);
}

bool buttonMessage(Window &button, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result) {
    auto *state = button.as<ButtonState>();
    if (!state) return false;
    switch (message) {
    case BM_GETCHECK:
        result = (isCheckBox(button) || isRadioButton(button)) ? state->check : BST_UNCHECKED;
        return true;
    case BM_SETCHECK:
        if (isCheckBox(button) || isRadioButton(button)) {
            uint32_t wanted = static_cast<uint32_t>(wParam);
            if (wanted > BST_INDETERMINATE) wanted = BST_CHECKED;
            uint32_t type = buttonType(button);
            if (wanted == BST_INDETERMINATE && type != BS_3STATE && type != BS_AUTO3STATE) wanted = BST_CHECKED;
            setButtonCheck(button, wanted);
        }
        result = 0;
        return true;
    case BM_GETSTATE:
        result = state->check;
        return true;
    case BM_SETSTYLE:
        button.style = (button.style & ~0xFFFFu) | (static_cast<uint32_t>(wParam) & 0xFFFFu);
        announce(button, Change::Style);
        result = 0;
        return true;
    case BM_CLICK:
        if (button.enabled) clickButton(button);
        result = 0;
        return true;
    default:
        return false;
    }
}

} // namespace tabra::window
