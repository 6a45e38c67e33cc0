// The one statement a records wizard runs: "DELETE from <table>" or "UPDATE <table> SET
// <assignments>", with " WHERE (<condition>)" when the condition gives one, in 500
// characters; an empty condition changes every record of the table.
#pragma once

#include "wizards/records/records_wizard.h"

#include <optional>
#include <string>

namespace tabra::wizards::records {

// The statement of the wizard's state; nothing when an update has no assignment.
std::optional<std::u16string> recordsStatement(const RecordsWizard &state);

// Builds and runs the statement strictly: only SQL_SUCCESS counts, anything else (an
// informational result or SQL_NO_DATA too) shows the statement's diagnostics with its
// text. False after a failure (shown), a refusal of the statement hook (quiet) or when
// there is no statement.
bool runRecordsStatement(const RecordsWizard &state);

} // namespace tabra::wizards::records
