// Menus: a table of live menus and their items.
#include "platform/window/menu_model.h"

#include "platform/resources/resource_module.h"
#include "platform/window/window_registry.h"
#include "tabra_window.h"

#include <unordered_map>

namespace tabra::window {
namespace {

std::unordered_map<uintptr_t, std::shared_ptr<Menu>> &menus() {
    static auto *table = new std::unordered_map<uintptr_t, std::shared_ptr<Menu>>;
    return *table;
}

HMENU buildMenu(const std::vector<platform::MenuItemTemplate> &templates, int32_t resourceId, HMENU owner) {
    auto menu = std::make_shared<Menu>();
    menu->handle = reinterpret_cast<HMENU>(newHandleValue());
    menu->resourceId = resourceId;
    menu->owner = owner;
    menus()[reinterpret_cast<uintptr_t>(menu->handle)] = menu;
    HMENU top = owner ? owner : menu->handle;
    for (const auto &source : templates) {
        MenuItem item;
        item.text = source.text;
        item.command = source.id;
        item.separator = source.separator;
        if (!source.children.empty()) item.popup = buildMenu(source.children, resourceId, top);
        menu->items.push_back(std::move(item));
    }
    return menu->handle;
}

void destroyTree(HMENU handle) {
    auto menu = findMenu(handle);
    if (!menu) return;
    for (const auto &item : menu->items)
        if (item.popup) destroyTree(item.popup);
    menus().erase(reinterpret_cast<uintptr_t>(handle));
}

MenuItem *findByCommand(Menu &menu, uint32_t command) {
    for (auto &item : menu.items) {
        if (!item.separator && !item.popup && static_cast<uint32_t>(item.command) == command) return &item;
        if (auto popup = findMenu(item.popup))
            if (MenuItem *found = findByCommand(*popup, command)) return found;
    }
    return nullptr;
}

} // namespace

HMENU loadMenu(HMODULE module, int32_t menuId) {
    const auto *tables = platform::resourceTablesOf(module);
    if (!tables) return nullptr;
    auto found = tables->menus.find(menuId);
    if (found == tables->menus.end()) return nullptr;
    return buildMenu(found->second.items, menuId, nullptr);
}

std::shared_ptr<Menu> findMenu(HMENU handle) {
    auto &table = menus();
    auto it = table.find(reinterpret_cast<uintptr_t>(handle));
    return it == table.end() ? nullptr : it->second;
}

bool destroyMenu(HMENU handle) {
    auto menu = findMenu(handle);
    if (!menu) return false;
    // Destroying a popup on its own detaches it from its menu.
    if (auto owner = findMenu(menu->owner)) {
        std::vector<std::shared_ptr<Menu>> pending{owner};
        while (!pending.empty()) {
            auto current = pending.back();
            pending.pop_back();
            for (auto &item : current->items) {
                if (item.popup == handle) item.popup = nullptr;
                else if (auto popup = findMenu(item.popup)) pending.push_back(popup);
            }
        }
    }
    destroyTree(handle);
    return true;
}

MenuItem *findMenuItem(HMENU handle, uint32_t item, uint32_t flags) {
    auto menu = findMenu(handle);
    if (!menu) return nullptr;
    if (flags & MF_BYPOSITION) return item < menu->items.size() ? &menu->items[item] : nullptr;
    return findByCommand(*menu, item);
}

std::vector<MenuEntry> menuEntries(const Menu &menu) {
    std::vector<MenuEntry> entries;
    for (const auto &item : menu.items) {
        MenuEntry entry;
        entry.text = item.text;
        entry.command = item.popup ? 0 : item.command;
        entry.separator = item.separator;
        entry.grayed = (item.state & (MF_GRAYED | MF_DISABLED)) != 0;
        entry.checked = (item.state & MF_CHECKED) != 0;
        if (auto popup = findMenu(item.popup)) entry.children = menuEntries(*popup);
        entries.push_back(std::move(entry));
    }
    return entries;
}

bool menuOffersCommand(const std::vector<MenuEntry> &entries, int32_t command) {
    for (const auto &entry : entries) {
        if (entry.grayed) continue;
        if (!entry.children.empty()) {
            if (menuOffersCommand(entry.children, command)) return true;
        } else if (!entry.separator && entry.command == command && command != 0) {
            return true;
        }
    }
    return false;
}

} // namespace tabra::window
