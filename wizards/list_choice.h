// What the wizards' list pages do when the user goes on without choosing an entry.
#pragma once

#include "tabra_window.h"

namespace tabra::wizards {

// True when the list box has a selection. Otherwise shows message 1625 and puts the
// focus on the list, and the page keeps the user.
bool listHasChoice(HWND list);

} // namespace tabra::wizards
