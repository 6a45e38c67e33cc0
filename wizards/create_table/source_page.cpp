// The source page of the create table wizard: the table whose structure is copied.
#include "catalog/table_list.h"
#include "ostrel_registry.h"
#include "ostrel_ui.h"
#include "tabra_catalog.h"
#include "wizards/create_table/create_table_wizard.h"
#include "wizards/list_choice.h"

namespace tabra::wizards::create_table {
namespace {

constexpr int32_t kTables = ids::kSourcePage.tables;
constexpr int32_t kTableListCapacity = 30000;

std::u16string chosenTable(HWND list) {
    char16_t name[kNameCapacity] = {};
    Ostrel_GetBoxEntry(list, -1, name, kNameCapacity);
    return name;
}

// The tables, the remembered source chosen (the first table when it is not there).
void showTables(HWND page, CreateTableWizard &state) {
    HWND list = GetDlgItem(page, kTables);
    auto tables = catalog::tableList(state.connection, TABRA_TABLE_TYPE_TABLE, nullptr, 0, kTableListCapacity, u"\t");
    Ostrel_FillBoxExtended(list, u'\t', tables ? tables->c_str() : nullptr, 0);
    int32_t found = Ostrel_FindBoxEntry(list, state.source.c_str(), 0, 0);
    Ostrel_SetBoxIndex(list, found >= 0 ? found : 0);
}

void tableChosen(HWND page, CreateTableWizard &state, int32_t) { state.source = chosenTable(GetDlgItem(page, kTables)); }

dialogs::PageAnswer leaveTables(HWND page, CreateTableWizard &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    HWND list = GetDlgItem(page, kTables);
    if (!listHasChoice(list)) return dialogs::PageAnswer::Stay;
    state.source = chosenTable(list);
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, kSourceValue,
                                 state.source.c_str());
    return dialogs::PageAnswer::GoOn;
}

constexpr dialogs::Command<CreateTableWizard> kCommands[] = {{kTables, LBN_SELCHANGE, tableChosen}};

} // namespace

constinit const dialogs::Dialog<CreateTableWizard> kSourcePage{
    .commands = kCommands, .entered = showTables, .left = leaveTables};

} // namespace tabra::wizards::create_table
