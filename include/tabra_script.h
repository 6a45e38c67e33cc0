/*
 * Tabra: the scripted driver, the renderer that plays a user from a script.
 *
 * A host program (or a test) queues user actions; each action waits for one prompt:
 * a dialog (by template id), a message box, a file dialog, a popup menu or a progress
 * indicator. When the library shows that prompt, the action is performed on it. When
 * the library shows a prompt that the next action does not expect, or waits for input
 * with no action left, the run FAILS at once and never hangs: the dialog ends with
 * IDCANCEL (2), a message box answers its cancel-like button (Cancel, else No, else
 * OK), a file dialog is cancelled and a menu returns 0. Once failed, every later
 * prompt is answered the same way without using actions. Everything shown is recorded.
 *
 * The driver is selected by TabraScript_Begin (or the environment variable
 * TABRA_UI=script) and stays selected until TabraScript_End.
 *
 * Script text: one action per line, UTF-8; blank lines and lines starting with "#" are
 * ignored. Texts are in double quotes with the escapes \" \\ \n \r \t \b. An entry
 * is named by its text in quotes or by #index (0-based).
 *
 *   dialog 103: set 1002 "scott"      replace an edit's (or editable combo's) text as a
 *                                     user would (EN_CHANGE / CBN_EDITCHANGE)
 *   dialog 103: type 1002 "ab\b"      type at the end of the text, one WM_CHAR per
 *                                     character (\b is backspace, \n is Enter)
 *   dialog 103: select 1004 "Demo"    select entries of a list box, combo box, list
 *   dialog 103: select 1004 #0 #2     view or tab control (several for a multiple-
 *                                     selection list); notifies like a click
 *   dialog 103: toggle 1004 #1        toggle one entry of a multiple-selection list
 *   dialog 103: check 1026            check / uncheck a check box or radio button
 *   dialog 103: uncheck 1026
 *   dialog 103: check 1002 #1         check / uncheck the box of a list view item
 *   dialog 103: press enter           a key of the dialog: tab, backtab (Shift+Tab),
 *                                     enter (the focused push button, else the
 *                                     default button), escape (Cancel)
 *   dialog 103: click 1               click a button
 *   dialog 103: doubleclick 1004 "x"  double-click an entry (list box, list view)
 *   dialog 103: rightclick 1002 #0    right-click an entry of a list view (NM_RCLICK)
 *   dialog 103: drag 1004 "x" to 1002 #1   drag an entry of a list and drop it on a
 *                                     list before its entry #1 (without one: after
 *                                     the last); see Ostrel_SetListDragDrop
 *   dialog 103: close                 the close box of the dialog (WM_CLOSE)
 *   dialog 103: expect 1002 "scott"   the control's text must be this, else the run fails
 *   message 1702: answer yes          answer a message box (yes no cancel ok abort
 *   message: answer ok                retry ignore); without an id any message matches
 *   file: choose "/tmp/x.txt"         choose a file name (open mode: it must exist)
 *   file: cancel
 *   menu: choose 40004                choose a popup menu command (menu 115: ... waits
 *   menu: cancel                      for menu resource 115 only)
 *   progress: abort                   press abort at the next update of a progress
 *   progress: abort at 50             indicator (or once its position reaches 50)
 *
 * "dialog N" matches the innermost modal dialog when its template is N, or when one of
 * its visible pages (tab or wizard pages) has template N; controls are looked up in
 * that page first, then in the dialog and all its pages (visible ones first). A
 * wizard frame (ostrel_wizard.h) is dialog <picture id>; its buttons are reached from
 * a page's line too: "dialog 10046: click 12324" presses Next on page 10046.
 * Actions on disabled or hidden controls fail the run, as they would stop a user.
 */
#ifndef TABRA_SCRIPT_H
#define TABRA_SCRIPT_H

#include "tabra_base.h"

/* Prompt kinds. */
#define TABRA_PROMPT_DIALOG 1
#define TABRA_PROMPT_MESSAGE 2
#define TABRA_PROMPT_FILE 3
#define TABRA_PROMPT_MENU 4
#define TABRA_PROMPT_PROGRESS 5

/* Record kinds and what their fields hold. */
#define TABRA_RECORD_DIALOG_OPENED 1 /* id template, text caption, detail the file of
                                        its picture (a wizard frame's; empty if none) */
#define TABRA_RECORD_DIALOG_CLOSED 2 /* id template, text caption, value result;
                                        control texts: TabraScript_GetRecordControlText */
#define TABRA_RECORD_MESSAGE 3       /* id string id (0 for MessageBoxW), text, caption,
                                        style MB_* style, code message code, value answer */
#define TABRA_RECORD_NOTICE 4        /* id string id, text, value time, style colour */
#define TABRA_RECORD_PROGRESS 5      /* caption title, text last text, minimum, maximum,
                                        value last position, count updates, code 1 if
                                        aborted; recorded when it is created, updated after */
#define TABRA_RECORD_MENU 6          /* id menu resource id, value command chosen (0 none) */
#define TABRA_RECORD_FILE_DIALOG 7   /* id mode, caption title, detail filter,
                                        text proposed name, value 1 chosen / 0 cancelled,
                                        chosen name in detail2 */
#define TABRA_RECORD_HELP 8          /* id topic */
#define TABRA_RECORD_CURSOR 9        /* id cursor (IDC_WAIT, IDC_ARROW) */
#define TABRA_RECORD_BEEP 10         /* id beep type */
#define TABRA_RECORD_FAILURE 11      /* text what went wrong */
#define TABRA_RECORD_ACTION 12       /* text the action performed, as written */
#define TABRA_RECORD_PAGE 13         /* id template of a wizard page that became the
                                        visible one, value template of its dialog,
                                        text the page's caption */

/* One recorded event. Its texts are never null (empty when not used); they stay valid
 * until the library shows or changes anything again, or the next TabraScript_Begin
 * or TabraScript_End: copy what you keep. */
typedef struct TabraScriptRecord {
    int32_t kind;
    int32_t id;
    int64_t value;
    uint32_t style;
    uint32_t code;
    int32_t minimum;
    int32_t maximum;
    int32_t count;
    const char16_t *text;
    const char16_t *caption;
    const char16_t *detail;
    const char16_t *detail2;
} TabraScriptRecord;

/* A callback action: runs when dialog templateId waits for input, with its handle. It
 * may inspect and change the dialog through the window API. */
typedef void (*TabraScriptCallback)(HWND dialog, void *context);

TABRA_BEGIN_DECLS

/* Selects the scripted driver for this process and starts a new run: the queue, the
 * records and the failure are cleared. */
TABRA_API void TabraScript_Begin(void);
/* Leaves the scripted driver (the normal renderer selection applies again) and clears
 * everything. */
TABRA_API void TabraScript_End(void);

/* Queues one action line of the script text. 1 when queued; 0 when the line is not
 * an action (the reason is in the report and TabraScript_LastError), nothing queued. */
TABRA_API int32_t TabraScript_Queue(const char16_t *line);
TABRA_API int32_t TabraScript_QueueUtf8(const char *line);
/* Queues every action of a script text / file (path in UTF-8). Returns the number of
 * actions queued, or -1 when any line is wrong (then nothing is queued; the error
 * names the line). */
TABRA_API int32_t TabraScript_LoadText(const char16_t *text);
TABRA_API int32_t TabraScript_LoadFile(const char *path);
/* Queues a callback action for dialog templateId. 1, or 0 for a null callback. */
TABRA_API int32_t TabraScript_QueueCallback(int32_t templateId, TabraScriptCallback callback, void *context);

/* 1 when the run failed, else 0. */
TABRA_API int32_t TabraScript_Failed(void);
/* The number of actions not used yet. */
TABRA_API int32_t TabraScript_PendingCount(void);
/* The last parse or load error (UTF-8, empty when none): copies at most capacity - 1
 * bytes and returns the whole length. */
TABRA_API int32_t TabraScript_LastError(char *buffer, int32_t capacity);
/* A readable report of the run: what was shown, the actions used, the failures and
 * the actions left. Copies at most capacity - 1 characters (terminated when capacity
 * >= 1; buffer may be null) and returns the length of the whole report. */
TABRA_API int32_t TabraScript_Report(char16_t *buffer, int32_t capacity);
TABRA_API int32_t TabraScript_ReportUtf8(char *buffer, int32_t capacity);

/* The records in the order they happened. */
TABRA_API int32_t TabraScript_RecordCount(void);
/* 1 and the record, or 0 when index is out of range or record is null. */
TABRA_API int32_t TabraScript_GetRecord(int32_t index, TabraScriptRecord *record);
/* The index of the first record of kind (and id, unless id is -1) at or after start,
 * or -1. */
TABRA_API int32_t TabraScript_FindRecord(int32_t kind, int32_t id, int32_t start);
/* For a TABRA_RECORD_DIALOG_CLOSED record: the text control controlId had when the
 * dialog closed (pages included). Returns its length (copied as GetWindowTextW does),
 * or -1 when the record or control is not there. */
TABRA_API int32_t TabraScript_GetRecordControlText(int32_t index, int32_t controlId, char16_t *buffer,
                                                   int32_t capacity);

TABRA_END_DECLS

#endif
