// The prompts a renderer shows modally on its own: message boxes, popup menus and
// file name dialogs. The engine fills them; the renderer answers.
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tabra::window {

struct MessageBoxPrompt {
    HWND owner = nullptr;
    std::u16string text;     // formatted, inserts in place
    std::u16string caption;
    uint32_t style = 0;      // MB_* buttons, icon and default button
    int32_t stringId = 0;    // 0 when the text did not come from a string table
    uint32_t messageCode = 0;
};

// The buttons a message-box style offers, in display order (IDOK, IDCANCEL, ...).
std::vector<int32_t> messageBoxButtons(uint32_t style);
// The answer when the box is closed without a button: Cancel, else No, else OK.
int32_t cancelLikeAnswer(uint32_t style);

struct MenuEntry {
    std::u16string text;     // "&" marks the mnemonic
    int32_t command = 0;     // 0 for separators and submenus
    bool separator = false;
    bool grayed = false;
    bool checked = false;
    std::vector<MenuEntry> children; // a submenu when not empty
};

struct MenuPrompt {
    HWND owner = nullptr;
    int32_t menuId = 0;      // resource id of the menu the popup came from
    int32_t x = 0, y = 0;    // screen position asked for
    std::vector<MenuEntry> entries;
};

// True when command is an enabled, choosable command of the entries (submenus too).
bool menuOffersCommand(const std::vector<MenuEntry> &entries, int32_t command);

struct FileNamePrompt {
    HWND owner = nullptr;
    bool save = false;                 // false: open an existing file
    std::u16string title;
    std::vector<std::pair<std::u16string, std::u16string>> filters; // description, patterns ("*.txt;*.csv")
    std::u16string proposedName;
};

} // namespace tabra::window
