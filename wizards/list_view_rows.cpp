// The rows of the wizards' report list views.
#include "wizards/list_view_rows.h"

#include "ostrel_ui.h"

namespace tabra::wizards {

void setCellText(HWND list, int32_t row, int32_t column, std::u16string text) {
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    SendMessageW(list, LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void selectOnlyRow(HWND list, int32_t row) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    item.state = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

} // namespace tabra::wizards
