// The name page of the create table wizard: the new table's name, which must not be
// empty or taken.
#include "catalog/table_existence.h"
#include "core/resource_ids.h"
#include "platform/text/bounded_text.h"
#include "tabra_catalog.h"
#include "wizards/create_table/create_table_wizard.h"
#include "wizards/resource_ids.h"

namespace tabra::wizards::create_table {
namespace {

constexpr int32_t kName = ids::kNamePage.name;

void limitName(HWND page, CreateTableWizard &) {
    SendDlgItemMessageW(page, kName, EM_LIMITTEXT, kNameCapacity - 1, 0);
}

void showName(HWND page, CreateTableWizard &state) { SetDlgItemTextW(page, kName, state.name.c_str()); }

void nameEdited(HWND page, CreateTableWizard &state, int32_t) {
    char16_t name[kNameCapacity] = {};
    GetDlgItemTextW(page, kName, name, kNameCapacity);
    state.name = name;
}

// Forward only with a name that is not blank and that no table or view has.
dialogs::PageAnswer leaveName(HWND page, CreateTableWizard &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    if (platform::isBlank(state.name))
        ShowMessage(wizards::ids::kMessage.nothingChosen, nullptr, nullptr, nullptr);
    else if (catalog::findInTableList(state.connection, TABRA_TABLE_TYPE_ALL, nullptr, 0, state.name.c_str()) != 0)
        ShowMessage(core::ids::kMessage.tableNameTaken, state.name.c_str(), nullptr, nullptr);
    else
        return dialogs::PageAnswer::GoOn;
    SetFocus(GetDlgItem(page, kName));
    return dialogs::PageAnswer::Stay;
}

constexpr dialogs::Command<CreateTableWizard> kCommands[] = {{kName, EN_CHANGE, nameEdited}};

} // namespace

constinit const dialogs::Dialog<CreateTableWizard> kNamePage{
    .initialise = limitName, .commands = kCommands, .entered = showName, .left = leaveName};

} // namespace tabra::wizards::create_table
