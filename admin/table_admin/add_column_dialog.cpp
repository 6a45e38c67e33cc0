// Adding a column: its name, a type of the shared column type table and, for types
// that take one, a length; the column is added by ALTER TABLE ... ADD with the
// database's column type and its column suffix.
#include "admin/table_admin/resource_ids.h"
#include "admin/table_admin/table_admin_request.h"
#include "catalog/column_types.h"
#include "core/connection/capabilities.h"
#include "core/dialogs/dialog.h"
#include "core/module/module_state.h"
#include "ostrel.h"
#include "sqltext/statement_formatter.h"
#include "tabra_admin.h"
#include "tabra_catalog.h"

#include <array>
#include <string>

namespace tabra::admin::table_admin {
namespace {

using ids::kAddColumnDialog;

constexpr int32_t kNameCapacity = 100;
constexpr int32_t kLabelCapacity = 100;
constexpr int32_t kDefaultLength = 50;
constexpr int32_t kTypeTextCapacity = 100;
constexpr int32_t kStatementCapacity = 200;

struct AddColumnState {
    const TableAdminRequest &request;
    const connection::Capabilities &database;
    std::u16string name;
    int32_t typeIndex = 0;
    int32_t length = 0;
    bool required = false; // read and kept; the suffix does not depend on it
};

const catalog::ColumnType &chosenType(HWND dialog) {
    LPARAM index = Ostrel_GetItemData(GetDlgItem(dialog, kAddColumnDialog.type), -1);
    return catalog::columnTypeAt(static_cast<int32_t>(index));
}

bool hasSuffix(const connection::Capabilities &database, const catalog::ColumnType &type) {
    return !Ostrel_IsBlankString(database.suffixFor(type.tabraDataType));
}

// The length (with its label) only for types that take one; the NOT NULL option only
// where the database writes a suffix for the type, and then checked, as it applies.
void showTypeOptions(HWND dialog, AddColumnState &state, int32_t) {
    const catalog::ColumnType &type = chosenType(dialog);
    for (int32_t control : {kAddColumnDialog.length, kAddColumnDialog.lengthLabel})
        ShowWindow(GetDlgItem(dialog, control), type.needsLength ? SW_SHOW : SW_HIDE);
    bool suffix = hasSuffix(state.database, type);
    EnableWindow(GetDlgItem(dialog, kAddColumnDialog.required), suffix);
    CheckDlgButton(dialog, kAddColumnDialog.required, suffix ? BST_CHECKED : BST_UNCHECKED);
}

void nameChanged(HWND dialog, AddColumnState &, int32_t) {
    std::array<char16_t, kNameCapacity> name{};
    GetDlgItemTextW(dialog, kAddColumnDialog.name, name.data(), kNameCapacity);
    EnableWindow(GetDlgItem(dialog, IDOK), !Ostrel_IsBlankString(name.data()));
}

void initialise(HWND dialog, AddColumnState &state) {
    HWND types = GetDlgItem(dialog, kAddColumnDialog.type);
    for (size_t row = 0; row < catalog::kColumnTypes.size() && catalog::kColumnTypes[row].tabraDataType != 0; ++row) {
        std::array<char16_t, kLabelCapacity> label{};
        module::LoadTranslatedString(module::resourceLibrary(), catalog::kColumnTypes[row].label, label.data(),
                                     kLabelCapacity);
        Ostrel_AddBoxEntry(types, label.data(), static_cast<LPARAM>(row), -1, 0);
    }
    Ostrel_SetBoxIndex(types, 0);
    std::array<char16_t, kLabelCapacity> lengthLabel{};
    module::LoadTranslatedString(module::resourceLibrary(), ids::kString.lengthLabel, lengthLabel.data(),
                                 kLabelCapacity);
    SetDlgItemTextW(dialog, kAddColumnDialog.lengthLabel, lengthLabel.data());
    SetDlgItemInt(dialog, kAddColumnDialog.length, kDefaultLength, 0);
    SetDlgItemTextW(dialog, kAddColumnDialog.name, u"");
    showTypeOptions(dialog, state, kAddColumnDialog.type);
    nameChanged(dialog, state, kAddColumnDialog.name);
    Ostrel_CenterWindow(dialog, nullptr);
}

HWND focusName(HWND dialog, AddColumnState &) { return GetDlgItem(dialog, kAddColumnDialog.name); }

bool accept(HWND dialog, AddColumnState &state) {
    std::array<char16_t, kNameCapacity> name{};
    GetDlgItemTextW(dialog, kAddColumnDialog.name, name.data(), kNameCapacity);
    int32_t translated = 0;
    auto length = static_cast<int32_t>(GetDlgItemInt(dialog, kAddColumnDialog.length, &translated, 1));
    if (!translated) length = 0;
    const catalog::ColumnType &type = chosenType(dialog);
    if (type.needsLength && length < 1) {
        ShowMessage(ids::kMessage.lengthMissing, nullptr, nullptr, nullptr);
        return false;
    }
    if (Tabra_DoesFieldExist(state.request.connection, state.request.table, name.data()) == 1) {
        ShowMessage(ids::kMessage.columnExists, name.data(), nullptr, nullptr);
        return false;
    }
    state.name = name.data();
    state.typeIndex = static_cast<int32_t>(&type - catalog::kColumnTypes.data());
    state.length = length;
    state.required = IsDlgButtonChecked(dialog, kAddColumnDialog.required) == BST_CHECKED;
    return true;
}

using Command = dialogs::Command<AddColumnState>;
constexpr Command kCommands[] = {
    {kAddColumnDialog.type, CBN_SELCHANGE, showTypeOptions},
    {kAddColumnDialog.name, EN_CHANGE, nameChanged},
};
constexpr dialogs::Dialog<AddColumnState> kDialog{
    .initialise = initialise, .initialFocus = focusName, .accept = accept, .commands = kCommands};

} // namespace

// The suffix (NOT NULL with a default of the column's kind) is written whenever the
// database has one for the type, whatever the check box says: the box only tells the
// user so.
void addColumn(TableAdminRequest &request) {
    AddColumnState state{request, connection::capabilities(request.connection), {}};
    if (dialogs::runModal(kAddColumnDialog.id, AddColumn_Dialog_Callback, state, request.dialog) != IDOK) return;
    const catalog::ColumnType &type = catalog::columnTypeAt(state.typeIndex);
    std::u16string typeText = catalog::columnTypeText(state.database, type, state.length).substr(0, kTypeTextCapacity - 1);
    const char16_t *suffix = state.database.suffixFor(type.tabraDataType);
    std::u16string text =
        sqltext::formatStatement(request.connection, u"ALTER TABLE %t ADD %f %s%s",
                                 {request.table, state.name.c_str(), typeText.c_str(), suffix}, kStatementCapacity);
    if (runChangeStatement(request.connection, text) != odbc::RunResult::Done) return;
    refreshAfterNewColumn(request, state.name);
}

} // namespace tabra::admin::table_admin

extern "C" INT_PTR AddColumn_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::admin::table_admin::kDialog.answer(dialog, message, wParam, lParam);
}
