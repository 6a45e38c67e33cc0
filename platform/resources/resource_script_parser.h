// Reads a resource script (the text form of a resource library) into ResourceTables.
//
// The script is UTF-8 and uses a subset of the classic resource-script syntax:
//
//   STRINGTABLE
//   BEGIN
//       1600, "The ODBC environment could not be created.", MB_OK | MB_ICONERROR
//       2900, "Tabra"
//   END
//
//   103 DIALOGEX 0, 0, 240, 170
//   STYLE DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU
//   CAPTION "Select Data Source"
//   FONT 8, "Sans"
//   BEGIN
//       LTEXT "&Data sources:", IDC_STATIC, 7, 7, 226, 8
//       LISTBOX 1004, 7, 18, 226, 80, LBS_NOTIFY | WS_VSCROLL
//       EDITTEXT 1003, 70, 104, 163, 14, ES_PASSWORD | ES_AUTOHSCROLL
//       CONTROL "", 1005, "SysListView32", LVS_REPORT | WS_BORDER, 7, 7, 100, 50, LVS_EX_FULLROWSELECT
//       DEFPUSHBUTTON "OK", IDOK, 129, 149, 50, 14
//   END
//
//   10022 PICTURE "pictures/export.png"
//
//   115 MENU
//   BEGIN
//       POPUP "Table"
//       BEGIN
//           MENUITEM "&Delete", 40002
//           MENUITEM SEPARATOR
//       END
//   END
//
// Controls: LTEXT CTEXT RTEXT PUSHBUTTON DEFPUSHBUTTON CHECKBOX AUTOCHECKBOX
// STATE3 AUTO3STATE RADIOBUTTON AUTORADIOBUTTON GROUPBOX ("text", id, x, y, w, h
// [, style [, extended style]]), EDITTEXT LISTBOX COMBOBOX (id, x, y, w, h [, style
// [, extended style]]), ICON (name, id, x, y [, w, h [, style]]) and CONTROL ("text",
// id, "class", style, x, y, w, h [, extended style]) with the classes Static, Edit,
// Button, ListBox, ComboBox, SysListView32, SysTabControl32 and msctls_progress32.
// A style is names and numbers joined by "|"; "NOT name" removes a default bit. Each
// control starts from the classic defaults of its keyword (always WS_CHILD |
// WS_VISIBLE); a button, static or combo type given in the style replaces the
// keyword's default type. A dialog whose style holds WS_CHILD is a child page.
// Keywords are case-insensitive, style names are not. Coordinates are dialog units.
// A picture names its file relative to the folder of the script that names it.
//
// Everything is checked: an unknown keyword, style name or control class, a bad or
// out-of-range number, a duplicate string, dialog, menu, control or command
// identifier, an unclosed block, string or comment, and text that is not UTF-8 fail
// the whole script with "name:line: message". A string, dialog or menu id defined
// twice names both places, also when the first is in another script of the same
// library ("query.rc:12: duplicate string id 1600, already defined at tabraRes.rc:9").
#pragma once

#include "platform/resources/resource_model.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tabra::platform {

struct ResourceScriptParse {
    std::optional<ResourceTables> tables; // set when the script is sound
    std::string error;                    // "name:line: message" otherwise
};

// Parses a whole script; sourceName names it in error messages (usually its path).
ResourceScriptParse parseResourceScript(std::string_view script, std::string_view sourceName);

// Where each string, dialog, menu and picture of a library was defined ("name:line").
struct ResourceOrigins {
    std::map<int32_t, std::string> strings, dialogs, menus, pictures;
};

// Adds one script of a library to the tables and origins of the scripts read before
// it. Returns the error ("name:line: message"), empty when the script is sound; after
// an error the tables are incomplete.
std::string parseResourceScriptInto(std::string_view script, std::string_view sourceName, ResourceTables &tables,
                                    ResourceOrigins &origins);

} // namespace tabra::platform
