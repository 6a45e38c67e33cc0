// The id page and the summary. The id page lists the source columns and the destination
// columns and asks whether rows are matched by a pair of id fields; leaving it forward
// keeps both id fields in the registry, and, matching by ids with an id field not
// chosen, warns (message 1632) and still lets the user go on: the copy then inserts
// every row. The summary shows the number of source records.
#include "catalog/record_counts.h"
#include "core/module/module_state.h"
#include "ostrel_registry.h"
#include "ostrel_ui.h"
#include "tabra_catalog.h"
#include "wizards/add_records/add_records_pages.h"

#include <string>

namespace tabra::wizards::add_records {
namespace {

using State = AddRecordsWizardState;
constexpr auto &kPage = ids::kIdPage;

void fillColumns(HWND page, int32_t control, SQLHDBC connection, const std::u16string &table,
                 const std::u16string &current) {
    HWND list = GetDlgItem(page, control);
    Ostrel_FillBox(list, u'\t', nullptr);
    Tabra_FillFieldsBox(connection, table.c_str(), list, 0);
    Ostrel_SetBoxIndex(list, Ostrel_FindBoxEntry(list, current.c_str(), 0, 0));
}

std::u16string chosenColumn(HWND page, int32_t control) {
    char16_t name[kIdFieldCapacity] = {};
    Ostrel_GetBoxEntry(GetDlgItem(page, control), -1, name, kIdFieldCapacity);
    return name;
}

void showIds(HWND page, State &state) {
    fillColumns(page, kPage.sourceFields, state.source.handle(), state.sourceTable, state.sourceIdField);
    fillColumns(page, kPage.destinationFields, state.connection, state.destinationTable(), state.destinationIdField);
    CheckRadioButton(page, kPage.noIds, kPage.matchIds, state.idMode);
}

dialogs::PageAnswer leaveIds(HWND page, State &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    state.idMode = IsDlgButtonChecked(page, kPage.matchIds) == BST_CHECKED ? kPage.matchIds : kPage.noIds;
    state.sourceIdField = chosenColumn(page, kPage.sourceFields);
    state.destinationIdField = chosenColumn(page, kPage.destinationFields);
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, kSourceIdValue,
                                 state.sourceIdField.c_str());
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, kDestinationIdValue,
                                 state.destinationIdField.c_str());
    if (state.matchesIds() && (state.sourceIdField.empty() || state.destinationIdField.empty()))
        ShowMessage(ids::kMessage.emptyIdField, nullptr, nullptr, nullptr);
    return dialogs::PageAnswer::GoOn;
}

void showSummary(HWND page, State &state) {
    const std::string count = std::to_string(catalog::recordCount(state.source.handle(), state.sourceTable.c_str(), nullptr));
    SetDlgItemTextW(page, ids::kSummaryPage.records, std::u16string(count.begin(), count.end()).c_str());
}

} // namespace

extern const dialogs::Dialog<State> kIdPageDialog{.entered = showIds, .left = leaveIds};
extern const dialogs::Dialog<State> kSummaryPageDialog{.entered = showSummary};

} // namespace tabra::wizards::add_records
