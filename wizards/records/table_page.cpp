// The table page of the update and delete records wizards.
#include "wizards/records/table_page.h"

#include "catalog/table_list.h"
#include "ostrel_ui.h"
#include "wizards/records/resource_ids.h"
#include "wizards/resource_ids.h"

namespace tabra::wizards::records {

namespace {

constexpr int32_t kTables = ids::kDeleteTablePage.tables;
static_assert(ids::kUpdateTablePage.tables == kTables, "both table pages list the tables in one control");
constexpr int32_t kTableListCapacity = 30000;

std::u16string chosenTable(HWND list) {
    char16_t name[kTableNameCapacity] = {};
    Ostrel_GetBoxEntry(list, -1, name, kTableNameCapacity);
    return name;
}

void showTables(HWND page, RecordsWizard &state) {
    HWND list = GetDlgItem(page, kTables);
    auto tables = catalog::tableList(state.connection, state.object.DbObjectType, nullptr, 0, kTableListCapacity, u"\t");
    if (tables) Ostrel_FillBoxExtended(list, u'\t', tables->c_str(), 0);
    int32_t found = Ostrel_FindBoxEntry(list, state.table().c_str(), 0, 0);
    Ostrel_SetBoxIndex(list, found >= 0 ? found : 0);
}

void tableChosen(HWND page, RecordsWizard &state, int32_t) {
    state.setTable(chosenTable(GetDlgItem(page, kTables)));
    if (state.operation != Operation::Update) return;
    state.condition.clear();
    state.assignments.clear();
}

dialogs::PageAnswer leaveTables(HWND page, RecordsWizard &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    HWND list = GetDlgItem(page, kTables);
    if (Ostrel_GetBoxIndex(list) < 0) {
        ShowMessage(wizards::ids::kMessage.nothingChosen, nullptr, nullptr, nullptr);
        SetFocus(list);
        return dialogs::PageAnswer::Stay;
    }
    state.setTable(chosenTable(list));
    if (state.operation == Operation::Update) state.loadColumns();
    return dialogs::PageAnswer::GoOn;
}

constexpr dialogs::Command<RecordsWizard> kCommands[] = {{kTables, LBN_SELCHANGE, tableChosen}};

} // namespace

constinit const dialogs::Dialog<RecordsWizard> kTablePage{
    .commands = kCommands, .entered = showTables, .left = leaveTables};

} // namespace tabra::wizards::records
