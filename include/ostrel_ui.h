/*
 * The in-house user-interface calls: message boxes from string resources, notices,
 * progress indicators, the file name dialog, help, and the helpers for list boxes,
 * combo boxes, list views and tab controls.
 *
 * "Box" means a list box or a combo box; every box helper accepts both. Indices are
 * 0-based; -1 as an index means "the selected entry" where a call says so. Texts are
 * compared exactly (case-sensitive) unless a call says otherwise.
 */
#ifndef OSTREL_UI_H
#define OSTREL_UI_H

#include "tabra_base.h"
#include "tabra_window.h"

TABRA_BEGIN_DECLS

/* ---- Message boxes ---- */

/* A message from the string table of a resource library. Zero it before use. */
typedef struct OstrelMessageBoxRequest {
    HMODULE module;                     /* resource library holding the strings */
    int32_t captionId;                  /* caption string; 0 or missing: no caption */
    int32_t textId;                     /* message string; its table entry's message-box
                                           style gives buttons and icon (0: MB_OK) */
    const char16_t *translationModule;  /* translation module name (LTS); null: none */
    const char16_t *insert1;            /* text put in place of %1 (null: empty) */
    const char16_t *insert2;            /* ... of %2 */
    const char16_t *insert3;            /* ... of %3 */
    int32_t flag;                       /* reserved; callers pass 1 */
    uint32_t messageCode;               /* shown with the message (0: none) */
    HWND owner;                         /* null: the active window */
} OstrelMessageBoxRequest;

/* Builds caption and text (string, translated, %1 %2 %3 replaced; "%%" is one "%")
 * and shows them modally. Returns the button pressed: IDOK 1, IDCANCEL 2, IDYES 6,
 * IDNO 7, ... When the text string is missing (or the module is null) the message
 * "Message <id>" followed by the inserts is shown with OK and an error icon, so the
 * user still learns that something happened; 0 for a null request. */
TABRA_API int32_t Ostrel_Message_Box(const OstrelMessageBoxRequest *request);

/* ---- Notices ---- */

/* Shows string stringId of the module as a short-lived notice in the colour
 * 0x00BBGGRR. time is in seconds; 0 keeps the notice until DestroyWindow. A timed
 * notice removes itself when its time is up (checked whenever the library handles
 * input), after which DestroyWindow on its handle is harmless (answers 0). Returns the
 * notice's handle, or null when the string is missing. */
TABRA_API HWND Ostrel_DisplayTempWind(HMODULE module, int32_t stringId, int32_t time, uint32_t colour);

/* ---- Dialog fields from the registry ---- */

/* Sets the text of control `control` of dialog to the registry value
 * root\keyPath\subKey:valueName (read as Ostrel_ReadStringFromRegistry does, up to
 * 32767 characters), or to defaultValue when there is none (null: the empty text).
 * Returns the length of the text set, or -1 when the dialog has no such control. The
 * flags are reserved (pass 0). */
TABRA_API int32_t Ostrel_ReadEditFieldFromRegistry(HWND dialog, int32_t control, HKEY root, const char16_t *keyPath,
                                                   uint32_t flags, const char16_t *subKey, const char16_t *valueName,
                                                   const char16_t *defaultValue);

/* ---- Progress indicators ---- */

#define OSTREL_PROGRESS_NO_ABORT 0x1u /* no abort button */

/* A modeless progress window over owner (null: the active window) with a title, a
 * line of text, the range minimum..maximum (maximum below minimum is taken as equal)
 * and an abort button. The position starts at minimum. Null on bad arguments. */
TABRA_API HWND Ostrel_CreateProgressIndicator(HWND owner, const char16_t *title, int32_t minimum,
                                              int32_t maximum);
TABRA_API HWND Ostrel_CreateProgressIndicatorExtended(HWND owner, const char16_t *title, const char16_t *text,
                                                      int32_t minimum, int32_t maximum, uint32_t flags);
/* 1, or 0 for a stale handle. */
TABRA_API int32_t Ostrel_SetProgressIndicatorText(HWND indicator, const char16_t *text);
/* Moves the indicator (clamped to its range) and lets the user act (abort). 1, or 0
 * for a stale handle. */
TABRA_API int32_t Ostrel_UpdateProgressIndicator(HWND indicator, int32_t value);
/* Lets the user act, then answers 1 when the user pressed abort (it stays pressed),
 * else 0 (also for a stale handle). */
TABRA_API int32_t Ostrel_CheckProgressIndicatorAborted(HWND indicator);
/* 1, or 0 for a stale handle. */
TABRA_API int32_t Ostrel_DestroyProgressIndicator(HWND indicator);

/* ---- File names ---- */

#define OSTREL_FILE_OPEN 0 /* choose an existing file */
#define OSTREL_FILE_SAVE 1 /* choose a file to write */

/* Asks for a file name. fileName (capacity characters) holds the proposed name on
 * entry; when it is empty and valueName is given, the last name stored at
 * root\keyPath\subKey:valueName is proposed. The title and filter are strings of the
 * module (0: none); a filter is "Description|pattern;pattern|Description|pattern".
 * On a choice the name is written to fileName (cut to capacity - 1) and, when
 * valueName is given, stored in the registry; returns 1. Cancel returns 0 and leaves
 * fileName as it was; bad arguments return -1. */
TABRA_API int32_t Ostrel_ExtendedFileNameDialog(HWND owner, int32_t mode, HMODULE module, int32_t filterId,
                                                int32_t titleId, HKEY root, const char16_t *keyPath,
                                                const char16_t *subKey, const char16_t *valueName,
                                                char16_t *fileName, int32_t capacity);

/* Makes a new, empty file with a unique name "<folder>/<prefix>XXXXXX" in the folder
 * $TMPDIR names (else /tmp), created exclusively and readable only by the user, and
 * writes its name into buffer. The caller uses it and removes it. Returns 1, or 0 when
 * no file could be made or its name does not fit (the buffer is then emptied, when it
 * can be). */
TABRA_API int32_t CreateTemporaryFileName(char16_t *buffer, int32_t capacity, const char16_t *prefix);

/* ---- File errors ---- */

/* File error codes of Ostrel_ErrorHandler. */
#define OSTREL_FILE_ERROR_ACCESS 2      /* no permission */
#define OSTREL_FILE_ERROR_NOT_FOUND 3   /* the file or its folder does not exist */
#define OSTREL_FILE_ERROR_EXISTS 4      /* the file exists already */
#define OSTREL_FILE_ERROR_TOO_MANY 5    /* too many open files */
#define OSTREL_FILE_ERROR_OTHER 6       /* any other failure */
/* The first message string of the file error texts: code n is string 2950 + n. */
#define OSTREL_FILE_ERROR_STRINGS 2950

/* Shows the message for a file error code about fileName (inserted as %1), with the
 * caption string captionId; texts and caption are strings of module. A code outside
 * 2 to 6 is shown as 6. Returns the button that closed the message. */
TABRA_API int32_t Ostrel_ErrorHandler(HMODULE module, int32_t captionId, int32_t errorCode, const char16_t *fileName);

/* ---- Help ---- */

/* Shows help topic `topic` of the module's help (the renderer shows the topic number;
 * there is no external viewer). Always 1. */
TABRA_API int32_t Ostrel_PerformHelp(HMODULE module, int32_t topic, uint32_t flags);

/* ---- Windows ---- */

/* Centres window over reference (null: its owner or the screen). 1, 0 when stale. */
TABRA_API int32_t Ostrel_CenterWindow(HWND window, HWND reference);

/* ---- List boxes and combo boxes ---- */

/* Fill options of Ostrel_FillBoxExtended. */
#define OSTREL_FILL_WITH_DATA 0x1u /* the list alternates text and item data (decimal) */
#define OSTREL_FILL_UNIQUE 0x2u    /* keep each text once */
#define OSTREL_FILL_APPEND 0x4u    /* keep the entries already there */
#define OSTREL_FILL_SORTED 0x8u    /* sort the new entries by text, ignoring case */

/* Empties the box and adds the separated entries of list (null: only empties).
 * Empty tokens are skipped. Returns the number of entries added, -1 for a bad box. */
TABRA_API int32_t Ostrel_FillBox(HWND box, char16_t separator, const char16_t *list);
TABRA_API int32_t Ostrel_FillBoxExtended(HWND box, char16_t separator, const char16_t *list, uint32_t options);
/* Empties the box (a combo box's edit text too). 1, or 0 for a bad box. */
TABRA_API int32_t Ostrel_ResetBox(HWND box);

/* Add flags of Ostrel_AddBoxEntry. */
#define OSTREL_ADD_UNIQUE 0x2u /* keep each text once: an equal entry is not added again */

/* Adds text with item data at position (-1: at the end, or sorted for a sorted box).
 * With OSTREL_ADD_UNIQUE an existing equal entry's index is returned instead. Returns
 * the entry's index, or -1 (bad box, null text, position beyond the end). */
TABRA_API int32_t Ostrel_AddBoxEntry(HWND box, const char16_t *text, LPARAM data, int32_t position,
                                     uint32_t flags);
/* Copies entry index (-1: the selected one; the first selected one of a multiple-
 * selection list) into buffer. Returns its length, or -1 when there is no such entry
 * or the buffer is null or capacity below 1 (the buffer is then emptied if it can be). */
TABRA_API int32_t Ostrel_GetBoxEntry(HWND box, int32_t index, char16_t *buffer, int32_t capacity);
/* Selects entry index alone (-1 clears the selection) without notifying the dialog.
 * Returns index, or -1 when it is out of range or the box is bad. */
TABRA_API int32_t Ostrel_SetBoxIndex(HWND box, int32_t index);
/* The selected index (the first selected one of a multiple-selection list), or -1. */
TABRA_API int32_t Ostrel_GetBoxIndex(HWND box);
/* The number of entries, -1 for a bad box. */
TABRA_API int32_t Ostrel_GetBoxCount(HWND box);

/* Find flags of Ostrel_FindBoxEntry. */
#define OSTREL_FIND_IGNORE_CASE 0x1u
#define OSTREL_FIND_PREFIX 0x2u

/* The index of the first entry at or after start that equals text (by flags), or -1. */
TABRA_API int32_t Ostrel_FindBoxEntry(HWND box, const char16_t *text, int32_t start, uint32_t flags);
/* Deletes entry position (-1: the selected one). Returns the number of entries left,
 * or -1 when nothing was deleted. */
TABRA_API int32_t Ostrel_DeleteBoxEntry(HWND box, int32_t position);
/* Item data of entry index (-1: the selected one); -1 (LB_ERR) when there is none. */
TABRA_API LPARAM Ostrel_GetItemData(HWND box, int32_t index);
/* 1 for a list box, 0 for anything else. */
TABRA_API int32_t Ostrel_IsListBox(HWND box);

/* Read modes of Ostrel_ReadBox (bits). */
#define OSTREL_READ_TEXTS 0x1u     /* the entries' texts (the default; the bit is accepted) */
#define OSTREL_READ_ITEM_DATA 0x2u /* the entries' item data in decimal instead of texts */
#define OSTREL_READ_SELECTED 0x4u  /* only the selected entries */

/* Writes the entries joined by separator into output: mode 1 every text, 4 or 5 the
 * selected texts, 2 every item data, 6 the selected item data. An entry that does not
 * fit any more ends the output (no partial entry). Returns the number of entries
 * written, -1 on bad arguments. */
TABRA_API int32_t Ostrel_ReadBox(HWND box, char16_t separator, uint32_t mode, char16_t *output,
                                 int32_t capacity);
/* Selects the entries whose texts are in the separated list (a single-selection box:
 * the first one found), the others are deselected unless flags has bit 1. No
 * notification. Returns the number of entries selected by the call, -1 for a bad box. */
TABRA_API int32_t Ostrel_SelectBoxEntries(HWND box, char16_t separator, const char16_t *list, uint32_t flags);
/* Moves entry index (-1: the selected one) by offset places (negative: up), keeping
 * its text, item data and selection, clamped to the list. Returns its new index, or
 * -1 when there is no such entry. */
TABRA_API int32_t Ostrel_MoveBoxEntry(HWND box, int32_t index, int32_t offset);

/* ---- List views ---- */

/* Replaces the columns of a report list view by those of a column list
 * "Title|width|Title|width..." (titles up to 99 characters, widths in pixels, up to 9
 * digits; a missing or bad width gives 100). Returns the number of columns, -1 on bad
 * arguments. */
TABRA_API int32_t Ostrel_ListView_CreateColumns(HWND listView, const char16_t *columnList);
/* Inserts an item at index (-1: at the end) whose column texts are the separated
 * texts (column 0 first) and whose parameter is param. Returns its index, or -1. */
TABRA_API int32_t Ostrel_ListView_InsertItem(HWND listView, int32_t index, const char16_t *texts,
                                             char16_t separator, LPARAM param);

/* ---- Tab controls ---- */

/* Creates dialog templateId of the module as a hidden page of the tab control (its
 * parent is the tab control: GetParent(GetParent(page)) is the dialog), sends it
 * WM_INITDIALOG with parameter, and inserts a tab titled with the page's caption at
 * position (-1: at the end). Returns the tab's index, or -1. */
TABRA_API int32_t Ostrel_AddTabControlItem(HWND tab, int32_t position, HMODULE module, int32_t templateId,
                                           DLGPROC procedure, LPARAM parameter);
/* Makes tab index (-1: the current one) current and shows its page, hiding the
 * others. No notification. Returns the index shown, or -1. */
TABRA_API int32_t Ostrel_ShowTabControlItem(HWND tab, int32_t index);
/* The page of tab index (-1: the current one), or null. */
TABRA_API HWND Ostrel_GetTabControlPage(HWND tab, int32_t index);

TABRA_END_DECLS

#endif
