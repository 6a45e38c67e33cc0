// The add records wizard's pages, each a dialog of the dialog base over the wizard's
// state, and the field dialog that the mapping page opens.
#pragma once

#include "core/dialogs/dialog.h"
#include "wizards/add_records/add_records_state.h"

#include <cstdint>
#include <span>
#include <string>

namespace tabra::wizards::add_records {

extern const dialogs::Dialog<AddRecordsWizardState> kDestinationTablePageDialog;
extern const dialogs::Dialog<AddRecordsWizardState> kDataSourcePageDialog;
extern const dialogs::Dialog<AddRecordsWizardState> kSourceTablePageDialog;
extern const dialogs::Dialog<AddRecordsWizardState> kMappingPageDialog;
extern const dialogs::Dialog<AddRecordsWizardState> kIdPageDialog;
extern const dialogs::Dialog<AddRecordsWizardState> kSummaryPageDialog;

// Opens the field dialog on field, offering the source columns; true after OK (the
// descriptor was changed).
bool editField(FieldDescriptor &field, std::span<const SourceColumn> sourceColumns);

// The text of a string resource, translated.
std::u16string label(int32_t id);

} // namespace tabra::wizards::add_records
