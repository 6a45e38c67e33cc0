// The keyboard focus and the active window. Each top-level dialog remembers which of
// its descendants has the focus; the active window is the innermost running modal
// dialog. Focus changes send no notifications.
#pragma once

#include "tabra_base.h"

#include <vector>

namespace tabra::window {

// The top-level window a window belongs to (itself when it has no parent).
HWND topLevelOf(HWND window);

// Gives the focus to window; returns the previous focus of its top-level dialog
// (null when none or stale).
HWND setFocus(HWND window);
// The focus of the active dialog, or null.
HWND focusedWindow();

// The running modal dialogs, innermost last.
std::vector<HWND> &modalDialogs();
// The innermost running modal dialog that still exists, or null.
HWND activeDialog();

} // namespace tabra::window
