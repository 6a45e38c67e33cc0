// A wizard on the frame (ostrel_wizard.h): its pages are Dialog<State>s of one table,
// and the state handed to the frame carries the wizard's handle (state.wizard).
//
//   extern "C" INT_PTR ExportWizzCallback(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message,
//                                         WPARAM wParam, LPARAM lParam) {
//       return dialogs::answerWizardPage<ExportState>(kPages, wizard, pageId, page, message, wParam, lParam);
//   }
//   ...
//   if (dialogs::performWizard(kPageTable, ExportWizzCallback, *state, ids::kPicture, ids::kTitle) != 1) ...
#pragma once

#include "core/dialogs/dialog.h"
#include "core/module/module_state.h"
#include "ostrel_wizard.h"

#include <cstdint>
#include <span>

namespace tabra::dialogs {

// The page procedure's work: the wizard's state (Wizzard_GetParam) learns its wizard and
// the page's dialog answers the message; 0 while the frame has no state yet.
template <class State>
INT_PTR answerWizardPage(std::span<const Page<State>> pages, HWIZZARD wizard, int32_t pageId, HWND page,
                         uint32_t message, WPARAM wParam, LPARAM lParam) {
    auto *state = reinterpret_cast<State *>(Wizzard_GetParam(wizard));
    if (state == nullptr) return 0;
    state->wizard = wizard;
    return answerPage<State>(pages, pageId, page, *state, message, wParam, lParam);
}

// Runs the frame over the pages of pageTable (0-ended) with the library's resources and
// the standard buttons (options: WIZZARD_SHOW_STEP); 1 when the user finished, else 2.
template <class State>
int32_t performWizard(const int32_t *pageTable, WIZZARDPROC procedure, State &state, int32_t picture, int32_t title,
                      uint32_t options = 0) {
    return Wizzard_Perform(pageTable, procedure, kPageEntered, kPageLeft, reinterpret_cast<LPARAM>(&state), picture,
                           title, module::resourceLibrary(), module::kTranslationModuleName, WIZZARD_BUTTONS_STANDARD,
                           options);
}

} // namespace tabra::dialogs
