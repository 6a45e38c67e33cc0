// The field lists' right-click menu.
#include "wizards/field_menu.h"

#include "core/module/module_state.h"

namespace tabra::wizards {

int32_t trackFieldMenu(HWND page, int32_t menuId, int32_t editCommand, std::size_t selectedCount) {
    HMENU menu = LoadMenuW(module::resourceLibrary(), menuId);
    if (menu == nullptr) return 0;
    HMENU commands = GetSubMenu(menu, 0);
    EnableMenuItem(commands, static_cast<uint32_t>(editCommand),
                   MF_BYCOMMAND | (selectedCount == 1 ? MF_ENABLED : MF_GRAYED));
    POINT at{};
    GetCursorPos(&at);
    int32_t chosen = TrackPopupMenu(commands, TPM_RIGHTBUTTON | TPM_RETURNCMD, at.x, at.y, 0, page, nullptr);
    DestroyMenu(menu);
    return chosen;
}

} // namespace tabra::wizards
