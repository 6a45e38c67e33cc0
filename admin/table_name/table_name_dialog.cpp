// The table name dialog: asks for a new table's name and keeps the user until it is
// neither empty nor taken.
#include "admin/table_name/table_name_dialog.h"

#include "admin/table_name/resource_ids.h"
#include "catalog/table_existence.h"
#include "core/dialogs/dialog.h"
#include "core/resource_ids.h"
#include "platform/text/bounded_text.h"
#include "tabra_admin.h"
#include "tabra_catalog.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

using tabra::admin::table_name::ids::kOption;
using tabra::admin::table_name::ids::kTableNameDialog;

bool isOption(int32_t control) { return control == kOption.first || control == kOption.second; }

// A record without a name buffer ends the dialog at once.
void showName(HWND dialog, TableNameCtx &record) {
    if (record.name == nullptr || record.capacity < 1) {
        EndDialog(dialog, IDCANCEL);
        return;
    }
    // The proposed name as far as the buffer holds it: it need not be terminated.
    SetDlgItemTextW(dialog, kTableNameDialog.name,
                    std::u16string(record.name, std::find(record.name, record.name + record.capacity, u'\0')).c_str());
    SendDlgItemMessageW(dialog, kTableNameDialog.name, EM_SETSEL, 0, -1);
    if (record.option != nullptr && isOption(*record.option))
        CheckRadioButton(dialog, kOption.first, kOption.second, *record.option);
}

HWND nameField(HWND dialog, TableNameCtx &) { return GetDlgItem(dialog, kTableNameDialog.name); }

// OK: a blank name (1610) or a taken one (1616) keeps the dialog open with the focus
// on the name; otherwise the name goes to the caller's buffer, cut to its capacity,
// and the checked option, if any, through the option pointer.
bool acceptName(HWND dialog, TableNameCtx &record) {
    HWND field = GetDlgItem(dialog, kTableNameDialog.name);
    std::vector<char16_t> name(static_cast<size_t>(GetWindowTextLengthW(field)) + 1);
    GetWindowTextW(field, name.data(), static_cast<int32_t>(name.size()));
    if (tabra::platform::isBlank(name.data())) {
        ShowMessage(tabra::admin::table_name::ids::kMessage.emptyName, nullptr, nullptr, nullptr);
    } else if (tabra::catalog::findInTableList(record.hdbc, TABRA_TABLE_TYPE_ALL, nullptr, 0, name.data()) != 0) {
        ShowMessage(tabra::core::ids::kMessage.tableNameTaken, name.data(), nullptr, nullptr);
    } else {
        size_t length = std::char_traits<char16_t>::length(name.data());
        size_t copied = std::min(length + 1, static_cast<size_t>(record.capacity));
        std::copy_n(name.data(), copied, record.name);
        // The checked option, where the template offers one.
        for (int32_t option : {kOption.first, kOption.second})
            if (record.option != nullptr && IsDlgButtonChecked(dialog, option) == BST_CHECKED) *record.option = option;
        return true;
    }
    SetFocus(field);
    return false;
}

constexpr tabra::dialogs::Dialog<TableNameCtx> kDialog{
    .initialise = showName, .initialFocus = nameField, .accept = acceptName};

} // namespace

extern "C" INT_PTR TableNameDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kDialog.answer(dialog, message, wParam, lParam);
}

namespace tabra::admin {

int32_t runTableNameDialog(int32_t templateId, SQLHDBC connection, char16_t *name, int32_t capacity, int32_t *option) {
    TableNameCtx record{connection, name, capacity, option};
    return dialogs::runModal(templateId, TableNameDialog_Callback, record) == IDOK ? 1 : 2;
}

} // namespace tabra::admin
