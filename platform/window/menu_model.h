// Menus loaded from the menu resources of a resource library. A menu and each of its
// popups has its own HMENU from the same never-reused handle numbers as windows; the
// popups belong to the top menu and go with it.
#pragma once

#include "platform/window/prompts.h"
#include "tabra_base.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tabra::window {

struct MenuItem {
    std::u16string text;
    int32_t command = 0;
    bool separator = false;
    uint32_t state = 0;     // MF_GRAYED, MF_DISABLED, MF_CHECKED
    HMENU popup = nullptr;  // a submenu
};

struct Menu {
    HMENU handle = nullptr;
    int32_t resourceId = 0;   // the menu resource it came from
    HMENU owner = nullptr;    // the menu a popup belongs to (null for a top menu)
    std::vector<MenuItem> items;
};

// A menu from the module's menu resource, or null.
HMENU loadMenu(HMODULE module, int32_t menuId);
std::shared_ptr<Menu> findMenu(HMENU handle);
// Destroys a top menu with its popups; false for an unknown handle.
bool destroyMenu(HMENU handle);
// The item with the command (searching popups too), or by position; null if none.
MenuItem *findMenuItem(HMENU menu, uint32_t item, uint32_t flags);
// The menu as the renderer shows it.
std::vector<MenuEntry> menuEntries(const Menu &menu);

} // namespace tabra::window
