// Destroying windows: a window goes with all its descendants; dialog procedures get
// WM_DESTROY while their windows still exist; the handles are stale afterwards.
#pragma once

#include "tabra_base.h"

namespace tabra::window {

// False when the handle is stale.
bool destroyWindow(HWND window);

// Ends a dialog: a modal one stops its loop with result; a modeless one is hidden.
bool endDialog(HWND dialog, INT_PTR result);

} // namespace tabra::window
