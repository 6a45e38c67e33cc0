// User input, as both renderers deliver it: each call does what the user's gesture
// does in a Win32 dialog (change the control, then notify the dialog). A call answers
// nullopt when the input was delivered, or why a user could not have done it (the
// window is gone, disabled, hidden, read-only, of the wrong kind, the entry does not
// exist); then nothing happened.
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tabra::window::input {

using Refusal = std::optional<std::string>;

// A click on a button: auto check boxes toggle, auto radio buttons check themselves
// and clear their group; BN_CLICKED follows. The button gets the focus.
Refusal click(HWND button);
// Ensures a check box or radio button is checked / unchecked, clicking it when needed.
// (A radio button cannot be unchecked by the user.)
Refusal setChecked(HWND button, bool checked);
// The user replaced the whole text of an edit or an editable combo (EN_UPDATE and
// EN_CHANGE / CBN_EDITUPDATE and CBN_EDITCHANGE, once). A drop-down list combo takes
// the entry with that text instead.
Refusal replaceText(HWND control, const std::u16string &text);
// Characters typed at the end of an edit's or editable combo's text, one WM_CHAR each
// (8 is backspace). Enter ('\n' or '\r') in a single-line edit presses the dialog's
// default button instead.
Refusal typeText(HWND control, const std::u16string &text);
// Selects exactly these entries of a list box (one for a single-selection list),
// combo box (one), list view or tab control (one), as a click does: LBN_SELCHANGE,
// CBN_SELCHANGE, LVN_ITEMCHANGED per changed item, TCN_SELCHANGING/TCN_SELCHANGE.
Refusal selectEntries(HWND control, const std::vector<int32_t> &indices);
// Toggles one entry of a multiple-selection list box or list view.
Refusal toggleEntry(HWND control, int32_t index);
// A double click on an entry (-1: on no entry) of a list box (LBN_SELCHANGE,
// LBN_DBLCLK) or list view (selection, NM_DBLCLK); on a button: BN_CLICKED twice.
Refusal doubleClick(HWND control, int32_t index);
// A right click on an entry (-1: on no entry) of a list view: an unselected entry
// becomes the only selected one, then NM_RCLICK. On another control: WM_CONTEXTMENU
// to the dialog.
Refusal rightClick(HWND control, int32_t index);
// Checks or unchecks the box of a list view item (LVS_EX_CHECKBOXES), as a click on
// the box does: the state image changes, LVN_ITEMCHANGED follows.
Refusal setItemChecked(HWND listView, int32_t index, bool checked);
// Entry `item` of the list `source` dragged and dropped on the list `target` before
// its entry `position` (its count: after the last), as a mouse drag does it: the
// target takes the focus and its dialog gets WM_NOTIFY OSTREL_NM_DROPPED. Both lists
// belong to one top-level dialog; the source must be a drag source and the target a
// drop target (Ostrel_SetListDragDrop); source and target may be the same list.
Refusal dropEntry(HWND source, int32_t item, HWND target, int32_t position);
// The keys of a dialog, as its dialog manager handles them in Win32, whichever
// control has the focus: Tab and Shift+Tab (backward) move the focus to the next tab
// stop (focus.h: nextTabStop; an edit reached so has its text selected); Enter presses
// the push button with the focus, else the default button (WM_COMMAND with BN_CLICKED;
// nothing when that button is disabled), while a multi-line edit with ES_WANTRETURN
// takes it as a line break; Escape sends IDCANCEL unless the dialog's Cancel button is
// disabled.
Refusal pressTab(HWND dialog, bool backward);
Refusal pressEnter(HWND dialog);
Refusal pressEscape(HWND dialog);
// The close box of a dialog (WM_CLOSE).
Refusal closeDialog(HWND dialog);
// The abort button of a progress indicator.
Refusal pressAbort(HWND indicator);
// The user moved the focus.
Refusal focus(HWND control);

// Why a user could not act on this control now (null when the control can take
// input): gone, disabled or hidden, itself or through a parent.
Refusal unreachable(HWND control);

} // namespace tabra::window::input
