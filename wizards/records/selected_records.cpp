// Counting the records a condition selects.
#include "wizards/records/selected_records.h"

#include "catalog/record_counts.h"
#include "query/condition_text.h"

namespace tabra::wizards::records {

int32_t countSelectedRecords(const RecordsWizard &state) {
    std::u16string where = query::whereText(state.connection, state.condition, kTextCapacity,
                                            query::kStandardExpansion);
    return catalog::recordCount(state.connection, state.table().c_str(), where.c_str());
}

} // namespace tabra::wizards::records
