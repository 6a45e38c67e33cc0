// The first page of both wizards (10043 delete, 10046 update): the tables of the
// record's object type in list 1005, the record's table selected (the first one when
// it is not listed). Choosing a table makes it the record's; on the update wizard it
// also empties the condition and the assignments. Leaving forward without a table
// chosen shows message 1625 and keeps the user; the update wizard then loads the
// table's columns (the delete wizard does so on its condition page).
#pragma once

#include "wizards/records/records_wizard.h"

namespace tabra::wizards::records {

extern const dialogs::Dialog<RecordsWizard> kTablePage;

} // namespace tabra::wizards::records
