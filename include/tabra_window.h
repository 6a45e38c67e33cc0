/*
 * Tabra: the Win32-style window and dialog interface.
 *
 * Dialogs and their controls are objects of the library behind opaque HWND handles.
 * A handle is never reused: a handle whose window was destroyed is "stale", and every
 * call detects it and fails quietly (0, null or -1 as the call says), never crashes.
 * Messages, styles and control identifiers have their classic Win32 values
 * (tabra_window_constants.h). Everything runs on the caller's thread; modal dialogs run
 * their own message loop inside DialogBoxParamW and return when EndDialog was called.
 *
 * What the user sees is drawn by a renderer chosen at run time: the scripted driver
 * (tabra_script.h) when TABRA_UI=script is set or a host called TabraScript_Begin,
 * otherwise the GTK renderer when a display is available, else the scripted driver
 * (which, with nothing queued, cancels every prompt cleanly).
 *
 * Differences from Win32, all deliberate:
 * - Resource identifiers are integers; MAKEINTRESOURCEW(id) is the id itself, so code
 *   written in the classic form compiles unchanged.
 * - SetWindowLongW/GetWindowLongW carry pointer-sized values (LONG_PTR), so storing a
 *   pointer in the dialog's user slot (index 8, DWLP_USER) never truncates it. Both
 *   families share the same slots.
 * - Dialog slots use the classic 32-bit indices: DWLP_MSGRESULT 0, DWLP_DLGPROC 4,
 *   DWLP_USER 8.
 * - List boxes send LBN_SELCHANGE/LBN_DBLCLK whether or not LBS_NOTIFY is set.
 * - A modal dialog does not disable its owner window.
 */
#ifndef TABRA_WINDOW_H
#define TABRA_WINDOW_H

#include "tabra_base.h"
#include "tabra_window_constants.h"

/* ---- Truth values of dialog procedures ---- */
#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

/* ---- Helpers of the message words ---- */
#define LOWORD(value) ((uint16_t)(((uintptr_t)(value)) & 0xFFFFu))
#define HIWORD(value) ((uint16_t)((((uintptr_t)(value)) >> 16) & 0xFFFFu))
#define MAKELONG(low, high) ((int32_t)(((uint32_t)(uint16_t)(low)) | (((uint32_t)(uint16_t)(high)) << 16)))
#define MAKEWPARAM(low, high) ((WPARAM)(uint32_t)MAKELONG(low, high))
#define MAKELPARAM(low, high) ((LPARAM)(uint32_t)MAKELONG(low, high))
#define MAKELRESULT(low, high) ((LRESULT)(uint32_t)MAKELONG(low, high))
/* Resource identifiers are plain integers here. */
#define MAKEINTRESOURCEW(id) ((int32_t)(id))

/* ---- Window slots (Get/SetWindowLong(Ptr)W) ---- */
#define GWLP_USERDATA (-21)
#define GWL_EXSTYLE (-20)
#define GWL_STYLE (-16)
#define GWLP_ID (-12)
#define GWLP_HWNDPARENT (-8)
#define DWLP_MSGRESULT 0
#define DWLP_DLGPROC 4
#define DWLP_USER 8

/* ---- GetWindow relations ---- */
#define GW_HWNDFIRST 0
#define GW_HWNDLAST 1
#define GW_HWNDNEXT 2
#define GW_HWNDPREV 3
#define GW_OWNER 4
#define GW_CHILD 5

/* ---- Dialog manager ---- */
#define DM_GETDEFID (WM_USER + 0)
#define DM_SETDEFID (WM_USER + 1)
#define DC_HASDEFID 0x534B

/* ---- Menus ---- */
#define MF_BYCOMMAND 0x0000u
#define MF_BYPOSITION 0x0400u
#define MF_ENABLED 0x0000u
#define MF_GRAYED 0x0001u
#define MF_DISABLED 0x0002u
#define MF_UNCHECKED 0x0000u
#define MF_CHECKED 0x0008u
#define MF_POPUP 0x0010u
#define MF_SEPARATOR 0x0800u
#define TPM_LEFTBUTTON 0x0000u
#define TPM_RIGHTBUTTON 0x0002u
#define TPM_LEFTALIGN 0x0000u
#define TPM_NONOTIFY 0x0080u
#define TPM_RETURNCMD 0x0100u

/* MessageBeep with this type is the plain beep. */
#define MB_SIMPLEBEEP 0xFFFFFFFFu

/* ---- Records with Win32 layouts (64-bit forms) ---- */
typedef struct POINT {
    int32_t x;
    int32_t y;
} POINT;

typedef struct RECT {
    int32_t left;
    int32_t top;
    int32_t right;
    int32_t bottom;
} RECT;

/* Header of every WM_NOTIFY; lParam points at it (or at a record that starts with it). */
typedef struct NMHDR {
    HWND hwndFrom;
    uintptr_t idFrom;
    uint32_t code; /* NM_*, LVN_*, TCN_* (negative codes as unsigned) */
} NMHDR;

/* LVN_ITEMCHANGED and the other list view notifications. */
typedef struct NMLISTVIEW {
    NMHDR hdr;
    int32_t iItem;
    int32_t iSubItem;
    uint32_t uNewState;
    uint32_t uOldState;
    uint32_t uChanged; /* LVIF_STATE for a state change */
    POINT ptAction;
    LPARAM lParam;
} NMLISTVIEW;

/* NM_CLICK, NM_DBLCLK and NM_RCLICK of a list view: the item under the pointer. */
typedef struct NMITEMACTIVATE {
    NMHDR hdr;
    int32_t iItem; /* -1 when no item was hit */
    int32_t iSubItem;
    uint32_t uNewState;
    uint32_t uOldState;
    uint32_t uChanged;
    POINT ptAction;
    LPARAM lParam;
    uint32_t uKeyFlags;
} NMITEMACTIVATE;

typedef struct LVITEMW {
    uint32_t mask; /* LVIF_TEXT, LVIF_PARAM, LVIF_STATE */
    int32_t iItem;
    int32_t iSubItem;
    uint32_t state;
    uint32_t stateMask;
    char16_t *pszText;
    int32_t cchTextMax;
    int32_t iImage;
    LPARAM lParam;
    int32_t iIndent;
    int32_t iGroupId;
    uint32_t cColumns;
    uint32_t *puColumns;
    int32_t *piColFmt;
    int32_t iGroup;
} LVITEMW;

typedef struct LVCOLUMNW {
    uint32_t mask; /* LVCF_FMT, LVCF_WIDTH, LVCF_TEXT, LVCF_SUBITEM */
    int32_t fmt;
    int32_t cx; /* width in pixels */
    char16_t *pszText;
    int32_t cchTextMax;
    int32_t iSubItem;
    int32_t iImage;
    int32_t iOrder;
    int32_t cxMin;
    int32_t cxDefault;
    int32_t cxIdeal;
} LVCOLUMNW;

typedef struct LVFINDINFOW {
    uint32_t flags; /* LVFI_PARAM, LVFI_STRING, LVFI_PARTIAL */
    const char16_t *psz;
    LPARAM lParam;
    POINT pt;
    uint32_t vkDirection;
} LVFINDINFOW;

typedef struct TCITEMW {
    uint32_t mask; /* TCIF_TEXT, TCIF_PARAM */
    uint32_t dwState;
    uint32_t dwStateMask;
    char16_t *pszText;
    int32_t cchTextMax;
    int32_t iImage;
    LPARAM lParam;
} TCITEMW;

/* EnumChildWindows callback: nonzero goes on, zero stops the walk. */
typedef int32_t (*WNDENUMPROC)(HWND window, LPARAM parameter);

TABRA_BEGIN_DECLS

/* ---- Dialogs ---- */

/* Creates dialog templateId of the resource library `module`, sends WM_INITDIALOG with
 * `parameter`, shows it and runs a modal loop (posted messages are delivered in
 * order, user input comes from the renderer) until EndDialog; returns the EndDialog
 * result. A null or unknown module, or a template the module does not hold, gives -1.
 * Nested calls (a dialog from a dialog procedure) work. The owner may be null. */
TABRA_API INT_PTR DialogBoxParamW(HMODULE module, int32_t templateId, HWND owner, DLGPROC procedure,
                                  LPARAM parameter);
/* Creates a modeless dialog (a tab or wizard page, usually with parent != null) and
 * sends WM_INITDIALOG; it is shown when its template has WS_VISIBLE. Null on failure.
 * The caller destroys it with DestroyWindow (destroying the parent destroys it too). */
TABRA_API HWND CreateDialogParamW(HMODULE module, int32_t templateId, HWND parent, DLGPROC procedure,
                                  LPARAM parameter);
/* Ends a modal dialog with `result` once its current message returns. A modeless
 * dialog is only hidden. 1 on success, 0 for a stale or non-dialog handle. */
TABRA_API int32_t EndDialog(HWND dialog, INT_PTR result);
/* Destroys a window and its children (WM_DESTROY is sent to each dialog procedure).
 * Destroying a running modal dialog ends its loop with result 0. 1, or 0 when stale. */
TABRA_API int32_t DestroyWindow(HWND window);

/* ---- Messages ---- */

/* Sends a message and returns its result. For a dialog the procedure runs first;
 * when it answers nonzero the result is the DWLP_MSGRESULT slot (the procedure's own
 * answer for WM_INITDIALOG); otherwise the default handling applies (WM_SETTEXT,
 * WM_GETTEXT, WM_GETTEXTLENGTH on the caption, DM_GETDEFID, DM_SETDEFID, WM_CLOSE ->
 * WM_COMMAND IDCANCEL). 0 for a stale handle. */
TABRA_API LRESULT SendMessageW(HWND window, uint32_t message, WPARAM wParam, LPARAM lParam);
/* Queues a message; the innermost running modal loop delivers queued messages in
 * order before it waits for input. 1, or 0 for a stale handle. */
TABRA_API int32_t PostMessageW(HWND window, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API LRESULT SendDlgItemMessageW(HWND dialog, int32_t controlId, uint32_t message, WPARAM wParam,
                                      LPARAM lParam);
/* In-house helpers: the command id and notification code of a WM_COMMAND wParam, and
 * posting WM_COMMAND(id, notification) with the control's handle as lParam. */
TABRA_API int32_t GetWmCommandId(WPARAM wParam);
TABRA_API int32_t GetWmCommandNotif(WPARAM wParam);
TABRA_API int32_t PostWmCommand(HWND dialog, int32_t controlId, int32_t notification);

/* ---- Windows, controls and their state ---- */

TABRA_API HWND GetDlgItem(HWND dialog, int32_t controlId);
TABRA_API int32_t GetDlgCtrlID(HWND control);
TABRA_API HWND GetParent(HWND window);
/* GW_CHILD: first child; GW_HWNDNEXT/GW_HWNDPREV: siblings in creation order;
 * GW_HWNDFIRST/GW_HWNDLAST: first/last sibling; GW_OWNER: a modal dialog's owner. */
TABRA_API HWND GetWindow(HWND window, uint32_t relation);
/* Calls `callback` for every descendant of `parent`, depth first in creation order (a
 * child, then the child's own children, then the next child), until it answers 0.
 * Returns 1 when the walk ran (also with no children), 0 for a stale parent or a null
 * callback. */
TABRA_API int32_t EnumChildWindows(HWND parent, WNDENUMPROC callback, LPARAM parameter);
TABRA_API int32_t IsWindow(HWND window);

/* Text: a dialog's caption or a control's text. GetWindowTextW copies at most
 * capacity - 1 characters, always terminated when capacity >= 1, and returns the
 * number copied (0 for a stale handle or capacity < 1). */
TABRA_API int32_t SetWindowTextW(HWND window, const char16_t *text);
TABRA_API int32_t GetWindowTextW(HWND window, char16_t *buffer, int32_t capacity);
TABRA_API int32_t GetWindowTextLengthW(HWND window);
TABRA_API int32_t SetDlgItemTextW(HWND dialog, int32_t controlId, const char16_t *text);
TABRA_API int32_t GetDlgItemTextW(HWND dialog, int32_t controlId, char16_t *buffer, int32_t capacity);
/* Decimal numbers in a control; `translated` (may be null) receives 1 when the text
 * was a whole number in range. */
TABRA_API int32_t SetDlgItemInt(HWND dialog, int32_t controlId, uint32_t value, int32_t isSigned);
TABRA_API uint32_t GetDlgItemInt(HWND dialog, int32_t controlId, int32_t *translated, int32_t isSigned);

/* Buttons: BST_UNCHECKED, BST_CHECKED, BST_INDETERMINATE. CheckRadioButton checks
 * `checkId` and unchecks every other button with an id from firstId to lastId. */
TABRA_API int32_t CheckDlgButton(HWND dialog, int32_t controlId, uint32_t state);
TABRA_API uint32_t IsDlgButtonChecked(HWND dialog, int32_t controlId);
TABRA_API int32_t CheckRadioButton(HWND dialog, int32_t firstId, int32_t lastId, int32_t checkId);

/* EnableWindow returns nonzero when the window was disabled before. ShowWindow takes
 * SW_HIDE or SW_SHOW (any other value shows) and returns nonzero when it was visible.
 * IsWindowVisible is 1 only when the window and all its parents are visible. */
TABRA_API int32_t EnableWindow(HWND window, int32_t enable);
TABRA_API int32_t IsWindowEnabled(HWND window);
TABRA_API int32_t ShowWindow(HWND window, int32_t command);
TABRA_API int32_t IsWindowVisible(HWND window);

/* Focus lives per top-level dialog; GetFocus answers for the active dialog.
 * SetFocus returns the previous focus of that dialog (null if none or stale). */
TABRA_API HWND SetFocus(HWND window);
TABRA_API HWND GetFocus(void);
/* The innermost running modal dialog (null when none runs). */
TABRA_API HWND GetActiveWindow(void);

/* Slots: GWLP_USERDATA, GWLP_ID, GWL_STYLE, GWL_EXSTYLE, GWLP_HWNDPARENT (read only)
 * and for dialogs DWLP_MSGRESULT, DWLP_DLGPROC, DWLP_USER. Set returns the previous
 * value; an unknown slot or stale handle gives 0. */
TABRA_API LONG_PTR SetWindowLongPtrW(HWND window, int32_t index, LONG_PTR value);
TABRA_API LONG_PTR GetWindowLongPtrW(HWND window, int32_t index);
TABRA_API LONG_PTR SetWindowLongW(HWND window, int32_t index, LONG_PTR value);
TABRA_API LONG_PTR GetWindowLongW(HWND window, int32_t index);

/* ---- Message boxes, beeps, cursors ---- */

/* A modal message box: text, caption (null: "Error" as in Win32) and MB_* style.
 * Returns IDOK, IDCANCEL, IDYES, IDNO, IDABORT, IDRETRY or IDIGNORE. */
TABRA_API int32_t MessageBoxW(HWND owner, const char16_t *text, const char16_t *caption, uint32_t style);
TABRA_API int32_t MessageBeep(uint32_t type);
/* Standard cursors only (IDC_ARROW, IDC_WAIT); the module must be null. */
TABRA_API HCURSOR LoadCursorW(HINSTANCE module, int32_t cursorId);
/* Shows the cursor and returns the previous one. */
TABRA_API HCURSOR SetCursor(HCURSOR cursor);
/* Always answers 1. On screen the position is the pointer's (in screen pixels, as
 * TrackPopupMenu takes it); headless there is no screen, and the position is the
 * centre of the control the user last clicked, in dialog units of its dialog (0, 0
 * before any click). */
TABRA_API int32_t GetCursorPos(POINT *point);

/* ---- Menus ---- */

/* A menu from the resource library (null when missing). GetSubMenu gives the popup at
 * a position (it belongs to its menu: destroy only the top menu). */
TABRA_API HMENU LoadMenuW(HMODULE module, int32_t menuId);
TABRA_API HMENU GetSubMenu(HMENU menu, int32_t position);
TABRA_API int32_t DestroyMenu(HMENU menu);
TABRA_API int32_t GetMenuItemCount(HMENU menu);
TABRA_API uint32_t GetMenuItemID(HMENU menu, int32_t position);
/* MF_BYCOMMAND searches submenus too. Return the previous state (MF_GRAYED /
 * MF_CHECKED bits), or -1 (as uint32_t: 0xFFFFFFFF) when the item is missing. */
TABRA_API uint32_t EnableMenuItem(HMENU menu, uint32_t item, uint32_t flags);
TABRA_API uint32_t CheckMenuItem(HMENU menu, uint32_t item, uint32_t flags);
TABRA_API uint32_t GetMenuState(HMENU menu, uint32_t item, uint32_t flags);
/* Shows a popup menu modally. With TPM_RETURNCMD returns the chosen command (0 when
 * dismissed); otherwise posts WM_COMMAND(command, 0) to the owner and returns nonzero
 * when something was chosen. Greyed items cannot be chosen. */
TABRA_API int32_t TrackPopupMenu(HMENU menu, uint32_t flags, int32_t x, int32_t y, int32_t reserved, HWND owner,
                                 const RECT *reserved2);

/* ---- List view check boxes (LVS_EX_CHECKBOXES) ---- */

/* 1 when the item's box is checked, 0 when unchecked, -1 when it shows none. */
#define ListView_GetCheckState(listView, item) \
    ((int32_t)((((uint32_t)SendMessageW((listView), LVM_GETITEMSTATE, (WPARAM)(item), LVIS_STATEIMAGEMASK)) >> 12) - 1))

/* Checks or unchecks the item's box (item -1: every item); LVN_ITEMCHANGED follows. */
static inline LRESULT ListView_SetCheckState(HWND listView, int32_t item, int32_t checked) {
#ifdef __cplusplus
    LVITEMW change{};
#else
    LVITEMW change = {0};
#endif
    change.stateMask = LVIS_STATEIMAGEMASK;
    change.state = INDEXTOSTATEIMAGEMASK(checked ? 2 : 1);
    return SendMessageW(listView, LVM_SETITEMSTATE, (WPARAM)(intptr_t)item, (LPARAM)&change);
}

TABRA_END_DECLS

#endif
