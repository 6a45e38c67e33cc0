// The table administration's main dialog: one table's columns in a list, its primary
// key and auto-increment column, and the buttons and context menu of the changes. Every
// change reads the list and the displays again; closing forgets the stored sort
// clauses of the user's queries, which name columns that may be gone.
#include "admin/resource_ids.h"
#include "admin/table_admin/resource_ids.h"
#include "admin/table_admin/table_admin.h"
#include "admin/table_admin/table_admin_request.h"
#include "catalog/column_facts.h"
#include "catalog/primary_keys.h"
#include "core/dialogs/dialog.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "sqltext/statement_formatter.h"
#include "tabra_admin.h"

#include <array>
#include <memory>
#include <new>
#include <string>

namespace tabra::admin::table_admin {
namespace {

using ids::kTableAdminDialog;

constexpr int32_t kTitleCapacity = 150;
constexpr int32_t kKeyCapacity = 400;
constexpr int32_t kAutoIncrementCapacity = 200; // handed to the driver as bytes
constexpr int32_t kDropStatementCapacity = 300;
constexpr int32_t kStringCapacity = 1000;
constexpr char16_t kSortClausesKey[] = u".Default\\Software\\Ostrel Software\\Order By Clauses";

std::u16string resourceString(int32_t id) {
    std::array<char16_t, kStringCapacity> text{};
    module::LoadTranslatedString(module::resourceLibrary(), id, text.data(), kStringCapacity);
    return text.data();
}

// The template's title is a format: the table's name takes the place of "%s".
void showTitle(HWND dialog, const char16_t *table) {
    std::array<char16_t, kTitleCapacity> title{};
    GetWindowTextW(dialog, title.data(), kTitleCapacity);
    std::u16string text = title.data();
    if (auto at = text.find(u"%s"); at != std::u16string::npos) text.replace(at, 2, table);
    SetWindowTextW(dialog, text.substr(0, kTitleCapacity - 1).c_str());
}

void initialise(HWND dialog, TableAdminRequest &request) {
    request.dialog = dialog;
    request.columns = GetDlgItem(dialog, kTableAdminDialog.columns);
    showTitle(dialog, request.table);
    Ostrel_ListView_CreateColumns(request.columns, resourceString(ids::kString.columnHeaders).c_str());
    SendMessageW(request.columns, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    fillColumnList(request);
    refreshKeyDisplays(request);
    Ostrel_CenterWindow(dialog, nullptr);
    selectRow(request.columns, 0);
    updateDeleteButton(request);
}

HWND focusList(HWND, TableAdminRequest &request) { return request.columns; }

// Cancel ends the whole action at once (without reading the table again), No skips
// the column, Yes drops it; a drop that fails or is declined ends the action too.
void deleteColumnsNow(HWND, TableAdminRequest &request, int32_t) { deleteColumns(request); }

void showContextMenu(HWND dialog, TableAdminRequest &request, const NMHDR &) {
    if (selectedCount(request.columns) < 1) return;
    HMENU menu = LoadMenuW(module::resourceLibrary(), ids::kMenu.columns);
    if (menu == nullptr) return;
    POINT at{};
    GetCursorPos(&at);
    int32_t command = TrackPopupMenu(GetSubMenu(menu, 0), TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, dialog, nullptr);
    DestroyMenu(menu);
    if (command == ids::kMenuCommand.addColumn) addColumn(request);
    else if (command == ids::kMenuCommand.deleteColumns) deleteColumns(request);
    updateDeleteButton(request);
    SetFocus(request.columns);
}

void selectionChanged(HWND, TableAdminRequest &request, const NMHDR &) { updateDeleteButton(request); }

// Both buttons close; the stored sort clauses go first.
void close(HWND dialog, TableAdminRequest &, int32_t) {
    Ostrel_DeleteRegistryKey(HKEY_USERS, kSortClausesKey, nullptr);
    EndDialog(dialog, IDOK);
}

void addColumnNow(HWND, TableAdminRequest &request, int32_t) { addColumn(request); }
void addAutoIncrementNow(HWND, TableAdminRequest &request, int32_t) { addAutoIncrementColumn(request); }
void addPrimaryKeyNow(HWND, TableAdminRequest &request, int32_t) { addPrimaryKey(request); }
void dropPrimaryKeyNow(HWND, TableAdminRequest &request, int32_t) { dropPrimaryKey(request); }

INT_PTR forgetWindows(HWND, TableAdminRequest &request, uint32_t message, WPARAM, LPARAM) {
    if (message != WM_DESTROY) return 0;
    request.dialog = nullptr;
    request.columns = nullptr;
    return 0;
}

using Command = dialogs::Command<TableAdminRequest>;
constexpr Command kCommands[] = {
    {kTableAdminDialog.addColumn, BN_CLICKED, addColumnNow},
    {ids::kMenuCommand.addColumn, dialogs::kAnyNotification, addColumnNow},
    {kTableAdminDialog.addAutoIncrement, BN_CLICKED, addAutoIncrementNow},
    {kTableAdminDialog.deleteColumns, BN_CLICKED, deleteColumnsNow},
    {ids::kMenuCommand.deleteColumns, dialogs::kAnyNotification, deleteColumnsNow},
    {kTableAdminDialog.addPrimaryKey, BN_CLICKED, addPrimaryKeyNow},
    {kTableAdminDialog.dropPrimaryKey, BN_CLICKED, dropPrimaryKeyNow},
    {IDOK, dialogs::kAnyNotification, close},
    {IDCANCEL, dialogs::kAnyNotification, close},
};
constexpr dialogs::Notification<TableAdminRequest> kNotifications[] = {
    {kTableAdminDialog.columns, static_cast<int32_t>(LVN_ITEMCHANGED), selectionChanged},
    {kTableAdminDialog.columns, static_cast<int32_t>(NM_RCLICK), showContextMenu},
};
constexpr dialogs::Dialog<TableAdminRequest> kDialog{.initialise = initialise,
                                                     .initialFocus = focusList,
                                                     .commands = kCommands,
                                                     .notifications = kNotifications,
                                                     .otherMessage = forgetWindows};

} // namespace

odbc::RunResult runChangeStatement(SQLHDBC connection, const std::u16string &text) {
    odbc::StatementRunner statement(connection, text.c_str(), {.acceptance = odbc::Acceptance::Strict});
    return statement.run();
}

void refreshKeyDisplays(const TableAdminRequest &request) {
    auto keys = catalog::primaryKeyColumns(request.connection, request.table, 0, u", ", kKeyCapacity);
    std::u16string shown = !keys                       ? resourceString(ids::kString.keyUnreadable)
                           : Ostrel_IsBlankString(keys->c_str()) ? resourceString(ids::kString.noKey)
                                                                 : *keys;
    SetDlgItemTextW(request.dialog, kTableAdminDialog.keyColumns, shown.c_str());
    auto automatic = catalog::firstAutoIncrementColumn(request.connection, request.table, kAutoIncrementCapacity);
    SetDlgItemTextW(request.dialog, kTableAdminDialog.autoIncrementColumn, automatic ? automatic->c_str() : u"");
}

void refreshAfterNewColumn(const TableAdminRequest &request, const std::u16string &column) {
    fillColumnList(request);
    selectRow(request.columns, findColumnRow(request.columns, column));
    refreshKeyDisplays(request);
    updateDeleteButton(request);
}

void updateDeleteButton(const TableAdminRequest &request) {
    EnableWindow(GetDlgItem(request.dialog, kTableAdminDialog.deleteColumns), selectedCount(request.columns) > 0);
}

void deleteColumns(TableAdminRequest &request) {
    const std::vector<SelectedColumn> selected = selectedColumns(request.columns);
    if (selected.empty()) return;
    for (const SelectedColumn &column : selected) {
        int32_t answer = ShowMessage(admin::ids::kMessage.confirmDropColumn, column.name.c_str(), nullptr, nullptr);
        if (answer == IDCANCEL) return;
        if (answer != IDYES) continue;
        std::u16string text = sqltext::formatStatement(request.connection, u"ALTER TABLE %t DROP COLUMN %f",
                                                       {request.table, column.name.c_str()}, kDropStatementCapacity);
        if (runChangeStatement(request.connection, text) != odbc::RunResult::Done) return;
    }
    fillColumnList(request);
    refreshKeyDisplays(request);
    auto rows = static_cast<int32_t>(SendMessageW(request.columns, LVM_GETITEMCOUNT, 0, 0));
    selectRow(request.columns, std::min(selected.front().row, rows - 1));
    updateDeleteButton(request);
    SetFocus(request.columns);
}

} // namespace tabra::admin::table_admin

using namespace tabra::admin::table_admin;

extern "C" INT_PTR TableAdmin_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kDialog.answer(dialog, message, wParam, lParam);
}

int32_t tabra::admin::table_admin::runTableAdmin(SQLHDBC connection, const char16_t *table, int32_t callerValue) {
    std::unique_ptr<TableAdminRequest> request;
    try {
        request = std::make_unique<TableAdminRequest>();
    } catch (const std::bad_alloc &) {
        ShowMessage(tabra::core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
        return -1;
    }
    request->connection = connection;
    OstrelCopyString(request->table, table != nullptr ? table : u"", kTableNameCapacity);
    request->callerValue = callerValue;
    tabra::dialogs::runModal(ids::kTableAdminDialog.id, TableAdmin_Dialog_Callback, *request);
    return 0;
}

extern "C" int32_t Tabra_TableAdmin(SQLHDBC connection, const char16_t *table, int32_t callerValue) {
    return runTableAdmin(connection, table, callerValue);
}
