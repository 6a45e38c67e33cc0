// Adding an auto-increment column: the database's auto-increment column type under a
// name the user gives, by ALTER TABLE ... ADD, or by rebuilding the table where
// ALTER TABLE cannot add a key column.
#include "admin/table_admin/resource_ids.h"
#include "admin/table_admin/table_admin_request.h"
#include "admin/table_admin/table_rebuild.h"
#include "catalog/column_facts.h"
#include "catalog/primary_keys.h"
#include "core/connection/capabilities.h"
#include "core/dialogs/dialog.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "sqltext/sql92_names.h"
#include "sqltext/statement_formatter.h"
#include "tabra_admin.h"
#include "tabra_catalog.h"

#include <array>
#include <string>

namespace tabra::admin::table_admin {
namespace {

using ids::kAddAutoIncrementDialog;

constexpr int32_t kNameCapacity = 100;
constexpr int32_t kStatementCapacity = 200;
constexpr int32_t kAutoIncrementCapacity = 200; // handed to the driver as bytes
constexpr int32_t kKeyCapacity = 1000;

struct AddAutoIncrementState {
    const TableAdminRequest &request;
    std::u16string name;
};

void nameChanged(HWND dialog, AddAutoIncrementState &, int32_t) {
    std::array<char16_t, kNameCapacity> name{};
    GetDlgItemTextW(dialog, kAddAutoIncrementDialog.name, name.data(), kNameCapacity);
    EnableWindow(GetDlgItem(dialog, IDOK), !Ostrel_IsBlankString(name.data()));
}

void initialise(HWND dialog, AddAutoIncrementState &state) {
    nameChanged(dialog, state, kAddAutoIncrementDialog.name);
    Ostrel_CenterWindow(dialog, nullptr);
}

bool accept(HWND dialog, AddAutoIncrementState &state) {
    std::array<char16_t, kNameCapacity> name{};
    GetDlgItemTextW(dialog, kAddAutoIncrementDialog.name, name.data(), kNameCapacity);
    if (Tabra_DoesFieldExist(state.request.connection, state.request.table, name.data()) == 1) {
        ShowMessage(ids::kMessage.columnExists, name.data(), nullptr, nullptr);
        return false;
    }
    state.name = name.data();
    return true;
}

using Command = dialogs::Command<AddAutoIncrementState>;
constexpr Command kCommands[] = {{kAddAutoIncrementDialog.name, EN_CHANGE, nameChanged}};
constexpr dialogs::Dialog<AddAutoIncrementState> kDialog{
    .initialise = initialise, .accept = accept, .commands = kCommands};

// Whether the database can add the column to this table; says why not when it cannot.
// On the databases with a row of their own the auto-increment column is always the
// primary key, so a table that has one already cannot take it.
bool mayAddColumn(const TableAdminRequest &request, const connection::Capabilities &database) {
    if (!database.hasAutoIncrement() || (!database.alterTableAddsKeyColumn && !database.rebuildsTableForKeys)) {
        ShowMessage(core::ids::kMessage.notPossibleHere, nullptr, nullptr, nullptr);
        return false;
    }
    if (catalog::firstAutoIncrementColumn(request.connection, request.table, kAutoIncrementCapacity)) {
        ShowMessage(ids::kMessage.autoIncrementExists, nullptr, nullptr, nullptr);
        return false;
    }
    if (database.dialect) {
        auto keys = catalog::primaryKeyColumns(request.connection, request.table, 0, u",", kKeyCapacity);
        if (keys && !Ostrel_IsBlankString(keys->c_str())) {
            ShowMessage(ids::kMessage.keyExists, nullptr, nullptr, nullptr);
            return false;
        }
    }
    return true;
}

} // namespace

void addAutoIncrementColumn(TableAdminRequest &request) {
    const connection::Capabilities &database = connection::capabilities(request.connection);
    if (!mayAddColumn(request, database)) return;
    AddAutoIncrementState state{request, {}};
    if (dialogs::runModal(kAddAutoIncrementDialog.id, AddAutoInc_Dialog_Callback, state, request.dialog) != IDOK) return;
    bool added;
    if (database.alterTableAddsKeyColumn) {
        std::u16string text =
            sqltext::formatStatement(request.connection, u"ALTER TABLE %t ADD %f %s",
                                     {request.table, state.name.c_str(), database.autoIncrementType}, kStatementCapacity);
        added = runChangeStatement(request.connection, text) == odbc::RunResult::Done;
    } else {
        std::u16string column = sqltext::prepareNameForSql92(request.connection, state.name.c_str(), kNameCapacity) +
                                u" " + database.autoIncrementType;
        added = rebuildTable(request.connection, request.table, [&](TableDefinition &definition) {
                    if (definition.hasPrimaryKey()) return false;
                    definition.addColumn(column);
                    return true;
                }) == RebuildResult::Done;
    }
    if (added) refreshAfterNewColumn(request, state.name);
}

} // namespace tabra::admin::table_admin

extern "C" INT_PTR AddAutoInc_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::admin::table_admin::kDialog.answer(dialog, message, wParam, lParam);
}
