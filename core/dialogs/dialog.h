// The dialog base: what every dialog procedure of the library does the same way, so
// that a dialog only says what is its own.
//
// A dialog describes itself in one constant Dialog<State>: what it does when it opens,
// which commands and notifications it answers, how OK is accepted. State is the
// dialog's working record, handed over as the creation parameter. The exported
// procedure passes every message on:
//
//   constexpr dialogs::Command<Alias> kAliasCommands[] = {{ids::kAliasDialog.alias, EN_CHANGE, refuseForeign}};
//   constexpr dialogs::Dialog<Alias> kAliasDialog{
//       .initialise = showAlias, .accept = takeAlias, .commands = kAliasCommands};
//
//   extern "C" INT_PTR EditAlias_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
//       return kAliasDialog.answer(dialog, message, wParam, lParam);
//   }
//   ... if (dialogs::runModal(ids::kAliasDialog.id, EditAlias_Dialog_Callback, alias) != IDOK) return 2;
//
// What answer() does with each message:
// - WM_INITDIALOG: keeps the state pointer (lParam) in the DWLP_USER slot, translates
//   the dialog (LTS_TranslateDialog with the library's translation module name), runs
//   initialise, then gives the focus to what initialFocus names (answering FALSE), else
//   lets the dialog manager focus the first tab stop (TRUE). Opened without a state (a
//   null parameter) the dialog answers TRUE and ignores every later message, or, when
//   it names a result in endWithoutState, ends at once with it.
// - WM_COMMAND: a double click (LBN_DBLCLK) in the doubleClick list posts its command
//   (BN_CLICKED); otherwise the first row of commands whose control and notification
//   match runs. Then, for a top-level dialog (not a WS_CHILD page), OK runs accept and
//   ends the dialog with IDOK when accept says yes (always without accept), and
//   Cancel ends it with IDCANCEL. A dialog that lists IDOK or IDCANCEL among its
//   commands handles them itself.
// - WM_NOTIFY: NM_DBLCLK from the doubleClick control (a list view) posts its command;
//   otherwise the first row of notifications whose control and code match runs. A row
//   that wants to answer something other than 0 stores it with
//   SetWindowLongPtrW(dialog, DWLP_MSGRESULT, value).
// - kPageEntered and kPageLeft: entered and left (wizard pages, below).
// - Every message not handled so far goes to otherMessage (0 without one).
// A handled message answers TRUE.
//
// Tab pages are child dialogs created with Ostrel_AddTabControlItem(tab, -1, module,
// template, procedure, &state): their procedure is answer() exactly as above. They get
// no OK/Cancel handling (they are WS_CHILD); a list that acts on a double click names
// its command in doubleClick ({list, command}), which is posted to the page.
//
// Wizard pages are child dialogs of the wizard frame (Wizzard_Perform). The frame calls
// one page procedure per wizard with (wizard, page id, page window, message, wParam,
// lParam); the state is the wizard's, taken from Wizzard_GetParam(wizard), not from
// the creation parameter. Each page is a Dialog<State> of its own, and the procedure
// hands the message to the one of the page with answerPage(), which uses dispatch():
// everything above but the DWLP_USER slot.
//
//   constexpr dialogs::Page<ExportState> kPages[] = {{ids::kTablePage.id, &kTablePage},
//                                                    {ids::kFieldsPage.id, &kFieldsPage}, ...};
//
// (core/dialogs/wizard_frame.h has the page procedure's body and the frame's run.)
//
// The frame sends a page WM_INITDIALOG once (initialise translates and fills what stays),
// kPageEntered each time the page becomes current (entered: fill from the state) and
// kPageLeft when the user leaves it: wParam tells the direction (Leaving::Back 2,
// Leaving::Forward 1 for Next and Finish), lParam points at the 32-bit answer, preset
// to 1. left returns PageAnswer::GoOn (1) or PageAnswer::Stay (2), which is written
// there; a page without left lets the user pass either way. Wizards hand kPageEntered
// and kPageLeft to Wizzard_Perform as its page messages.
#pragma once

#include "core/module/module_state.h"
#include "ostrel_lts.h"
#include "tabra_window.h"

#include <cstdint>
#include <span>

namespace tabra::dialogs {

// The messages the wizard frame sends its pages.
inline constexpr uint32_t kPageEntered = WM_USER + 1; // 1025: the page became current
inline constexpr uint32_t kPageLeft = WM_USER + 2;    // 1026: the user leaves the page

// Which way the user leaves a wizard page (kPageLeft's wParam).
enum class Leaving : int32_t { Forward = 1, Back = 2 };
// A page's answer to kPageLeft.
enum class PageAnswer : int32_t { GoOn = 1, Stay = 2 };

// A command row matches any notification code with this.
inline constexpr int32_t kAnyNotification = -1;

// A WM_COMMAND the dialog answers: its control (or command id), the notification code
// (BN_CLICKED, EN_CHANGE, LBN_SELCHANGE, ..., or kAnyNotification) and what it does;
// act gets the control id, so one function may serve several rows.
template <class State> struct Command {
    int32_t control;
    int32_t notification;
    void (*act)(HWND dialog, State &state, int32_t control);
};

// A WM_NOTIFY the dialog answers: the control it comes from, its code (NM_DBLCLK,
// NM_RCLICK, LVN_ITEMCHANGED, TCN_SELCHANGE, ...) and what it does.
template <class State> struct Notification {
    int32_t control;
    int32_t code;
    void (*act)(HWND dialog, State &state, const NMHDR &header);
};

// A list whose double click stands for a command (IDOK for most pickers).
struct DoubleClick {
    int32_t list = 0; // 0: none
    int32_t command = IDOK;
};

// The state a dialog was opened with, typed; null before WM_INITDIALOG or without one.
template <class State> State *stateOf(HWND dialog) {
    return reinterpret_cast<State *>(GetWindowLongPtrW(dialog, DWLP_USER));
}

template <class State> struct Dialog {
    void (*initialise)(HWND dialog, State &state) = nullptr;
    HWND (*initialFocus)(HWND dialog, State &state) = nullptr; // null answer: the first tab stop
    bool (*accept)(HWND dialog, State &state) = nullptr;       // true ends the dialog with IDOK
    std::span<const Command<State>> commands = {};
    std::span<const Notification<State>> notifications = {};
    DoubleClick doubleClick = {};
    void (*entered)(HWND page, State &state) = nullptr;                      // wizard pages
    PageAnswer (*left)(HWND page, State &state, Leaving direction) = nullptr; // wizard pages
    INT_PTR (*otherMessage)(HWND dialog, State &state, uint32_t message, WPARAM wParam, LPARAM lParam) = nullptr;
    INT_PTR endWithoutState = 0; // 0: a dialog opened without a state stays inert

    // The dialog procedure: the state travels in the DWLP_USER slot.
    INT_PTR answer(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) const {
        if (message == WM_INITDIALOG) {
            if (lParam == 0) {
                if (endWithoutState != 0) EndDialog(dialog, endWithoutState);
                return TRUE;
            }
            SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        }
        State *state = stateOf<State>(dialog);
        return state != nullptr ? dispatch(dialog, *state, message, wParam, lParam) : 0;
    }

    // The same with the state given by the caller (wizard pages).
    INT_PTR dispatch(HWND window, State &state, uint32_t message, WPARAM wParam, LPARAM lParam) const {
        switch (message) {
        case WM_INITDIALOG: return opened(window, state);
        case WM_COMMAND:
            if (command(window, state, GetWmCommandId(wParam), GetWmCommandNotif(wParam))) return TRUE;
            break;
        case WM_NOTIFY:
            if (lParam != 0 && notify(window, state, *reinterpret_cast<const NMHDR *>(lParam))) return TRUE;
            break;
        case kPageEntered:
            if (entered == nullptr) break;
            entered(window, state);
            return TRUE;
        case kPageLeft: {
            if (left == nullptr) break;
            PageAnswer given = left(window, state, wParam == static_cast<WPARAM>(Leaving::Back) ? Leaving::Back
                                                                                                : Leaving::Forward);
            if (lParam != 0) *reinterpret_cast<int32_t *>(lParam) = static_cast<int32_t>(given);
            return TRUE;
        }
        default: break;
        }
        return otherMessage != nullptr ? otherMessage(window, state, message, wParam, lParam) : 0;
    }

private:
    INT_PTR opened(HWND dialog, State &state) const {
        LTS_TranslateDialog(dialog, module::kTranslationModuleName, 0);
        if (initialise != nullptr) initialise(dialog, state);
        HWND focus = initialFocus != nullptr ? initialFocus(dialog, state) : nullptr;
        if (focus == nullptr) return TRUE;
        SetFocus(focus);
        return FALSE;
    }

    bool command(HWND dialog, State &state, int32_t id, int32_t notification) const {
        if (doubleClick.list != 0 && id == doubleClick.list && notification == LBN_DBLCLK) {
            PostWmCommand(dialog, doubleClick.command, BN_CLICKED);
            return true;
        }
        for (const Command<State> &row : commands) {
            if (row.control != id || (row.notification != kAnyNotification && row.notification != notification)) continue;
            row.act(dialog, state, id);
            return true;
        }
        if ((GetWindowLongPtrW(dialog, GWL_STYLE) & WS_CHILD) != 0) return false;
        if (id == IDOK) {
            if (accept == nullptr || accept(dialog, state)) EndDialog(dialog, IDOK);
            return true;
        }
        if (id == IDCANCEL) {
            EndDialog(dialog, IDCANCEL);
            return true;
        }
        return false;
    }

    bool notify(HWND dialog, State &state, const NMHDR &header) const {
        auto control = static_cast<int32_t>(header.idFrom);
        auto code = static_cast<int32_t>(header.code);
        if (doubleClick.list != 0 && control == doubleClick.list && code == NM_DBLCLK) {
            PostWmCommand(dialog, doubleClick.command, BN_CLICKED);
            return true;
        }
        for (const Notification<State> &row : notifications) {
            if (row.control != control || row.code != code) continue;
            row.act(dialog, state, header);
            return true;
        }
        return false;
    }
};

// A page of a wizard: its template id and its dialog.
template <class State> struct Page {
    int32_t id;
    const Dialog<State> *dialog;
};

// Hands a wizard page's message to the dialog of that page; 0 for a page not in the table.
template <class State>
INT_PTR answerPage(std::span<const Page<State>> pages, int32_t pageId, HWND page, State &state, uint32_t message,
                   WPARAM wParam, LPARAM lParam) {
    for (const Page<State> &entry : pages)
        if (entry.id == pageId) return entry.dialog->dispatch(page, state, message, wParam, lParam);
    return 0;
}

// Shows a dialog of the resource library modally with the state as its parameter, over
// the owner (the active window unless given); returns the EndDialog result (-1 when
// the template is missing).
template <class State>
INT_PTR runModal(int32_t templateId, DLGPROC procedure, State &state, HWND owner = GetActiveWindow()) {
    return DialogBoxParamW(module::resourceLibrary(), templateId, owner, procedure, reinterpret_cast<LPARAM>(&state));
}

} // namespace tabra::dialogs
