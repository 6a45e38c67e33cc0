// The state a dialog window carries: its procedure, where its template came from, the
// modal result, the slots of the dialog manager, the focus and the default button.
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <string>

namespace tabra::window {

struct DialogState {
    DLGPROC procedure = nullptr;
    HMODULE module = nullptr;
    int32_t templateId = 0;
    bool modal = false;
    bool childPage = false;   // a page (WS_CHILD template or created with a parent)
    HWND owner = nullptr;     // a modal dialog's owner
    bool ended = false;       // EndDialog was called
    INT_PTR result = 0;
    LONG_PTR messageResult = 0; // DWLP_MSGRESULT
    LONG_PTR user = 0;          // DWLP_USER
    HWND focus = nullptr;       // focus of a top-level dialog
    int32_t defaultId = 1;      // DM_GETDEFID (IDOK unless a BS_DEFPUSHBUTTON says otherwise)
    bool defaultFromStyle = false; // defaultId came from a BS_DEFPUSHBUTTON
    std::u16string fontName;    // empty: the renderer's default
    int32_t fontSize = 0;
    bool centered = false;      // Ostrel_CenterWindow was asked for
    HWND centerReference = nullptr;
};

} // namespace tabra::window
