// Style and identifier names of resource scripts. Names that the window constants
// header defines are taken from there; the few it does not need at run time (frame
// and dialog styles, some list and tab styles) carry their classic values here.
#include "platform/resources/style_names.h"

#include "tabra_window_constants.h"

#include <array>
#include <utility>

namespace tabra::platform {
namespace {

using NamedStyle = std::pair<std::string_view, uint32_t>;

#define STYLE(name) NamedStyle { #name, static_cast<uint32_t>(name) }

constexpr auto kStyles = std::to_array<NamedStyle>({
    // Window styles.
    STYLE(WS_CHILD), STYLE(WS_VISIBLE), STYLE(WS_DISABLED), STYLE(WS_BORDER), STYLE(WS_VSCROLL),
    STYLE(WS_HSCROLL), STYLE(WS_GROUP), STYLE(WS_TABSTOP),
    {"WS_POPUP", 0x80000000u}, {"WS_CAPTION", 0x00C00000u}, {"WS_DLGFRAME", 0x00400000u},
    {"WS_SYSMENU", 0x00080000u}, {"WS_THICKFRAME", 0x00040000u}, {"WS_CLIPSIBLINGS", 0x04000000u},
    {"WS_CLIPCHILDREN", 0x02000000u},
    // Dialog styles.
    {"DS_SETFONT", 0x40u}, {"DS_MODALFRAME", 0x80u}, {"DS_FIXEDSYS", 0x8u}, {"DS_3DLOOK", 0x4u},
    {"DS_CONTROL", 0x400u}, {"DS_CENTER", 0x800u}, {"DS_SHELLFONT", 0x48u},
    // Buttons.
    STYLE(BS_PUSHBUTTON), STYLE(BS_DEFPUSHBUTTON), STYLE(BS_CHECKBOX), STYLE(BS_AUTOCHECKBOX),
    STYLE(BS_RADIOBUTTON), STYLE(BS_3STATE), STYLE(BS_AUTO3STATE), STYLE(BS_GROUPBOX),
    STYLE(BS_AUTORADIOBUTTON), {"BS_LEFTTEXT", 0x20u}, {"BS_MULTILINE", 0x2000u},
    // Edits.
    STYLE(ES_LEFT), STYLE(ES_MULTILINE), STYLE(ES_UPPERCASE), STYLE(ES_PASSWORD), STYLE(ES_AUTOVSCROLL),
    STYLE(ES_AUTOHSCROLL), STYLE(ES_READONLY), STYLE(ES_WANTRETURN), STYLE(ES_NUMBER),
    {"ES_CENTER", 0x1u}, {"ES_RIGHT", 0x2u}, {"ES_LOWERCASE", 0x10u}, {"ES_NOHIDESEL", 0x100u},
    // List boxes.
    STYLE(LBS_NOTIFY), STYLE(LBS_SORT), STYLE(LBS_MULTIPLESEL), STYLE(LBS_EXTENDEDSEL),
    {"LBS_HASSTRINGS", 0x40u}, {"LBS_USETABSTOPS", 0x80u}, {"LBS_NOINTEGRALHEIGHT", 0x100u},
    {"LBS_DISABLENOSCROLL", 0x1000u},
    // Combo boxes.
    STYLE(CBS_SIMPLE), STYLE(CBS_DROPDOWN), STYLE(CBS_DROPDOWNLIST), STYLE(CBS_SORT),
    {"CBS_AUTOHSCROLL", 0x40u}, {"CBS_HASSTRINGS", 0x200u},
    // List views.
    STYLE(LVS_REPORT), STYLE(LVS_SINGLESEL), STYLE(LVS_SHOWSELALWAYS), STYLE(LVS_EX_GRIDLINES),
    STYLE(LVS_EX_CHECKBOXES), STYLE(LVS_EX_FULLROWSELECT), {"LVS_SORTASCENDING", 0x10u},
    {"LVS_NOSORTHEADER", 0x8000u},
    // Tab controls and progress bars.
    {"TCS_TABS", 0x0u}, {"TCS_MULTILINE", 0x200u}, {"PBS_SMOOTH", 0x1u},
    // Statics.
    STYLE(SS_LEFT), STYLE(SS_CENTER), STYLE(SS_RIGHT), STYLE(SS_ICON), STYLE(SS_BITMAP), STYLE(SS_SUNKEN),
    {"SS_NOPREFIX", 0x80u}, {"SS_ETCHEDHORZ", 0x10u}, {"SS_CENTERIMAGE", 0x200u},
    // Message boxes.
    STYLE(MB_OK), STYLE(MB_OKCANCEL), STYLE(MB_ABORTRETRYIGNORE), STYLE(MB_YESNOCANCEL), STYLE(MB_YESNO),
    STYLE(MB_RETRYCANCEL), STYLE(MB_ICONERROR), STYLE(MB_ICONQUESTION), STYLE(MB_ICONWARNING),
    STYLE(MB_ICONINFORMATION), STYLE(MB_DEFBUTTON2), STYLE(MB_DEFBUTTON3),
});

#undef STYLE

constexpr auto kControlIds = std::to_array<std::pair<std::string_view, int32_t>>({
    {"IDC_STATIC", -1}, {"IDOK", IDOK}, {"IDCANCEL", IDCANCEL}, {"IDABORT", IDABORT}, {"IDRETRY", IDRETRY},
    {"IDIGNORE", IDIGNORE}, {"IDYES", IDYES}, {"IDNO", IDNO}, {"IDHELP", IDHELP},
});

} // namespace

std::optional<uint32_t> styleValue(std::string_view name) {
    for (const auto &[known, value] : kStyles)
        if (known == name) return value;
    return std::nullopt;
}

std::optional<int32_t> controlIdValue(std::string_view name) {
    for (const auto &[known, value] : kControlIds)
        if (known == name) return value;
    return std::nullopt;
}

} // namespace tabra::platform
