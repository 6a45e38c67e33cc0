// The exported menu calls.
#include "tabra_window.h"

#include "platform/window/focus.h"
#include "platform/window/menu_model.h"
#include "platform/window/message_dispatch.h"
#include "platform/window/renderer_selection.h"

using namespace tabra::window;

namespace {

constexpr uint32_t kMissing = 0xFFFFFFFFu;

uint32_t changeState(HMENU menu, uint32_t item, uint32_t flags, uint32_t bits) {
    MenuItem *found = findMenuItem(menu, item, flags);
    if (!found) return kMissing;
    uint32_t previous = found->state & bits;
    found->state = (found->state & ~bits) | (flags & bits);
    return previous;
}

} // namespace

extern "C" {

HMENU LoadMenuW(HMODULE module, int32_t menuId) { return loadMenu(module, menuId); }

HMENU GetSubMenu(HMENU handle, int32_t position) {
    auto menu = findMenu(handle);
    if (!menu || position < 0 || position >= static_cast<int32_t>(menu->items.size())) return nullptr;
    return menu->items[static_cast<std::size_t>(position)].popup;
}

int32_t DestroyMenu(HMENU menu) { return destroyMenu(menu) ? 1 : 0; }

int32_t GetMenuItemCount(HMENU handle) {
    auto menu = findMenu(handle);
    return menu ? static_cast<int32_t>(menu->items.size()) : -1;
}

uint32_t GetMenuItemID(HMENU handle, int32_t position) {
    auto menu = findMenu(handle);
    if (!menu || position < 0 || position >= static_cast<int32_t>(menu->items.size())) return kMissing;
    const auto &item = menu->items[static_cast<std::size_t>(position)];
    return item.popup ? kMissing : static_cast<uint32_t>(item.command);
}

uint32_t EnableMenuItem(HMENU menu, uint32_t item, uint32_t flags) {
    return changeState(menu, item, flags, MF_GRAYED | MF_DISABLED);
}

uint32_t CheckMenuItem(HMENU menu, uint32_t item, uint32_t flags) { return changeState(menu, item, flags, MF_CHECKED); }

uint32_t GetMenuState(HMENU menu, uint32_t item, uint32_t flags) {
    MenuItem *found = findMenuItem(menu, item, flags);
    if (!found) return kMissing;
    return found->state | (found->separator ? MF_SEPARATOR : 0u) | (found->popup ? MF_POPUP : 0u);
}

int32_t TrackPopupMenu(HMENU handle, uint32_t flags, int32_t x, int32_t y, int32_t reserved, HWND owner,
                       const RECT *reserved2) {
    auto menu = findMenu(handle);
    if (!menu) return 0;
    MenuPrompt prompt;
    prompt.owner = owner ? owner : activeDialog();
    prompt.menuId = menu->resourceId;
    prompt.x = x;
    prompt.y = y;
    prompt.entries = menuEntries(*menu);
    int32_t command = activeRenderer().popupMenu(prompt);
    if (!menuOffersCommand(prompt.entries, command)) command = 0;
    if (flags & TPM_RETURNCMD) return command;
    if (command != 0 && owner) postMessage(owner, WM_COMMAND, MAKEWPARAM(command, 0), 0);
    return command != 0 ? 1 : 0;
}

} // extern "C"
