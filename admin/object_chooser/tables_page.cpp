// The chooser's tables page: the tables of the schema (with the system tables when
// asked) and the tools for the selected one. The wizards that move rows each run on a
// connection of their own.
#include "admin/object_chooser/chooser_state.h"
#include "admin/object_chooser/resource_ids.h"
#include "admin/table_admin/table_admin.h"
#include "admin/table_name/resource_ids.h"
#include "admin/table_name/table_name_dialog.h"
#include "catalog/table_operations.h"
#include "core/connection/capabilities.h"
#include "core/dialogs/dialog.h"
#include "core/module/module_state.h"
#include "core/odbc/statement_runner.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "sqltext/statement_formatter.h"
#include "tabra_catalog.h"
#include "wizards/create_table/create_table_wizard.h"
#include "wizards/import/import_wizard.h"

#include <array>

namespace tabra::admin::object_chooser {
namespace {

using ids::kTablesPage;
constexpr int32_t kKind = TABRA_CHOOSER_PAGE_TABLES;
constexpr int32_t kCopyNameCapacity = 256;
constexpr int32_t kCopyStatementCapacity = 200;

// Removes itself on every path: the wait notice while a table is copied.
class WaitNotice {
public:
    explicit WaitNotice(int32_t stringId)
        : window_(Ostrel_DisplayTempWind(module::resourceLibrary(), stringId, 0, module::kMessageWindowColour)) {}
    WaitNotice(const WaitNotice &) = delete;
    WaitNotice &operator=(const WaitNotice &) = delete;
    ~WaitNotice() {
        if (window_ != nullptr) DestroyWindow(window_);
    }

private:
    HWND window_;
};

void start(HWND page, ChooserState &state) {
    CheckDlgButton(page, kTablesPage.systemTables, readChoice(kSystemTablesValue) != 0 ? BST_CHECKED : BST_UNCHECKED);
    startPage(page, state, kKind);
}

void openTable(HWND, ChooserState &state, int32_t) { endWithAction(state, TABRA_CHOOSER_ACTION_OPEN); }

void systemTablesToggled(HWND page, ChooserState &state, int32_t) {
    refillKeeping(state, kKind);
    writeChoice(kSystemTablesValue, IsDlgButtonChecked(page, kTablesPage.systemTables) == BST_CHECKED ? 1 : 0);
    updateStates(state);
}

void importTable(HWND, ChooserState &state, int32_t) {
    FreshConnection fresh(state.request.DataSource);
    std::u16string table;
    if (fresh && wizards::importing::runImportWizard(fresh.handle(), table) == 1) refillSelecting(state, kKind, table);
}

void create(HWND, ChooserState &state, int32_t) {
    std::u16string table;
    if (wizards::create_table::runCreateTableWizard(state.connection, table) == 1)
        refillSelecting(state, kKind, table);
}

void administer(HWND page, ChooserState &state, int32_t) {
    std::u16string table = selectedName(page, kKind);
    if (!table.empty()) table_admin::runTableAdmin(state.connection, table.c_str());
}

// The copy runs the database's copy-with-rows statement under a name the user
// confirms, proposed from the original's name and made unique.
void copyTable(HWND page, ChooserState &state, int32_t) {
    std::u16string table = selectedName(page, kKind);
    if (table.empty()) return;
    const connection::Capabilities &database = connection::capabilities(state.connection);
    if (!database.tableCopyAllowed()) {
        ShowMessage(ids::kMessage.copyUnsupported, nullptr, nullptr, nullptr);
        return;
    }
    std::array<char16_t, kCopyNameCapacity> name{};
    platform::writeBounded(name.data(), kCopyNameCapacity,
                           catalog::uniqueTableName(state.connection, formattedString(ids::kString.copyName, table),
                                                    kCopyNameCapacity));
    if (runTableNameDialog(table_name::ids::kTableNameDialog.id, state.connection, name.data(), kCopyNameCapacity,
                           nullptr) != 1)
        return;
    std::u16string statement = sqltext::formatStatement(state.connection, database.copyWithRowsStatement,
                                                        {name.data(), table.c_str()}, kCopyStatementCapacity);
    odbc::RunResult copied;
    {
        WaitNotice notice(ids::kString.copyingTable);
        copied = odbc::StatementRunner(state.connection, statement.c_str()).run();
    }
    if (copied == odbc::RunResult::Done) refillSelecting(state, kKind, name.data());
}

void removeTable(HWND page, ChooserState &state, int32_t) {
    std::u16string table = selectedName(page, kKind);
    if (table.empty()) return;
    std::u16string schema = state.schema();
    if (catalog::dropTable(state.connection, platform::isBlank(schema) ? nullptr : schema.c_str(), table.c_str(), 0) !=
        1)
        return;
    refillAtPosition(state, kKind);
    showNotice(ids::kString.tableDeleted);
}

constexpr dialogs::Command<ChooserState> kCommands[] = {
    {kTablesPage.list, LBN_SELCHANGE, selectionChanged},
    {kTablesPage.open, BN_CLICKED, openTable},
    {kTablesPage.systemTables, BN_CLICKED, systemTablesToggled},
    {kTablesPage.import, BN_CLICKED, importTable},
    {kTablesPage.create, BN_CLICKED, create},
    {kTablesPage.administer, BN_CLICKED, administer},
    {kTablesPage.copy, BN_CLICKED, copyTable},
    {kTablesPage.remove, BN_CLICKED, removeTable},
    {kTablesPage.exportRows, BN_CLICKED, objectToolCommand<kKind, exportRows>},
    {kTablesPage.addRecords, BN_CLICKED, objectToolCommand<kKind, addRecords>},
    {kTablesPage.deleteRecords, BN_CLICKED, objectToolCommand<kKind, deleteRecords>},
    {kTablesPage.updateRecords, BN_CLICKED, objectToolCommand<kKind, updateRecords>},
};
constexpr dialogs::Dialog<ChooserState> kPageDialog{
    .initialise = start, .commands = kCommands, .doubleClick = {kTablesPage.list, kTablesPage.open}};

} // namespace

void fillTables(HWND page, ChooserState &state) {
    int32_t flags = TABRA_TABLE_TYPE_TABLE;
    if (IsDlgButtonChecked(page, kTablesPage.systemTables) == BST_CHECKED) flags |= TABRA_TABLE_TYPE_SYSTEM_TABLE;
    std::u16string schema = state.schema();
    Tabra_FillTablesBoxExtended(state.connection, flags, schema.c_str(), 0, GetDlgItem(page, kTablesPage.list));
}

} // namespace tabra::admin::object_chooser

extern "C" INT_PTR DbObject_Tables_SubDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::admin::object_chooser::kPageDialog.answer(dialog, message, wParam, lParam);
}
