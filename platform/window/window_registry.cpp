// The handle table: a map from never-reused handle numbers to shared windows.
#include "platform/window/window_registry.h"

#include <unordered_map>

namespace tabra::window {
namespace {

// Handles start well above small integers so that ids, indices and booleans passed by
// mistake are never taken for windows.
uintptr_t nextHandle = 0x10000;

std::unordered_map<uintptr_t, WindowPtr> &table() {
    static auto *windows = new std::unordered_map<uintptr_t, WindowPtr>; // outlives static destructors
    return *windows;
}

} // namespace

uintptr_t newHandleValue() { return ++nextHandle; }

HWND registerWindow(WindowPtr window) {
    uintptr_t value = newHandleValue();
    HWND handle = reinterpret_cast<HWND>(value);
    window->handle = handle;
    table()[value] = std::move(window);
    return handle;
}

WindowPtr findWindow(HWND handle) {
    auto &windows = table();
    auto it = windows.find(reinterpret_cast<uintptr_t>(handle));
    return it == windows.end() ? nullptr : it->second;
}

void unregisterWindow(HWND handle) { table().erase(reinterpret_cast<uintptr_t>(handle)); }

std::size_t liveWindowCount() { return table().size(); }

} // namespace tabra::window
