// Tab controls: tabs with a text and a parameter; a tab may own a page, a child
// dialog whose parent is the tab control (Ostrel_AddTabControlItem).
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tabra::window {

struct Window;

struct TabItem {
    std::u16string text;
    LPARAM param = 0;
    HWND page = nullptr;
};

struct TabState {
    std::vector<TabItem> items;
    int32_t current = -1;
};

// Makes tab index current (tells the renderer; no notification to the dialog).
void setCurrentTab(Window &tab, int32_t index);

// Handles the TCM_* messages. TCM_SETCURSEL sends no notification, as in Win32.
bool tabControlMessage(Window &tab, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result);

} // namespace tabra::window
