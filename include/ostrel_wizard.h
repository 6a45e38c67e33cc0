/*
 * The in-house wizard frame: one modal dialog that shows a sequence of pages with the
 * buttons Back, Next (Finish on the last page), Cancel and, when asked for, Help.
 *
 * The frame: the wizard's picture on the left, the current page beside it, a line,
 * and the button row below (Help on the left; Back, Next or Finish, and Cancel on the
 * right). It is as large as the largest page of the table plus the picture and the
 * button row. Its title is string titleStringId of the resource library, translated.
 * The frame's own texts ("< &Back", "&Next >", "&Finish", "Cancel", "&Help",
 * "Step %1 of %2") and the texts of every page template are translated with the
 * translation module's table before the page procedure sees them.
 *
 * Pages: each entry of the page table is a dialog template of the resource library
 * (a child template with 7-unit margins of its own, as any dialog has: the frame puts
 * it right beside the picture). A page is created when it is
 * first shown and kept until the frame closes, so its controls keep what the user
 * entered while he goes back and forth. The page's dialog procedure is the frame's:
 * it hands every message to the page procedure together with the wizard handle and
 * the page id. A page receives what a dialog receives (WM_INITDIALOG once, with
 * lParam = the wizard's parameter; WM_COMMAND and WM_NOTIFY from its controls;
 * WM_DESTROY when the frame closes) and the frame's two messages:
 *
 * - enteredMessage (1025 in the library) each time the page becomes the current
 *   one; wParam is WIZZARD_FORWARD when the user came with Next (or the page is the
 *   first one shown), WIZZARD_BACK when he came back with Back; lParam is 0.
 * - leftMessage (1026) when the user leaves the page with Back (wParam
 *   WIZZARD_BACK), Next or Finish (wParam WIZZARD_FORWARD). lParam points at an
 *   int32_t answer that the frame sets to WIZZARD_GO_ON (1) before it sends: a page
 *   writes WIZZARD_STAY (2) to keep the user on it, and then nothing else happens.
 *   Any other answer goes on. So a page without handling of its own, and a page that
 *   ignores Back, let the user pass. Cancel and the close box end the wizard without
 *   this message.
 *
 * Sequence: Back and Next go to the previous / next page of the table that is
 * enabled (Wizzard_EnableSubDialog); a page procedure may switch later pages on and
 * off, also while its page is being left: the frame looks for the next page after
 * the answer. The first page shown is the first enabled one; Back is disabled on it.
 * On the last enabled page Next gives way to Finish, which becomes the default
 * button. (Should the pages after the current one all be switched off while it is
 * being left with Next, the user stays on it and sees Finish.) Help sends the current
 * page WM_COMMAND(IDHELP); a page procedure that answers 0 lets the frame show help
 * topic <page id> of the resource library (Ostrel_PerformHelp).
 *
 * Message boxes and nested modal dialogs a page procedure shows are owned by the
 * frame. The frame is a modal dialog of the window engine: the scripted driver
 * (tabra_script.h) sees it as dialog <imageId> and its pages by their template ids.
 */
#ifndef OSTREL_WIZARD_H
#define OSTREL_WIZARD_H

#include "tabra_base.h"
#include "tabra_window.h"

/* The handle of a running wizard: a 32-bit number, never 0, never given out twice in
 * a process. */
typedef uint32_t HWIZZARD;

/* The page procedure: called for every message of every page, with the page's id
 * (its template id) and window. Answers as a dialog procedure does. */
typedef INT_PTR (*WIZZARDPROC)(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                               LPARAM lParam);

/* The frame's buttons (the buttons argument). The library passes
 * WIZZARD_BUTTONS_STANDARD (15): Back, Next, Finish and Cancel, no Help. A button not
 * asked for is not shown; without Finish the last page has only a disabled Next. */
#define WIZZARD_BUTTON_BACK 0x1u
#define WIZZARD_BUTTON_NEXT 0x2u
#define WIZZARD_BUTTON_FINISH 0x4u
#define WIZZARD_BUTTON_CANCEL 0x8u
#define WIZZARD_BUTTON_HELP 0x10u
#define WIZZARD_BUTTONS_STANDARD 0xFu

/* Options (the last argument). 0: none. WIZZARD_SHOW_STEP shows "Step n of m" in the
 * button row, counting the enabled pages; the import wizard, whose pages change with
 * the source it reads, asks for it. */
#define WIZZARD_SHOW_STEP 0x1u

/* Control ids of the frame. */
#define WIZZARD_ID_BACK 12323
#define WIZZARD_ID_NEXT 12324
#define WIZZARD_ID_FINISH 12325
#define WIZZARD_ID_STEP 12326 /* the "Step n of m" text */
/* Cancel is IDCANCEL (2), Help is IDHELP (9). */

/* wParam of the entered and left messages. */
#define WIZZARD_FORWARD 1
#define WIZZARD_BACK 2
/* Answers to the left message. */
#define WIZZARD_GO_ON 1
#define WIZZARD_STAY 2

TABRA_BEGIN_DECLS

/* Runs a wizard modally. pageTable: page template ids ended by 0. imageId: picture
 * resource of the resource library shown on the left (a namespace of its own; a
 * missing picture leaves the place empty). titleStringId: the frame's title.
 * translationModuleName: the translation module (null: texts stay as they are).
 * Returns 1 when the user pressed Finish on the last enabled page and the page let
 * him go on; 2 otherwise (Cancel, the close box, no renderer input). Bad arguments
 * (null table or procedure, no page, a page template or the module missing) give 2
 * without showing anything. */
TABRA_API int32_t Wizzard_Perform(const int32_t *pageTable, WIZZARDPROC pageProcedure, uint32_t enteredMessage,
                                  uint32_t leftMessage, LPARAM parameter, int32_t imageId, int32_t titleStringId,
                                  HMODULE resourceModule, const char16_t *translationModuleName, uint32_t buttons,
                                  uint32_t options);

/* The parameter of a running wizard, or 0 when there is no such wizard. */
TABRA_API LPARAM Wizzard_GetParam(HWIZZARD wizard);

/* Switches page pageId of a running wizard on (on != 0) or off. A page that is off is
 * skipped by Back and Next and does not count for "last page"; the current page
 * stays shown until the user leaves it. Returns 1, or 0 when there is no such wizard
 * or the page is not in its table. */
TABRA_API int32_t Wizzard_EnableSubDialog(HWIZZARD wizard, int32_t pageId, int32_t on);

TABRA_END_DECLS

#endif
