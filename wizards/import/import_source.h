// The chosen source as a whole: reading its field list when the choice has changed,
// and opening its rows for the import.
#pragma once

#include "wizards/import/import_state.h"
#include "wizards/import/row_source.h"

#include <memory>
#include <string>

namespace tabra::wizards::importing {

// The source kind with everything its field list depends on: for a text file the
// file's signature (text_format.h), for the other files the name (and for an SDI file
// whether the converter is on), for a table the data source and the table.
std::u16string sourceSignature(const ImportWizardState &state);

// Reads the field list of the chosen source unless it was last read from the same
// signature, so that the user's changes to the fields survive going back and forth.
// false after a failure (shown); the list is then empty.
bool readFieldsIfChanged(ImportWizardState &state);

// The rows of the chosen source; null after a failure (shown): a file that cannot be
// opened, or a header that no longer reads.
std::unique_ptr<RowSource> openRows(ImportWizardState &state);

// The name the new table is proposed under: the source table's, or the file's name
// without its folder and extension.
std::u16string proposedTableName(const ImportWizardState &state);

} // namespace tabra::wizards::importing
