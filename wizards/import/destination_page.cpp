// The destination page: the name of the new table. It is proposed from the source (the
// table's name, or the file's name without folder and extension), made unique among
// the destination's tables, each time the fields were read from another source; a name
// the user typed stays otherwise. Leaving forward needs a name that no table or view
// has yet.
#include "catalog/table_existence.h"
#include "catalog/table_operations.h"
#include "core/resource_ids.h"
#include "platform/text/bounded_text.h"
#include "tabra_catalog.h"
#include "wizards/import/import_pages.h"
#include "wizards/import/import_source.h"
#include "wizards/resource_ids.h"

namespace tabra::wizards::importing {
namespace {

constexpr auto &kPage = ids::kDestinationPage;

void limitName(HWND page, ImportWizardState &) {
    SendMessageW(GetDlgItem(page, kPage.tableName), EM_LIMITTEXT, kTableNameCapacity - 1, 0);
}

void showName(HWND page, ImportWizardState &state) {
    if (state.tableProposedFor != state.fieldsReadFrom) {
        state.table = catalog::uniqueTableName(state.connection, proposedTableName(state), kTableNameCapacity);
        state.tableProposedFor = state.fieldsReadFrom;
    }
    const std::u16string name = state.table; // setting the text writes it back
    SetDlgItemTextW(page, kPage.tableName, name.c_str());
}

void nameChanged(HWND page, ImportWizardState &state, int32_t id) {
    state.table = controlText(page, id, kTableNameCapacity);
}

dialogs::PageAnswer leave(HWND page, ImportWizardState &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    int32_t message = 0;
    if (platform::isBlank(state.table)) message = wizards::ids::kMessage.nothingChosen;
    else if (catalog::findInTableList(state.connection, TABRA_TABLE_TYPE_ALL, nullptr, 0, state.table.c_str()) != 0)
        message = core::ids::kMessage.tableNameTaken;
    if (message == 0) return dialogs::PageAnswer::GoOn;
    ShowMessage(message, state.table.c_str(), nullptr, nullptr);
    SetFocus(GetDlgItem(page, kPage.tableName));
    return dialogs::PageAnswer::Stay;
}

constexpr dialogs::Command<ImportWizardState> kCommands[] = {{kPage.tableName, EN_CHANGE, nameChanged}};

} // namespace

extern const dialogs::Dialog<ImportWizardState> kDestinationPageDialog{
    .initialise = limitName, .commands = kCommands, .entered = showName, .left = leave};

} // namespace tabra::wizards::importing
