// Choosing a schema, alone or together with a data source and its login.
#include "core/dialogs/dialog.h"
#include "core/persistence/data_source_dialogs.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "tabra_connection.h"
#include "tabra_window.h"

#include <algorithm>

namespace {

using tabra::core::ids::kDataSourceAndSchemaDialog;
using tabra::core::ids::kSchemaDialog;

constexpr int32_t kSchemaCapacity = 100;

struct SchemaDialogState {
    SQLHDBC connection = SQL_NULL_HDBC;
    char16_t *schema = nullptr; // 100 characters
};

struct CombinedDialogState {
    DataSourceInfo record{};
    SQLHENV environment = SQL_NULL_HENV;
    SQLHDBC connection = SQL_NULL_HDBC;
    char16_t schema[kSchemaCapacity] = {};
};

void initialiseSchemaDialog(HWND dialog, SchemaDialogState &state) {
    HWND list = GetDlgItem(dialog, kSchemaDialog.schemas);
    Tabra_FillSchemataBox(state.connection, list);
    int32_t found = Ostrel_FindBoxEntry(list, state.schema, 0, 0);
    if (found >= 0) Ostrel_SetBoxIndex(list, found);
    SetDlgItemTextW(dialog, kSchemaDialog.schema, state.schema);
}

void showChosenSchema(HWND dialog, SchemaDialogState &, int32_t) {
    char16_t chosen[kSchemaCapacity] = {};
    if (Ostrel_GetBoxEntry(GetDlgItem(dialog, kSchemaDialog.schemas), -1, chosen, kSchemaCapacity) >= 0)
        SetDlgItemTextW(dialog, kSchemaDialog.schema, chosen);
}

bool acceptSchema(HWND dialog, SchemaDialogState &state) {
    GetDlgItemTextW(dialog, kSchemaDialog.schema, state.schema, kSchemaCapacity);
    return true;
}

constexpr tabra::dialogs::Command<SchemaDialogState> kSchemaCommands[] = {
    {kSchemaDialog.schemas, LBN_SELCHANGE, showChosenSchema},
};
constexpr tabra::dialogs::Dialog<SchemaDialogState> kSchemaPicker{.initialise = initialiseSchemaDialog,
                                                                  .accept = acceptSchema,
                                                                  .commands = kSchemaCommands,
                                                                  .doubleClick = {kSchemaDialog.schemas}};

} // namespace

extern "C" INT_PTR SelectSchemaDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kSchemaPicker.answer(dialog, message, wParam, lParam);
}

int32_t tabra::persistence::runSchemaDialog(HWND owner, SQLHDBC connection, std::u16string &schema) {
    char16_t working[kSchemaCapacity];
    OstrelCopyString(working, schema.c_str(), kSchemaCapacity);
    SchemaDialogState state{connection, working};
    if (tabra::dialogs::runModal(kSchemaDialog.id, SelectSchemaDialog_Callback, state, owner) != IDOK) return 2;
    schema = working;
    return 1;
}

extern "C" int32_t Tabra_SelectDbaseSchema(HWND owner, SQLHDBC connection, char16_t *schema) {
    if (schema == nullptr) return 2;
    std::u16string working(schema);
    if (tabra::persistence::runSchemaDialog(owner, connection, working) != 1) return 2;
    OstrelCopyString(schema, working.c_str(), kSchemaCapacity);
    return 1;
}

namespace {

// Shows the record and enables the schema controls only while the connection knows
// schemas.
void showCombinedState(HWND dialog, const CombinedDialogState &state) {
    SetDlgItemTextW(dialog, kDataSourceAndSchemaDialog.dataSource, state.record.DataSourceName);
    SetDlgItemTextW(dialog, kDataSourceAndSchemaDialog.user, state.record.UserId);
    SetDlgItemTextW(dialog, kDataSourceAndSchemaDialog.password, state.record.Password);
    SetDlgItemTextW(dialog, kDataSourceAndSchemaDialog.schema, state.schema);
    bool schemas = state.connection != SQL_NULL_HDBC && Tabra_GetSchemaUsage(state.connection) != 0;
    EnableWindow(GetDlgItem(dialog, kDataSourceAndSchemaDialog.schema), schemas);
    EnableWindow(GetDlgItem(dialog, kDataSourceAndSchemaDialog.chooseSchema), schemas);
}

void reconnect(CombinedDialogState &state) {
    Tabra_DisconnectDataSource(&state.environment, &state.connection);
    if (state.record.DataSourceName[0] != u'\0')
        Tabra_ConnectDataSource(&state.record, &state.environment, &state.connection);
}

} // namespace

namespace {

void initialiseCombinedDialog(HWND dialog, CombinedDialogState &state) {
    reconnect(state);
    showCombinedState(dialog, state);
}

bool acceptCombined(HWND dialog, CombinedDialogState &state) {
    GetDlgItemTextW(dialog, kDataSourceAndSchemaDialog.schema, state.schema, kSchemaCapacity);
    return true;
}

// The buttons that open the data source dialog and the schema dialog over this one.
void chooseDataSource(HWND dialog, CombinedDialogState &state, int32_t) {
    if (Tabra_DataSourceDialog(&state.record) != 1) return;
    reconnect(state);
    showCombinedState(dialog, state);
}

void chooseSchema(HWND dialog, CombinedDialogState &state, int32_t) {
    GetDlgItemTextW(dialog, kDataSourceAndSchemaDialog.schema, state.schema, kSchemaCapacity);
    if (Tabra_SelectDbaseSchema(dialog, state.connection, state.schema) == 1)
        SetDlgItemTextW(dialog, kDataSourceAndSchemaDialog.schema, state.schema);
}

constexpr tabra::dialogs::Command<CombinedDialogState> kCombinedCommands[] = {
    {kDataSourceAndSchemaDialog.chooseDataSource, tabra::dialogs::kAnyNotification, chooseDataSource},
    {kDataSourceAndSchemaDialog.chooseSchema, tabra::dialogs::kAnyNotification, chooseSchema},
};
constexpr tabra::dialogs::Dialog<CombinedDialogState> kCombinedDialog{
    .initialise = initialiseCombinedDialog, .accept = acceptCombined, .commands = kCombinedCommands};

} // namespace

extern "C" INT_PTR DsAndSchemaDialogCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kCombinedDialog.answer(dialog, message, wParam, lParam);
}

extern "C" int32_t Tabra_DataSourceAndSchemaDialog(HWND owner, DataSourceInfo *record, char16_t *schema,
                                                   int32_t schemaSize, void *callerData) {
    if (record == nullptr) return 2;
    CombinedDialogState state;
    state.record = *record;
    state.record.DataSourceName[99] = state.record.UserId[49] = state.record.Password[49] = u'\0';
    if (schema != nullptr && schemaSize >= 1) OstrelCopyString(state.schema, schema, std::min(schemaSize, kSchemaCapacity));
    INT_PTR result = tabra::dialogs::runModal(kDataSourceAndSchemaDialog.id, DsAndSchemaDialogCallback, state, owner);
    Tabra_DisconnectDataSource(&state.environment, &state.connection);
    if (result != IDOK) return 2;
    *record = state.record;
    if (schema != nullptr && schemaSize >= 1) OstrelCopyString(schema, state.schema, schemaSize);
    return 1;
}
