// The update wizard's assignment page (10048): the assignments in the rows of
// kAssignmentRows (a column, "set empty", "set to value", "set to column" or "set to
// expression", and the value). Leaving reads the rows back into the assignments (either
// way); leaving forward with rows that give no SET list shows message 1635 and keeps
// the user.
#pragma once

#include "wizards/records/records_wizard.h"

namespace tabra::wizards::records {

extern const dialogs::Dialog<RecordsWizard> kAssignmentPage;

} // namespace tabra::wizards::records
