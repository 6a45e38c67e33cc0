// Focus and the active window.
#include "platform/window/focus.h"

#include "platform/window/message_dispatch.h"
#include "platform/window/window_registry.h"

namespace tabra::window {

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
    state->focus = handle;
    if (previous != handle) announce(*window, Change::Focus);
    return previous;
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
