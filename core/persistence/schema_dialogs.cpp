// Choosing a schema, alone or together with a data source and its login.
#include "core/module/module_state.h"
#include "core/persistence/picker_dialog.h"
#include "ostrel.h"
#include "tabra_connection.h"
#include "tabra_window.h"

#include <algorithm>

namespace {

constexpr int32_t kSchemaDialogTemplate = 10056;
constexpr int32_t kSchemaList = 2010;
constexpr int32_t kSchemaField = 2011;
constexpr int32_t kSchemaCapacity = 100;

constexpr int32_t kCombinedDialogTemplate = 10060;
constexpr int32_t kDataSourceNameField = 1014;
constexpr int32_t kUserField = 1015;
constexpr int32_t kPasswordField = 1016;
constexpr int32_t kCombinedSchemaField = 2014;
constexpr int32_t kDataSourceButton = 1145;
constexpr int32_t kSchemaButton = 1147;

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

void translate(HWND dialog) { LTS_TranslateDialog(dialog, tabra::module::kTranslationModuleName, 0); }

} // namespace

namespace {

void initialiseSchemaDialog(HWND dialog, SchemaDialogState &state) {
    translate(dialog);
    HWND list = GetDlgItem(dialog, kSchemaList);
    Tabra_FillSchemataBox(state.connection, list);
    int32_t found = Ostrel_FindBoxEntry(list, state.schema, 0, 0);
    if (found >= 0) Ostrel_SetBoxIndex(list, found);
    SetDlgItemTextW(dialog, kSchemaField, state.schema);
}

void showChosenSchema(HWND dialog, SchemaDialogState &) {
    char16_t chosen[kSchemaCapacity] = {};
    if (Ostrel_GetBoxEntry(GetDlgItem(dialog, kSchemaList), -1, chosen, kSchemaCapacity) >= 0)
        SetDlgItemTextW(dialog, kSchemaField, chosen);
}

void acceptSchema(HWND dialog, SchemaDialogState &state) {
    GetDlgItemTextW(dialog, kSchemaField, state.schema, kSchemaCapacity);
    EndDialog(dialog, IDOK);
}

} // namespace

extern "C" INT_PTR SelectSchemaDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    static constexpr tabra::persistence::PickerDialog<SchemaDialogState> picker{initialiseSchemaDialog, acceptSchema,
                                                                               kSchemaList, showChosenSchema};
    return tabra::persistence::answerPickerMessage(picker, dialog, message, wParam, lParam);
}

extern "C" int32_t Tabra_SelectDbaseSchema(HWND owner, SQLHDBC connection, char16_t *schema) {
    if (schema == nullptr) return 2;
    char16_t working[kSchemaCapacity];
    OstrelCopyString(working, schema, kSchemaCapacity);
    SchemaDialogState state{connection, working};
    INT_PTR result = DialogBoxParamW(tabra::module::resourceLibrary(), kSchemaDialogTemplate, owner,
                                     SelectSchemaDialog_Callback, reinterpret_cast<LPARAM>(&state));
    if (result != IDOK) return 2;
    OstrelCopyString(schema, working, kSchemaCapacity);
    return 1;
}

namespace {

// Shows the record and enables the schema controls only while the connection knows
// schemas.
void showCombinedState(HWND dialog, const CombinedDialogState &state) {
    SetDlgItemTextW(dialog, kDataSourceNameField, state.record.DataSourceName);
    SetDlgItemTextW(dialog, kUserField, state.record.UserId);
    SetDlgItemTextW(dialog, kPasswordField, state.record.Password);
    SetDlgItemTextW(dialog, kCombinedSchemaField, state.schema);
    bool schemas = state.connection != SQL_NULL_HDBC && Tabra_GetSchemaUsage(state.connection) != 0;
    EnableWindow(GetDlgItem(dialog, kCombinedSchemaField), schemas);
    EnableWindow(GetDlgItem(dialog, kSchemaButton), schemas);
}

void reconnect(CombinedDialogState &state) {
    Tabra_DisconnectDataSource(&state.environment, &state.connection);
    if (state.record.DataSourceName[0] != u'\0')
        Tabra_ConnectDataSource(&state.record, &state.environment, &state.connection);
}

} // namespace

namespace {

void initialiseCombinedDialog(HWND dialog, CombinedDialogState &state) {
    translate(dialog);
    reconnect(state);
    showCombinedState(dialog, state);
}

void acceptCombined(HWND dialog, CombinedDialogState &state) {
    GetDlgItemTextW(dialog, kCombinedSchemaField, state.schema, kSchemaCapacity);
    EndDialog(dialog, IDOK);
}

// The buttons that open the data source dialog and the schema dialog over this one.
bool combinedCommand(HWND dialog, CombinedDialogState &state, int32_t id) {
    if (id == kDataSourceButton) {
        if (Tabra_DataSourceDialog(&state.record) == 1) {
            reconnect(state);
            showCombinedState(dialog, state);
        }
        return true;
    }
    if (id == kSchemaButton) {
        GetDlgItemTextW(dialog, kCombinedSchemaField, state.schema, kSchemaCapacity);
        if (Tabra_SelectDbaseSchema(dialog, state.connection, state.schema) == 1)
            SetDlgItemTextW(dialog, kCombinedSchemaField, state.schema);
        return true;
    }
    return false;
}

} // namespace

extern "C" INT_PTR DsAndSchemaDialogCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    static constexpr tabra::persistence::PickerDialog<CombinedDialogState> picker{
        initialiseCombinedDialog, acceptCombined, 0, nullptr, combinedCommand};
    return tabra::persistence::answerPickerMessage(picker, dialog, message, wParam, lParam);
}

extern "C" int32_t Tabra_DataSourceAndSchemaDialog(HWND owner, DataSourceInfo *record, char16_t *schema,
                                                   int32_t schemaSize, void *callerData) {
    if (record == nullptr) return 2;
    CombinedDialogState state;
    state.record = *record;
    state.record.DataSourceName[99] = state.record.UserId[49] = state.record.Password[49] = u'\0';
    if (schema != nullptr && schemaSize >= 1) OstrelCopyString(state.schema, schema, std::min(schemaSize, kSchemaCapacity));
    INT_PTR result = DialogBoxParamW(tabra::module::resourceLibrary(), kCombinedDialogTemplate, owner,
                                     DsAndSchemaDialogCallback, reinterpret_cast<LPARAM>(&state));
    Tabra_DisconnectDataSource(&state.environment, &state.connection);
    if (result != IDOK) return 2;
    *record = state.record;
    if (schema != nullptr && schemaSize >= 1) OstrelCopyString(schema, state.schema, schemaSize);
    return 1;
}
