// The SQL performer: one dialog behaviour in two variants. The record variant
// (dialog 101) connects from its data source record for each run and can change the
// record; the connection variant (dialog 10058) runs on the caller's connection. Both
// keep the shared statement history and open the SQL help.
#include "admin/sql_performer/resource_ids.h"
#include "admin/sql_performer/sql_performer.h"
#include "admin/sql_performer/statement_history.h"
#include "admin/sql_performer/user_statement.h"
#include "core/dialogs/dialog.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "tabra_admin.h"
#include "tabra_window.h"

#include <array>

namespace {

using namespace tabra::admin::sql_performer;
using ids::kConnectionPerformerDialog;
using ids::kRecordPerformerDialog;
namespace dialogs = tabra::dialogs;

// The controls both variants share have the same ids in both templates.
constexpr auto &kShared = kConnectionPerformerDialog;

// The connection variant's parameter is the caller's connection handle itself; the
// dialog base hands it over as a reference to this opaque type.
struct HeldConnection;
SQLHDBC handleOf(HeldConnection &held) { return reinterpret_cast<SQLHDBC>(&held); }

HWND historyOf(HWND dialog) { return GetDlgItem(dialog, kShared.history); }

void runOn(HeldConnection &held, const char16_t *statement) { runUserStatement(handleOf(held), statement); }

// The record variant holds a connection only while the statement runs. A failed
// connection has been reported by the connecting call.
void runOn(DataSourceInfo &record, const char16_t *statement) {
    SQLHENV environment = SQL_NULL_HENV;
    SQLHDBC connection = SQL_NULL_HDBC;
    if (Tabra_ConnectDataSource(&record, &environment, &connection) != 0) return;
    runUserStatement(connection, statement);
    Tabra_DisconnectDataSource(&environment, &connection);
}

// Run: a blank statement is refused; any other enters the history before it runs, so
// that a statement that failed can be taken up again and corrected.
template <class State> void runStatement(HWND dialog, State &state, int32_t) {
    char16_t statement[kStatementCapacity] = {};
    GetDlgItemTextW(dialog, kShared.statement, statement, kStatementCapacity);
    if (tabra::platform::isBlank(statement)) {
        ShowMessage(tabra::core::ids::kMessage.noStatement, nullptr, nullptr, nullptr);
        return;
    }
    addToHistory(historyOf(dialog), statement);
    runOn(state, statement);
}

template <class State> void fillFromSettings(HWND dialog, State &, int32_t) {
    Ostrel_ReadEditFieldFromRegistry(dialog, kShared.statement, HKEY_CURRENT_USER, tabra::module::kRegistryRoot, 0,
                                     u"Parameters", u"Sql", u"");
}

template <class State> void openHelp(HWND dialog, State &, int32_t) {
    DialogBoxParamW(tabra::module::resourceLibrary(), ids::kSqlHelpDialog.id, dialog, SqlHelpCallback,
                    reinterpret_cast<LPARAM>(dialog));
}

template <class State> void clearAll(HWND dialog, State &, int32_t) { clearHistory(historyOf(dialog)); }

// A history entry picked in the list shows in the statement field; the button takes
// it there with the focus, ready for editing.
template <class State> void showSelectedEntry(HWND dialog, State &, int32_t) {
    SetDlgItemTextW(dialog, kShared.statement, selectedStatement(historyOf(dialog)).c_str());
}
template <class State> void takeSelectedEntry(HWND dialog, State &state, int32_t control) {
    showSelectedEntry(dialog, state, control);
    SetFocus(GetDlgItem(dialog, kShared.statement));
}

// OK and Cancel both close with 2: the performer hands nothing back.
template <class State> void close(HWND dialog, State &, int32_t) { EndDialog(dialog, IDCANCEL); }

void loadShared(HWND dialog) {
    SendMessageW(GetDlgItem(dialog, kShared.statement), EM_LIMITTEXT, kStatementCapacity - 1, 0);
    loadHistory(historyOf(dialog));
}

template <class State> HWND statementField(HWND dialog, State &) { return GetDlgItem(dialog, kShared.statement); }

template <class State, class... More>
constexpr std::array<dialogs::Command<State>, 8 + sizeof...(More)> performerCommands(More... more) {
    constexpr int32_t any = dialogs::kAnyNotification;
    return {{{kShared.run, any, runStatement<State>},
             {ids::kCommand.fillStatementFromSettings, any, fillFromSettings<State>},
             {kShared.help, any, openHelp<State>},
             {kShared.clearHistory, any, clearAll<State>},
             {kShared.takeEntry, any, takeSelectedEntry<State>},
             {kShared.history, LBN_SELCHANGE, showSelectedEntry<State>},
             {IDOK, any, close<State>},
             {IDCANCEL, any, close<State>},
             more...}};
}

// The record variant: its state is the caller's record.
void showDataSource(HWND dialog, const DataSourceInfo &record) {
    const std::u16string name(tabra::platform::viewOfBuffer(record.DataSourceName, std::size(record.DataSourceName)));
    SetDlgItemTextW(dialog, kRecordPerformerDialog.dataSource, name.c_str());
}
void openRecordPerformer(HWND dialog, DataSourceInfo &record) {
    showDataSource(dialog, record);
    loadShared(dialog);
}
void chooseDataSource(HWND dialog, DataSourceInfo &record, int32_t) {
    Tabra_DataSourceDialog(&record);
    showDataSource(dialog, record);
}

constexpr auto kRecordCommands = performerCommands<DataSourceInfo>(
    dialogs::Command<DataSourceInfo>{kRecordPerformerDialog.chooseDataSource, dialogs::kAnyNotification, chooseDataSource});
constexpr dialogs::Dialog<DataSourceInfo> kRecordPerformer{.initialise = openRecordPerformer,
                                                           .initialFocus = statementField<DataSourceInfo>,
                                                           .commands = kRecordCommands,
                                                           .endWithoutState = IDCANCEL};

constexpr auto kConnectionCommands = performerCommands<HeldConnection>();
constexpr dialogs::Dialog<HeldConnection> kConnectionPerformer{
    .initialise = [](HWND dialog, HeldConnection &) { loadShared(dialog); },
    .initialFocus = statementField<HeldConnection>,
    .commands = kConnectionCommands,
    .endWithoutState = IDCANCEL};

} // namespace

extern "C" INT_PTR SqlPerformerDs_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kRecordPerformer.answer(dialog, message, wParam, lParam);
}

extern "C" INT_PTR SqlPerformerHdbc_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kConnectionPerformer.answer(dialog, message, wParam, lParam);
}

extern "C" int32_t Tabra_DialogSqlPerformer(DataSourceInfo *record) {
    if (record == nullptr) return IDCANCEL;
    return static_cast<int32_t>(dialogs::runModal(kRecordPerformerDialog.id, SqlPerformerDs_Callback, *record));
}

int32_t tabra::admin::sql_performer::runSqlPerformer(SQLHDBC connection) {
    if (connection == SQL_NULL_HDBC) return IDCANCEL;
    return static_cast<int32_t>(dialogs::runModal(kConnectionPerformerDialog.id, SqlPerformerHdbc_Callback,
                                                  *reinterpret_cast<HeldConnection *>(connection)));
}

extern "C" int32_t Tabra_SqlPerformer(SQLHDBC connection) {
    return tabra::admin::sql_performer::runSqlPerformer(connection);
}
