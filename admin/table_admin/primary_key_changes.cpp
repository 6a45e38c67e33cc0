// Adding and dropping the primary key: the user chooses the key's columns in order
// from the table's NOT NULL columns; the database's own statement makes the change,
// or, where it has none, the table is rebuilt with the changed key.
#include "admin/resource_ids.h"
#include "admin/table_admin/resource_ids.h"
#include "admin/table_admin/table_admin_request.h"
#include "admin/table_admin/table_rebuild.h"
#include "catalog/field_list.h"
#include "catalog/primary_keys.h"
#include "core/connection/capabilities.h"
#include "core/dialogs/dialog.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "sqltext/sql92_names.h"
#include "sqltext/statement_formatter.h"
#include "tabra_admin.h"
#include "tabra_catalog.h"

#include <array>
#include <optional>
#include <string>

namespace tabra::admin::table_admin {
namespace {

using ids::kAddPrimaryKeyDialog;

constexpr int32_t kKeyCapacity = 1000;
constexpr int32_t kChosenCapacity = 1000;
constexpr int32_t kColumnListCapacity = 30000;
constexpr int32_t kKeyNameCapacity = 100;
constexpr int32_t kAddStatementCapacity = 200;
constexpr int32_t kDropStatementCapacity = 300;

struct AddPrimaryKeyState {
    const TableAdminRequest &request;
    std::u16string chosen; // tab-separated, in key order
};

HWND item(HWND dialog, int32_t id) { return GetDlgItem(dialog, id); }

// Add while a column is chosen, remove while a key column is; up from the second,
// down before the last.
void updateButtons(HWND dialog, AddPrimaryKeyState &, int32_t) {
    HWND chosen = item(dialog, kAddPrimaryKeyDialog.chosen);
    int32_t at = Ostrel_GetBoxIndex(chosen);
    int32_t count = Ostrel_GetBoxCount(chosen);
    EnableWindow(item(dialog, kAddPrimaryKeyDialog.add), Ostrel_GetBoxIndex(item(dialog, kAddPrimaryKeyDialog.available)) >= 0);
    EnableWindow(item(dialog, kAddPrimaryKeyDialog.remove), at >= 0);
    EnableWindow(item(dialog, kAddPrimaryKeyDialog.up), at >= 1);
    EnableWindow(item(dialog, kAddPrimaryKeyDialog.down), at >= 0 && at < count - 1);
}

void initialise(HWND dialog, AddPrimaryKeyState &state) {
    SetDlgItemTextW(dialog, kAddPrimaryKeyDialog.table, state.request.table);
    HWND available = item(dialog, kAddPrimaryKeyDialog.available);
    Ostrel_FillBox(available, u'\t', nullptr);
    if (auto columns = catalog::fieldList(state.request.connection, state.request.table, TABRA_FIELDS_NOT_NULL_ONLY,
                                          u"\t", kColumnListCapacity))
        Ostrel_FillBox(available, u'\t', columns->c_str());
    Ostrel_FillBox(item(dialog, kAddPrimaryKeyDialog.chosen), u'\t', nullptr);
    updateButtons(dialog, state, 0);
    Ostrel_CenterWindow(dialog, nullptr);
}

// The same column may be chosen twice; the database answers for that.
void addChosen(HWND dialog, AddPrimaryKeyState &state, int32_t) {
    std::array<char16_t, kKeyNameCapacity> column{};
    if (Ostrel_GetBoxEntry(item(dialog, kAddPrimaryKeyDialog.available), -1, column.data(), kKeyNameCapacity) < 0) return;
    HWND chosen = item(dialog, kAddPrimaryKeyDialog.chosen);
    Ostrel_SetBoxIndex(chosen, Ostrel_AddBoxEntry(chosen, column.data(), 0, -1, 0));
    updateButtons(dialog, state, 0);
}

void removeChosen(HWND dialog, AddPrimaryKeyState &state, int32_t) {
    HWND chosen = item(dialog, kAddPrimaryKeyDialog.chosen);
    int32_t at = Ostrel_GetBoxIndex(chosen);
    if (at < 0) return;
    int32_t left = Ostrel_DeleteBoxEntry(chosen, at);
    Ostrel_SetBoxIndex(chosen, std::min(at, left - 1));
    updateButtons(dialog, state, 0);
}

void moveChosen(HWND dialog, AddPrimaryKeyState &state, int32_t control) {
    Ostrel_MoveBoxEntry(item(dialog, kAddPrimaryKeyDialog.chosen), -1, control == kAddPrimaryKeyDialog.up ? -1 : 1);
    updateButtons(dialog, state, 0);
}

bool accept(HWND dialog, AddPrimaryKeyState &state) {
    HWND chosen = item(dialog, kAddPrimaryKeyDialog.chosen);
    if (Ostrel_GetBoxCount(chosen) < 1) {
        ShowMessage(ids::kMessage.noKeyColumnChosen, nullptr, nullptr, nullptr);
        return false;
    }
    std::array<char16_t, kChosenCapacity> list{};
    Ostrel_ReadBox(chosen, u'\t', OSTREL_READ_TEXTS, list.data(), kChosenCapacity);
    state.chosen = list.data();
    return true;
}

using Command = dialogs::Command<AddPrimaryKeyState>;
constexpr Command kCommands[] = {
    {kAddPrimaryKeyDialog.add, BN_CLICKED, addChosen},
    {kAddPrimaryKeyDialog.available, LBN_DBLCLK, addChosen},
    {kAddPrimaryKeyDialog.remove, BN_CLICKED, removeChosen},
    {kAddPrimaryKeyDialog.chosen, LBN_DBLCLK, removeChosen},
    {kAddPrimaryKeyDialog.up, BN_CLICKED, moveChosen},
    {kAddPrimaryKeyDialog.down, BN_CLICKED, moveChosen},
    {kAddPrimaryKeyDialog.available, LBN_SELCHANGE, updateButtons},
    {kAddPrimaryKeyDialog.chosen, LBN_SELCHANGE, updateButtons},
};
constexpr dialogs::Dialog<AddPrimaryKeyState> kDialog{.initialise = initialise, .accept = accept, .commands = kCommands};

// The key's columns as the catalog gives them ("," between them); nullopt when they
// cannot be read.
std::optional<std::u16string> keyColumns(const TableAdminRequest &request) {
    return catalog::primaryKeyColumns(request.connection, request.table, 0, u",", kKeyCapacity);
}

void showNotice(int32_t stringId) {
    Ostrel_DisplayTempWind(module::resourceLibrary(), stringId, module::kMessageWindowTime, module::kMessageWindowColour);
}

} // namespace

void addPrimaryKey(TableAdminRequest &request) {
    if (auto keys = keyColumns(request); keys && !Ostrel_IsBlankString(keys->c_str())) {
        ShowMessage(ids::kMessage.keyExists, nullptr, nullptr, nullptr);
        return;
    }
    const connection::Capabilities &database = connection::capabilities(request.connection);
    if (database.addPrimaryKeyStatement == nullptr && !database.rebuildsTableForKeys) {
        ShowMessage(core::ids::kMessage.notPossibleHere, nullptr, nullptr, nullptr);
        return;
    }
    AddPrimaryKeyState state{request, {}};
    if (dialogs::runModal(kAddPrimaryKeyDialog.id, AddPk_Dialog_Callback, state, request.dialog) != IDOK) return;
    const std::u16string columns = sqltext::prepareNameList(request.connection, state.chosen, kKeyCapacity, u'\t', u',');
    bool added;
    if (database.addPrimaryKeyStatement != nullptr) {
        std::u16string text = sqltext::formatStatement(request.connection, database.addPrimaryKeyStatement,
                                                       {request.table, columns.c_str()}, kAddStatementCapacity);
        added = runChangeStatement(request.connection, text) == odbc::RunResult::Done;
    } else {
        added = rebuildTable(request.connection, request.table, [&](TableDefinition &definition) {
                    if (definition.hasPrimaryKey()) return false;
                    definition.addTableConstraint(u"PRIMARY KEY (" + columns + u")");
                    return true;
                }) == RebuildResult::Done;
    }
    if (!added) return;
    showNotice(ids::kString.keyAdded);
    refreshKeyDisplays(request);
}

void dropPrimaryKey(TableAdminRequest &request) {
    if (auto keys = keyColumns(request); keys && Ostrel_IsBlankString(keys->c_str())) {
        ShowMessage(ids::kMessage.noKey, nullptr, nullptr, nullptr);
        return;
    }
    const connection::Capabilities &database = connection::capabilities(request.connection);
    if (Ostrel_IsBlankString(database.dropPrimaryKeyStatement) && !database.rebuildsTableForKeys) {
        ShowMessage(ids::kMessage.keyCannotBeDropped, nullptr, nullptr, nullptr);
        return;
    }
    if (ShowMessage(admin::ids::kMessage.confirmDropPrimaryKey, nullptr, nullptr, nullptr) != IDYES) return;
    bool dropped;
    if (!Ostrel_IsBlankString(database.dropPrimaryKeyStatement)) {
        // Texts that name the key's constraint take its name; the others ignore it.
        std::u16string keyName =
            catalog::primaryKeyName(request.connection, request.table, 0, kKeyNameCapacity).value_or(u"");
        std::u16string text = sqltext::formatStatement(request.connection, database.dropPrimaryKeyStatement,
                                                       {request.table, keyName.c_str()}, kDropStatementCapacity);
        dropped = runChangeStatement(request.connection, text) == odbc::RunResult::Done;
    } else {
        dropped = rebuildTable(request.connection, request.table,
                               [](TableDefinition &definition) { return definition.dropPrimaryKey(); }) ==
                  RebuildResult::Done;
    }
    if (!dropped) return;
    showNotice(ids::kString.keyDropped);
    refreshKeyDisplays(request);
    SetFocus(request.columns);
}

} // namespace tabra::admin::table_admin

extern "C" INT_PTR AddPk_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::admin::table_admin::kDialog.answer(dialog, message, wParam, lParam);
}
