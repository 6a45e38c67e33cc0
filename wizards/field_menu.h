// The right-click menu of a wizard's field list: opened at the pointer, "edit" offered
// only for exactly one selected row.
#pragma once

#include "tabra_window.h"

#include <cstddef>
#include <cstdint>

namespace tabra::wizards {

// Shows the first popup of menu menuId at the pointer, its editCommand greyed unless
// selectedCount is 1; answers the command chosen, 0 when none (or the menu is missing).
int32_t trackFieldMenu(HWND page, int32_t menuId, int32_t editCommand, std::size_t selectedCount);

} // namespace tabra::wizards
