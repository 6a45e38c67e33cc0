// The handle table. Handles are numbers that are never reused, so a handle of a
// destroyed window is recognised as stale instead of reaching freed memory. Windows
// are shared: code that calls out to a dialog procedure keeps its window alive while
// the procedure runs, even if the procedure destroys it.
#pragma once

#include "platform/window/window_object.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tabra::window {

using WindowPtr = std::shared_ptr<Window>;

// A fresh handle value, never given out before (shared by windows and menus).
uintptr_t newHandleValue();

// Registers the window under a fresh handle, which is stored in it and returned.
HWND registerWindow(WindowPtr window);
// The window behind a handle, or null for a stale, foreign or null handle.
WindowPtr findWindow(HWND handle);
// Removes the handle from the table (it is stale from then on).
void unregisterWindow(HWND handle);
std::size_t liveWindowCount();

} // namespace tabra::window
