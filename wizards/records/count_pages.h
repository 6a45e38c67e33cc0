// The pages that tell how many records the wizard changes: the delete wizard's summary
// (10044, the count shown in 2128: string 2163, or 2164 with 0 when the condition
// selects nothing; Finish then still runs the statement), and the update wizard's
// confirmation (10049, string 2166 in 2132; leaving it forward runs the update, and a
// failure keeps the user there) and result (10047, string 2165 in 2131; Back is off
// there, the update has run). The update pages show the count taken when the
// condition page was left.
#pragma once

#include "wizards/records/records_wizard.h"

namespace tabra::wizards::records {

extern const dialogs::Dialog<RecordsWizard> kSummaryPage;
extern const dialogs::Dialog<RecordsWizard> kConfirmationPage;
extern const dialogs::Dialog<RecordsWizard> kResultPage;

} // namespace tabra::wizards::records
