// The message plumbing the data source and schema dialogs share: the state handed
// over with WM_INITDIALOG is kept with the dialog; a list's selection change shows
// the chosen entry and a double click on it presses OK; OK runs the dialog's own
// acceptance, which ends the dialog when it accepts; Cancel ends it.
#pragma once

#include "tabra_window.h"

#include <cstdint>

namespace tabra::persistence {

template <class State> struct PickerDialog {
    void (*initialise)(HWND dialog, State &state);
    void (*accept)(HWND dialog, State &state);
    int32_t list = 0;                                    // 0: no list
    void (*listSelected)(HWND dialog, State &state) = nullptr;
    bool (*command)(HWND dialog, State &state, int32_t id) = nullptr; // the dialog's other buttons
};

template <class State>
INT_PTR answerPickerMessage(const PickerDialog<State> &picker, HWND dialog, uint32_t message, WPARAM wParam,
                            LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        picker.initialise(dialog, *reinterpret_cast<State *>(lParam));
        return 1;
    }
    auto *state = reinterpret_cast<State *>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (message != WM_COMMAND || state == nullptr) return 0;
    int32_t id = GetWmCommandId(wParam);
    if (picker.list != 0 && id == picker.list) {
        if (GetWmCommandNotif(wParam) == LBN_SELCHANGE) picker.listSelected(dialog, *state);
        if (GetWmCommandNotif(wParam) == LBN_DBLCLK) PostWmCommand(dialog, IDOK, BN_CLICKED);
        return 1;
    }
    switch (id) {
    case IDOK:
        picker.accept(dialog, *state);
        return 1;
    case IDCANCEL:
        EndDialog(dialog, IDCANCEL);
        return 1;
    default:
        return picker.command != nullptr && picker.command(dialog, *state, id) ? 1 : 0;
    }
}

} // namespace tabra::persistence
