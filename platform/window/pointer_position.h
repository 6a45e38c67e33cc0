// Where the mouse pointer is, for GetCursorPos. On screen the renderer knows it (in
// screen pixels). Headless there is no screen: the engine keeps a pointer of its own
// that the user's clicks move to the centre of the control clicked, in dialog units
// of its top-level dialog, so that a popup menu asked for at the pointer after a
// right click is asked for over the control that was clicked.
#pragma once

#include "tabra_window.h"

namespace tabra::window {

// The pointer moves to the centre of this control (a click, double or right click).
void movePointerTo(HWND control);
// The renderer's pointer position when it has one, else the engine's.
POINT pointerPosition();

} // namespace tabra::window
