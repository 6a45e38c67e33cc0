// The export wizard's pages, each a dialog of the dialog base over the wizard's state
// (one file each), and the field dialog that the fields page opens.
#pragma once

#include "core/dialogs/dialog.h"
#include "wizards/export/export_state.h"

namespace tabra::wizards::exporting {

extern const dialogs::Dialog<ExportWizardState> kTablePageDialog;
extern const dialogs::Dialog<ExportWizardState> kFieldsPageDialog;
extern const dialogs::Dialog<ExportWizardState> kConditionPageDialog;
extern const dialogs::Dialog<ExportWizardState> kFilePageDialog;
extern const dialogs::Dialog<ExportWizardState> kSummaryPageDialog;

// Opens the field dialog on field over the page; true when it ended with OK (the field
// was changed).
bool editField(ExportField &field);

} // namespace tabra::wizards::exporting
