// The condition pages (10041 delete, 10045 update): the condition in the rows of
// kConditionRows, five conditions that all hold, over the table's columns. Leaving
// reads the rows back into the condition (either way, so that the rows show it again
// when the user returns).
//
// Delete: showing the page for another table than the one whose columns were loaded
// empties the condition and loads the columns. Update: leaving forward counts the
// records the condition selects; none (or a failed count) shows message 1626 and
// keeps the user.
#pragma once

#include "wizards/records/records_wizard.h"

namespace tabra::wizards::records {

extern const dialogs::Dialog<RecordsWizard> kDeleteConditionPage;
extern const dialogs::Dialog<RecordsWizard> kUpdateConditionPage;

} // namespace tabra::wizards::records
