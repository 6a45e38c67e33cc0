// The import wizard's pages, each a dialog of the dialog base over the wizard's state,
// and the field dialog that the mapping page opens. The closing page has no handling
// of its own.
#pragma once

#include "core/dialogs/dialog.h"
#include "wizards/import/import_state.h"

#include <initializer_list>
#include <string>

namespace tabra::wizards::importing {

extern const dialogs::Dialog<ImportWizardState> kSourceKindPageDialog;
extern const dialogs::Dialog<ImportWizardState> kTextFilePageDialog;
extern const dialogs::Dialog<ImportWizardState> kSdiFilePageDialog;
extern const dialogs::Dialog<ImportWizardState> kSelectionFilePageDialog;
extern const dialogs::Dialog<ImportWizardState> kDataSourcePageDialog;
extern const dialogs::Dialog<ImportWizardState> kSourceTablePageDialog;
extern const dialogs::Dialog<ImportWizardState> kMappingPageDialog;
extern const dialogs::Dialog<ImportWizardState> kDestinationPageDialog;

// Switches the pages of the source kind on and the others off.
void enableSourcePages(const ImportWizardState &state);

// Opens the field dialog on field; true when it ended with OK (the field was changed).
bool editField(ImportField &field);

// What the three file pages share: the file name edit and its browse button, and
// leaving forward, which needs a file name (message 1654), keeps it in the registry
// and reads the file's fields (the user stays when that fails).
void limitFileName(HWND page);
void showFileName(HWND page, const std::u16string &name);
void browseForFile(HWND page, int32_t filterId);
dialogs::PageAnswer leaveFilePage(ImportWizardState &state, dialogs::Leaving direction, const char16_t *registryValue);

// Page helpers several pages share.
std::u16string controlText(HWND page, int32_t id, int32_t capacity);
// The group's checked radio, else its first.
int32_t checkedOf(HWND page, std::initializer_list<int32_t> group);

} // namespace tabra::wizards::importing
