// Modal dialogs: create, show, run the loop until EndDialog, destroy.
#pragma once

#include "platform/resources/resource_model.h"
#include "tabra_base.h"

namespace tabra::window {

// DialogBoxParamW: -1 when the module or template is missing, else the dialog result.
INT_PTR runModalDialog(HMODULE module, int32_t templateId, HWND owner, DLGPROC procedure, LPARAM parameter);
// The same for a template the caller made (see createDialogFromTemplate).
INT_PTR runModalDialogFromTemplate(const platform::DialogTemplate &dialogTemplate, HMODULE module, int32_t templateId,
                                   HWND owner, DLGPROC procedure, LPARAM parameter);

// Runs the modal loop of a dialog that already exists and is announced: delivers
// posted messages in order, otherwise waits for input from the renderer, until the
// dialog ended or was destroyed. A renderer that can give no more input ends the
// dialog with IDCANCEL.
void runModalLoop(HWND dialog);

} // namespace tabra::window
