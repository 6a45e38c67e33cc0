// Focus and the active window.
#include "platform/window/focus.h"

#include "platform/window/message_dispatch.h"
#include "platform/window/user_input.h"
#include "platform/window/window_registry.h"

#include <algorithm>

namespace tabra::window {
namespace {

// What a control tells its dialog when it gets or loses the focus.
void notifyFocus(HWND handle, bool gained) {
    auto control = findWindow(handle);
    if (!control || !control->parent) return;
    switch (control->kind) {
    case WindowKind::Edit: sendCommandToParent(*control, gained ? EN_SETFOCUS : EN_KILLFOCUS); break;
    case WindowKind::ListBox: sendCommandToParent(*control, gained ? LBN_SETFOCUS : LBN_KILLFOCUS); break;
    case WindowKind::ComboBox: sendCommandToParent(*control, gained ? CBN_SETFOCUS : CBN_KILLFOCUS); break;
    case WindowKind::Button:
        if (control->style & BS_NOTIFY) sendCommandToParent(*control, gained ? BN_SETFOCUS : BN_KILLFOCUS);
        break;
    case WindowKind::ListView:
    case WindowKind::TabControl: {
        NMHDR header{};
        header.code = static_cast<uint32_t>(gained ? NM_SETFOCUS : NM_KILLFOCUS);
        sendNotifyToParent(*control, header);
        break;
    }
    default: break;
    }
}

} // namespace

HWND topLevelOf(HWND handle) {
    auto window = findWindow(handle);
    while (window && window->parent) {
        auto parent = findWindow(window->parent);
        if (!parent) break;
        window = parent;
    }
    return window ? window->handle : nullptr;
}

HWND setFocus(HWND handle) {
    auto window = findWindow(handle);
    if (!window) return nullptr;
    auto root = findWindow(topLevelOf(handle));
    auto *state = root ? root->as<DialogState>() : nullptr;
    if (!state) return nullptr;
    HWND previous = findWindow(state->focus) ? state->focus : nullptr;
    if (previous == handle) return previous;
    // The control losing the focus hears it first; a dialog that moves the focus
    // elsewhere while it handles that (back to a field it found wrong) has the last word.
    notifyFocus(previous, false);
    if (!findWindow(handle) || !findWindow(root->handle)) return previous;
    if (state->focus != previous && findWindow(state->focus)) return previous;
    state->focus = handle;
    announce(*window, Change::Focus);
    notifyFocus(handle, true);
    return previous;
}

bool isTabStop(const Window &control) {
    if (!control.visible || !control.enabled || !(control.style & WS_TABSTOP)) return false;
    if (control.kind == WindowKind::Static || control.kind == WindowKind::Picture) return false;
    return !(control.kind == WindowKind::Button && isGroupBox(control));
}

namespace {

// The controls of a dialog in template order, each followed by the controls of the
// pages it holds (a tab control's pages), then pages placed in the dialog itself.
void controlsInOrder(const Window &container, std::vector<HWND> &order) {
    for (HWND child : container.children) {
        auto window = findWindow(child);
        if (!window) continue;
        if (window->kind != WindowKind::Dialog) order.push_back(child);
        controlsInOrder(*window, order);
    }
}

bool reachable(const Window &control) { return !input::unreachable(control.handle); }

// The checked, reachable button of a radio group, or null.
HWND checkedRadio(const std::vector<HWND> &group) {
    for (HWND member : group) {
        auto radio = findWindow(member);
        const auto *state = radio ? radio->as<ButtonState>() : nullptr;
        if (state && state->check == BST_CHECKED && reachable(*radio)) return member;
    }
    return nullptr;
}

} // namespace

HWND nextTabStop(HWND dialog, HWND from, bool backward) {
    auto root = findWindow(dialog);
    if (!root) return nullptr;
    std::vector<HWND> order;
    controlsInOrder(*root, order);
    const std::size_t count = order.size();
    std::size_t at = backward ? 0 : count - 1; // from nowhere: the first (last) stop comes first
    for (std::size_t i = 0; i < count; ++i)
        if (order[i] == from) at = i;
    std::vector<HWND> fromGroup;
    if (auto current = findWindow(from); current && current->kind == WindowKind::Button && isRadioButton(*current))
        fromGroup = radioGroupOf(*current);
    HWND only = nullptr; // the stop when `from` is the only one
    for (std::size_t step = 1; step <= count; ++step) {
        std::size_t i = backward ? (at + count - step % count) % count : (at + step) % count;
        auto candidate = findWindow(order[i]);
        if (!candidate || !isTabStop(*candidate) || !reachable(*candidate)) continue;
        HWND stop = order[i];
        if (candidate->kind == WindowKind::Button && isRadioButton(*candidate)) {
            auto group = radioGroupOf(*candidate);
            if (HWND checked = checkedRadio(group)) stop = checked;
            if (std::find(fromGroup.begin(), fromGroup.end(), stop) != fromGroup.end()) {
                only = stop;
                continue;
            }
        }
        if (stop == from) {
            only = stop;
            continue;
        }
        return stop;
    }
    return only;
}

HWND focusedWindow() {
    auto active = findWindow(activeDialog());
    if (!active) return nullptr;
    HWND focus = active->as<DialogState>()->focus;
    return findWindow(focus) ? focus : nullptr;
}

std::vector<HWND> &modalDialogs() {
    static auto *dialogs = new std::vector<HWND>;
    return *dialogs;
}

HWND activeDialog() {
    const auto &dialogs = modalDialogs();
    for (auto it = dialogs.rbegin(); it != dialogs.rend(); ++it)
        if (findWindow(*it)) return *it;
    return nullptr;
}

} // namespace tabra::window
