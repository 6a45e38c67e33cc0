// The data source dialog: the user picks a data source and types a login. The dialog
// remembers the last user name per data source (never the password) and only
// closes with OK once the login has worked.
#include "core/dialogs/dialog.h"
#include "core/persistence/data_source_dialogs.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "tabra_connection.h"
#include "tabra_window.h"

namespace {

using tabra::core::ids::kDataSourceDialog;

constexpr char16_t kRememberedUsersKey[] = u"DataSourceDialog";

void showRememberedUser(HWND dialog, DataSourceInfo &, int32_t) {
    char16_t name[100] = {};
    char16_t user[50] = {};
    Ostrel_GetBoxEntry(GetDlgItem(dialog, kDataSourceDialog.dataSources), -1, name, 100);
    Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, tabra::module::kRegistryRoot, 0, kRememberedUsersKey, name, u"",
                                  user, 50, 49);
    SetDlgItemTextW(dialog, kDataSourceDialog.user, user);
    SetDlgItemTextW(dialog, kDataSourceDialog.password, u"");
}

// The dialog's state is the caller's record.
void initialise(HWND dialog, DataSourceInfo &record) {
    HWND list = GetDlgItem(dialog, kDataSourceDialog.dataSources);
    Tabra_FillDataSourcesBox(list);
    DataSourceInfo fields = record;
    fields.DataSourceName[99] = fields.UserId[49] = fields.Password[49] = u'\0';
    int32_t found = Ostrel_FindBoxEntry(list, fields.DataSourceName, 0, 0);
    if (fields.DataSourceName[0] != u'\0' && found >= 0) {
        Ostrel_SetBoxIndex(list, found);
        SetDlgItemTextW(dialog, kDataSourceDialog.user, fields.UserId);
        SetDlgItemTextW(dialog, kDataSourceDialog.password, fields.Password);
    } else {
        Ostrel_SetBoxIndex(list, 0);
        PostWmCommand(dialog, kDataSourceDialog.dataSources, LBN_SELCHANGE);
    }
}

// OK: an empty name is refused; otherwise the user name is remembered and the login
// tried on a fresh pair of handles. Only a working login closes the dialog.
bool accept(HWND dialog, DataSourceInfo &record) {
    DataSourceInfo chosen = record; // the reserved tail travels along
    Ostrel_GetBoxEntry(GetDlgItem(dialog, kDataSourceDialog.dataSources), -1, chosen.DataSourceName, 100);
    GetDlgItemTextW(dialog, kDataSourceDialog.user, chosen.UserId, 50);
    GetDlgItemTextW(dialog, kDataSourceDialog.password, chosen.Password, 50);
    if (chosen.DataSourceName[0] == u'\0') {
        ShowMessage(tabra::core::ids::kMessage.emptyDataSourceName, nullptr, nullptr, nullptr);
        return false;
    }
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, tabra::module::kRegistryRoot, 0, kRememberedUsersKey,
                                 chosen.DataSourceName, chosen.UserId);
    SQLHENV environment = SQL_NULL_HENV;
    SQLHDBC connection = SQL_NULL_HDBC;
    int32_t connected = Tabra_ConnectDataSource(&chosen, &environment, &connection);
    Tabra_DisconnectDataSource(&environment, &connection);
    if (connected != 0) return false; // the driver's diagnostic has been shown; the dialog stays
    record = chosen;
    return true;
}

constexpr tabra::dialogs::Command<DataSourceInfo> kCommands[] = {
    {kDataSourceDialog.dataSources, LBN_SELCHANGE, showRememberedUser},
};
constexpr tabra::dialogs::Dialog<DataSourceInfo> kDialog{
    .initialise = initialise, .accept = accept, .commands = kCommands, .doubleClick = {kDataSourceDialog.dataSources}};

} // namespace

extern "C" INT_PTR DataSourceDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kDialog.answer(dialog, message, wParam, lParam);
}

int32_t tabra::persistence::runDataSourceDialog(DataSourceInfo &record) {
    return tabra::dialogs::runModal(kDataSourceDialog.id, DataSourceDialog_Callback, record) == IDOK ? 1 : 2;
}

extern "C" int32_t Tabra_DataSourceDialog(DataSourceInfo *record) {
    if (record == nullptr) return 2;
    return tabra::persistence::runDataSourceDialog(*record);
}
