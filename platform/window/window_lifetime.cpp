// Window destruction and the end of dialogs.
#include "platform/window/window_lifetime.h"

#include "platform/window/message_dispatch.h"
#include "platform/window/renderer_selection.h"
#include "platform/window/window_registry.h"

#include <algorithm>

namespace tabra::window {
namespace {

void destroyTree(const WindowPtr &window) {
    if (window->destroyed) return;
    if (window->kind == WindowKind::Dialog) sendMessage(window->handle, WM_DESTROY, 0, 0);
    std::vector<HWND> children = window->children;
    for (HWND child : children)
        if (auto control = findWindow(child)) destroyTree(control);
    window->destroyed = true;
    if (auto *dialog = window->as<DialogState>()) dialog->ended = true;
    unregisterWindow(window->handle);
}

// The renderer has let go of the tree: later changes while it is torn down (a dialog
// procedure handling WM_DESTROY) are not reported.
void forgetAnnouncement(Window &window) {
    window.announced = false;
    for (HWND child : window.children)
        if (auto control = findWindow(child)) forgetAnnouncement(*control);
}

} // namespace

bool destroyWindow(HWND handle) {
    WindowPtr window = findWindow(handle);
    if (!window) return false;
    if (window->announced) activeRenderer().windowDestroying(handle);
    forgetAnnouncement(*window);
    destroyTree(window);
    if (auto parent = findWindow(window->parent)) {
        auto &siblings = parent->children;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), handle), siblings.end());
    }
    return true;
}

bool endDialog(HWND handle, INT_PTR result) {
    auto window = findWindow(handle);
    auto *state = window ? window->as<DialogState>() : nullptr;
    if (!state) return false;
    state->result = result;
    state->ended = true;
    if (!state->modal && window->visible) {
        window->visible = false;
        announce(*window, Change::Visible);
    }
    return true;
}

} // namespace tabra::window
