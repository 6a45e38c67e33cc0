// The rows of the wizards' report list views (the field and mapping lists).
#pragma once

#include "tabra_window.h"

#include <cstdint>
#include <string>

namespace tabra::wizards {

// Sets the text of one cell.
void setCellText(HWND list, int32_t row, int32_t column, std::u16string text);
// Selects and focuses the row alone.
void selectOnlyRow(HWND list, int32_t row);

} // namespace tabra::wizards
