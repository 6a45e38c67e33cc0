// Creating dialogs from the templates of a resource library: the dialog window, one
// window per control, the default button, WM_INITDIALOG and the first focus.
#pragma once

#include "platform/resources/resource_model.h"
#include "tabra_base.h"

namespace tabra::window {

// The template, or null when the module is not a live resource library or lacks it.
const platform::DialogTemplate *findDialogTemplate(HMODULE module, int32_t templateId);

// Builds the dialog and sends WM_INITDIALOG with parameter. A modal dialog gets
// `parent` as its owner and stays hidden (the modal loop shows it); a modeless dialog
// becomes a child of `parent` (when given) and is visible when its template has
// WS_VISIBLE (and startHidden is false). A top-level dialog whose procedure answers WM_INITDIALOG with nonzero
// gives the focus to its first enabled, visible tab-stop control. Null when the
// template is missing.
HWND createDialog(HMODULE module, int32_t templateId, HWND parent, DLGPROC procedure, LPARAM parameter, bool modal,
                  bool startHidden = false);
// The same from a template the caller made (the in-house frames, which the resource
// library does not hold); the dialog records module and templateId as its origin.
HWND createDialogFromTemplate(const platform::DialogTemplate &dialogTemplate, HMODULE module, int32_t templateId,
                              HWND parent, DLGPROC procedure, LPARAM parameter, bool modal, bool startHidden = false);

// Tells the renderer about a window tree that is complete (see renderer.h): the root
// and every descendant become announced. Does nothing when the root's parent is not
// announced yet (the parent's announcement will carry it).
void announceTree(HWND root);

} // namespace tabra::window
