// The keyboard focus and the active window. Each top-level dialog remembers which of
// its descendants has the focus; the active window is the innermost running modal
// dialog. A focus change tells both controls' dialogs, as Win32 controls do
// (EN_KILLFOCUS / EN_SETFOCUS and their kin, NM_KILLFOCUS / NM_SETFOCUS).
#pragma once

#include "tabra_base.h"

#include "platform/window/window_object.h"

#include <vector>

namespace tabra::window {

// The top-level window a window belongs to (itself when it has no parent).
HWND topLevelOf(HWND window);

// Gives the focus to window; returns the previous focus of its top-level dialog
// (null when none or stale).
HWND setFocus(HWND window);
// The focus of the active dialog, or null.
HWND focusedWindow();

// A control the Tab key stops at by itself: enabled, visible, WS_TABSTOP, and one that
// can take the focus (no static text, picture or group box).
bool isTabStop(const Window &control);
// Where Tab (or Shift+Tab when backward) moves the focus from `from` in a top-level
// dialog: the next tab stop in template order (pages of tab controls included, hidden
// or disabled ones left out), wrapping round; a radio group is one stop, entered at its
// checked button. `from` itself when there is no other stop, null when there is none.
HWND nextTabStop(HWND dialog, HWND from, bool backward);

// The running modal dialogs, innermost last.
std::vector<HWND> &modalDialogs();
// The innermost running modal dialog that still exists, or null.
HWND activeDialog();

} // namespace tabra::window
