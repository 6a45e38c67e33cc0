// The condition pages of the update and delete records wizards.
#include "wizards/records/condition_page.h"

#include "platform/text/case_folding.h"
#include "query/condition_rows.h"
#include "query/operator_tables.h"
#include "wizards/records/resource_ids.h"
#include "wizards/records/selected_records.h"
#include "wizards/resource_ids.h"

namespace tabra::wizards::records {

namespace {

void showCondition(HWND page, RecordsWizard &state) {
    query::showDescriptorInRows(query::kSelectionKind, state.condition.c_str(), state.columns.c_str(), page,
                                ids::kConditionRows);
}

void readCondition(HWND page, RecordsWizard &state) {
    state.condition = query::descriptorFromRows(query::kSelectionKind, page, ids::kConditionRows, kTextCapacity);
}

void showDeleteCondition(HWND page, RecordsWizard &state) {
    std::u16string table = state.table();
    if (!platform::equalIgnoringCase(table, state.loadedTable)) {
        state.condition.clear();
        state.loadColumns();
        state.loadedTable = table;
    }
    showCondition(page, state);
}

dialogs::PageAnswer leaveDeleteCondition(HWND page, RecordsWizard &state, dialogs::Leaving) {
    readCondition(page, state);
    return dialogs::PageAnswer::GoOn;
}

dialogs::PageAnswer leaveUpdateCondition(HWND page, RecordsWizard &state, dialogs::Leaving direction) {
    readCondition(page, state);
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    state.count = countSelectedRecords(state);
    if (state.count > 0) return dialogs::PageAnswer::GoOn;
    ShowMessage(wizards::ids::kMessage.noMatchingRows, nullptr, nullptr, nullptr);
    return dialogs::PageAnswer::Stay;
}

} // namespace

constinit const dialogs::Dialog<RecordsWizard> kDeleteConditionPage{.entered = showDeleteCondition,
                                                                    .left = leaveDeleteCondition};
constinit const dialogs::Dialog<RecordsWizard> kUpdateConditionPage{.entered = showCondition,
                                                                    .left = leaveUpdateCondition};

} // namespace tabra::wizards::records
