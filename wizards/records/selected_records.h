// How many records the wizard's condition selects.
#pragma once

#include "wizards/records/records_wizard.h"

#include <cstdint>

namespace tabra::wizards::records {

// The condition's WHERE text (in 10000 characters) counted on the table: every record
// for an empty condition; 0 after a failure of the count, which has been shown.
int32_t countSelectedRecords(const RecordsWizard &state);

} // namespace tabra::wizards::records
