// What a resource library holds once loaded: string tables, dialog templates, menus
// and pictures, each by numeric identifier (every kind is a namespace of its own: a
// picture may share its number with a dialog). The dialog engine creates windows from these
// templates; the loader fills them from a language folder's resource script.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tabra::platform {

enum class ControlKind {
    Static,      // static text (SS_* styles)
    Picture,     // static icon or bitmap
    Edit,        // single- or multi-line edit (ES_* styles)
    PushButton,  // BS_PUSHBUTTON / BS_DEFPUSHBUTTON
    CheckBox,    // BS_CHECKBOX family
    RadioButton, // BS_RADIOBUTTON family; WS_GROUP starts a group
    GroupBox,
    ListBox,     // LBS_* styles
    ComboBox,    // CBS_DROPDOWN (editable) or CBS_DROPDOWNLIST
    ListView,    // report list view (LVS_* styles)
    TabControl,  // pages are child dialogs added at run time
    Progress,
};

struct ControlTemplate {
    ControlKind kind = ControlKind::Static;
    int32_t id = -1;              // -1 for unnamed statics
    std::u16string text;
    int32_t x = 0, y = 0, width = 0, height = 0; // dialog units
    uint32_t style = 0;           // WS_*, and the kind's own style bits
    uint32_t extendedStyle = 0;   // list view extended styles
};

struct DialogTemplate {
    int32_t id = 0;
    std::u16string caption;
    int32_t x = 0, y = 0, width = 0, height = 0; // dialog units
    uint32_t style = 0;
    std::u16string fontName;      // empty: the renderer's default
    int32_t fontSize = 0;
    bool childPage = false;       // a page of a tab control or a wizard, not a top-level dialog
    std::vector<ControlTemplate> controls;
};

struct MenuItemTemplate {
    std::u16string text;          // "&" marks the mnemonic
    int32_t id = 0;               // command identifier; 0 for a separator or a submenu
    bool separator = false;
    std::vector<MenuItemTemplate> children; // non-empty for a submenu
};

struct MenuTemplate {
    int32_t id = 0;
    std::vector<MenuItemTemplate> items; // top level: usually one submenu (the popup)
};

struct StringEntry {
    std::u16string text;
    uint32_t messageBoxStyle = 0; // MB_* buttons and icon when the string is a message
};

struct ResourceTables {
    std::map<int32_t, StringEntry> strings;
    std::map<int32_t, DialogTemplate> dialogs;
    std::map<int32_t, MenuTemplate> menus;
    // Picture files (PNG or any format GDK reads), UTF-8 paths: as the script wrote
    // them after parsing, absolute once the script was read from a file.
    std::map<int32_t, std::string> pictures;
};

} // namespace tabra::platform
