// Page 3 of the export wizard: which records, as up to five conditions that all hold,
// on the selection-descriptor control rows. Leaving it counts the records the
// condition selects; none (or a count that failed) keeps the user on the page.
#include "catalog/record_counts.h"
#include "query/condition_rows.h"
#include "query/condition_text.h"
#include "wizards/export/export_pages.h"
#include "wizards/resource_ids.h"

namespace tabra::wizards::exporting {
namespace {

constexpr auto &kPage = ids::kConditionPage;
constexpr ConditionRow kRows[] = {{kPage.column1, kPage.operator1, kPage.value1},
                                  {kPage.column2, kPage.operator2, kPage.value2},
                                  {kPage.column3, kPage.operator3, kPage.value3},
                                  {kPage.column4, kPage.operator4, kPage.value4},
                                  {kPage.column5, kPage.operator5, kPage.value5},
                                  {0, 0, 0}};

void showCondition(HWND page, ExportWizardState &state) {
    query::showDescriptorInRows(TABRA_SELECTION_OPERATORS, state.condition.c_str(), state.fieldNames.c_str(), page,
                                kRows);
}

dialogs::PageAnswer leave(HWND page, ExportWizardState &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    state.condition = query::descriptorFromRows(TABRA_SELECTION_OPERATORS, page, kRows, kConditionCapacity);
    std::u16string clause =
        query::whereText(state.connection, state.condition, kConditionCapacity, query::kStandardExpansion);
    int32_t count = catalog::recordCount(state.connection, state.table().c_str(), clause.c_str());
    if (count > 0) {
        state.recordCount = count;
        return dialogs::PageAnswer::GoOn;
    }
    ShowMessage(wizards::ids::kMessage.noMatchingRows, nullptr, nullptr, nullptr);
    return dialogs::PageAnswer::Stay;
}

} // namespace

extern const dialogs::Dialog<ExportWizardState> kConditionPageDialog{.entered = showCondition, .left = leave};

} // namespace tabra::wizards::exporting
