// The data source dialog: the user picks a data source and types a login. The dialog
// remembers the last user name per data source (never the password) and only
// closes with OK once the login has worked.
#include "core/diagnostics/message_ids.h"
#include "core/module/module_state.h"
#include "core/persistence/picker_dialog.h"
#include "ostrel.h"
#include "tabra_connection.h"
#include "tabra_window.h"

namespace {

constexpr int32_t kDialogTemplate = 103;
constexpr int32_t kDataSourceList = 1004;
constexpr int32_t kUserField = 1002;
constexpr int32_t kPasswordField = 1003;
constexpr char16_t kRememberedUsersKey[] = u"DataSourceDialog";

struct DataSourceDialogState {
    DataSourceInfo *callerRecord = nullptr;
};

void showRememberedUser(HWND dialog, DataSourceDialogState &) {
    char16_t name[100] = {};
    char16_t user[50] = {};
    Ostrel_GetBoxEntry(GetDlgItem(dialog, kDataSourceList), -1, name, 100);
    Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, tabra::module::kRegistryRoot, 0, kRememberedUsersKey, name, u"",
                                  user, 50, 49);
    SetDlgItemTextW(dialog, kUserField, user);
    SetDlgItemTextW(dialog, kPasswordField, u"");
}

void initialise(HWND dialog, DataSourceDialogState &state) {
    DataSourceInfo *record = state.callerRecord;
    LTS_TranslateDialog(dialog, tabra::module::kTranslationModuleName, 0);
    HWND list = GetDlgItem(dialog, kDataSourceList);
    Tabra_FillDataSourcesBox(list);
    DataSourceInfo fields = *record;
    fields.DataSourceName[99] = fields.UserId[49] = fields.Password[49] = u'\0';
    int32_t found = Ostrel_FindBoxEntry(list, fields.DataSourceName, 0, 0);
    if (fields.DataSourceName[0] != u'\0' && found >= 0) {
        Ostrel_SetBoxIndex(list, found);
        SetDlgItemTextW(dialog, kUserField, fields.UserId);
        SetDlgItemTextW(dialog, kPasswordField, fields.Password);
    } else {
        Ostrel_SetBoxIndex(list, 0);
        PostWmCommand(dialog, kDataSourceList, LBN_SELCHANGE);
    }
}

// OK: an empty name is refused; otherwise the user name is remembered and the login
// tried on a fresh pair of handles. Only a working login closes the dialog.
void accept(HWND dialog, DataSourceDialogState &state) {
    DataSourceInfo chosen = *state.callerRecord; // the reserved tail travels along
    Ostrel_GetBoxEntry(GetDlgItem(dialog, kDataSourceList), -1, chosen.DataSourceName, 100);
    GetDlgItemTextW(dialog, kUserField, chosen.UserId, 50);
    GetDlgItemTextW(dialog, kPasswordField, chosen.Password, 50);
    if (chosen.DataSourceName[0] == u'\0') {
        ShowMessage(tabra::message::kEmptyDataSourceName, nullptr, nullptr, nullptr);
        return;
    }
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, tabra::module::kRegistryRoot, 0, kRememberedUsersKey,
                                 chosen.DataSourceName, chosen.UserId);
    SQLHENV environment = SQL_NULL_HENV;
    SQLHDBC connection = SQL_NULL_HDBC;
    int32_t connected = Tabra_ConnectDataSource(&chosen, &environment, &connection);
    Tabra_DisconnectDataSource(&environment, &connection);
    if (connected != 0) return; // the driver's diagnostic has been shown; the dialog stays
    *state.callerRecord = chosen;
    EndDialog(dialog, IDOK);
}

} // namespace

extern "C" INT_PTR DataSourceDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    static constexpr tabra::persistence::PickerDialog<DataSourceDialogState> picker{initialise, accept, kDataSourceList,
                                                                                   showRememberedUser};
    return tabra::persistence::answerPickerMessage(picker, dialog, message, wParam, lParam);
}

extern "C" int32_t Tabra_DataSourceDialog(DataSourceInfo *record) {
    if (record == nullptr) return 2;
    DataSourceDialogState state{record};
    INT_PTR result = DialogBoxParamW(tabra::module::resourceLibrary(), kDialogTemplate, GetActiveWindow(),
                                     DataSourceDialog_Callback, reinterpret_cast<LPARAM>(&state));
    return result == IDOK ? 1 : 2;
}
