// The select statement wizard (template 10042): one dialog in which the user picks
// tables of the data source (filtered by object type and schema), the columns in their
// order or all columns, and a sort column. The statement is built again after every
// change and shown; OK hands it to the caller. A statement the caller passes in is
// read back into the boxes, so a statement made here earlier can be reopened.
#include "core/connection/connection_info.h"
#include "core/dialogs/dialog.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "query/clause_scanners.h"
#include "query/select_wizard/resource_ids.h"
#include "query/select_wizard/select_wizard_state.h"
#include "query/wide_buffer.h"
#include "tabra_connection.h"
#include "tabra_query.h"

#include <memory>
#include <new>

namespace tabra::query::select_wizard {

namespace {

using dialogs::kAnyNotification;

constexpr const auto &kIds = ids::kSelectWizardDialog;

constexpr char16_t kSchemaValue[] = u"LastUsedDbaseSchema";
constexpr int32_t kDataSourceCapacity = 100;

// The data source's name: the registry section that keeps its last schema.
std::u16string dataSourceName(SQLHDBC connection) {
    char16_t name[2 * kDataSourceCapacity] = {};
    connection::readTextInfo(connection, SQL_DATA_SOURCE_NAME, name, 2 * kDataSourceCapacity);
    return name;
}

std::u16string readSchema(SQLHDBC connection) {
    if (connection::schemaUsage(connection) == 0) return {};
    char16_t schema[kSchemaCapacity] = {};
    Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, dataSourceName(connection).c_str(),
                                  kSchemaValue, u"", schema, kSchemaCapacity, kSchemaCapacity - 1);
    return schema;
}

// The names a scan of the working statement gives; a clause that is not there gives none.
std::u16string scanned(const SelectWizardState &state, ScannedClause which) {
    return scanClause(state.connection, state.statement, which, u"\t", 0).value_or(std::u16string());
}

void changed(SelectWizardState &state) {
    updateEnabledStates(state);
    rebuildStatement(state);
}

void initialise(HWND dialog, SelectWizardState &state) {
    state.dialog = dialog;
    state.tables = GetDlgItem(dialog, kIds.tableList);
    state.sourceColumns = GetDlgItem(dialog, kIds.sourceColumns);
    state.chosenColumns = GetDlgItem(dialog, kIds.chosenColumns);
    state.sortColumn = GetDlgItem(dialog, kIds.sortColumn);
    SetDlgItemTextW(dialog, kIds.dataSource, dataSourceName(state.connection).c_str());
    SetDlgItemTextW(dialog, kIds.schema, state.schema.c_str());
    CheckDlgButton(dialog, kIds.tables, BST_CHECKED);

    refillTables(state);
    Ostrel_SetBoxIndex(state.tables, -1);
    const std::u16string tables = scanned(state, ScannedClause::Tables);
    if (platform::isBlank(tables) || Ostrel_SelectBoxEntries(state.tables, u'\t', tables.c_str(), 0) < 1)
        selectDefaultEntry(state.tables);
    refillColumns(state);

    std::u16string sort = scanned(state, ScannedClause::OrderBy);
    sort = sort.substr(0, sort.find(u'\t'));
    if (platform::isBlank(sort)) CheckDlgButton(dialog, kIds.noSort, BST_CHECKED);
    else Ostrel_SelectBoxEntries(state.sortColumn, u'\t', sort.c_str(), 0);

    const std::u16string columns = scanned(state, ScannedClause::Fields);
    const bool all = platform::isBlank(columns) || columns == u"*";
    CheckDlgButton(dialog, kIds.allColumns, all ? BST_CHECKED : BST_UNCHECKED);
    if (!all) Ostrel_FillBox(state.chosenColumns, u'\t', columns.c_str());

    const bool schemas = connection::schemaUsage(state.connection) != 0;
    for (int32_t control : {kIds.schemaLabel, kIds.schema, kIds.chooseSchema}) EnableWindow(GetDlgItem(dialog, control), schemas);
    changed(state);
}

HWND tablesFirst(HWND, SelectWizardState &state) { return state.tables; }

void removeColumn(HWND, SelectWizardState &state, int32_t) {
    const int32_t index = Ostrel_GetBoxIndex(state.chosenColumns);
    if (index < 0) return;
    Ostrel_DeleteBoxEntry(state.chosenColumns, index);
    Ostrel_SetBoxIndex(state.chosenColumns, index);
    changed(state);
}

void addColumn(HWND, SelectWizardState &state, int32_t) {
    char16_t column[kStatementCapacity] = {};
    Ostrel_GetBoxEntry(state.sourceColumns, -1, column, kStatementCapacity);
    if (platform::isBlank(column)) return;
    Ostrel_AddBoxEntry(state.chosenColumns, column, 0, -1, 0);
    changed(state);
}

void moveColumn(HWND, SelectWizardState &state, int32_t control) {
    if (Ostrel_GetBoxIndex(state.chosenColumns) < 0) return;
    Ostrel_MoveBoxEntry(state.chosenColumns, -1, control == kIds.up ? -1 : 1);
    changed(state);
}

// The table the user just added to the selection: a selected entry that was not
// selected before, else the one at the caret (a renderer may leave the caret on
// another entry when a click adds one).
int32_t tableJustChosen(const SelectWizardState &state) {
    const std::u16string before = u"\t" + state.selectedTables + u"\t";
    char16_t name[kStatementCapacity];
    for (int32_t i = 0, count = Ostrel_GetBoxCount(state.tables); i < count; ++i) {
        if (SendMessageW(state.tables, LB_GETSEL, static_cast<WPARAM>(i), 0) <= 0) continue;
        Ostrel_GetBoxEntry(state.tables, i, name, kStatementCapacity);
        if (before.find(u"\t" + std::u16string(name) + u"\t") == std::u16string::npos) return i;
    }
    return static_cast<int32_t>(SendMessageW(state.tables, LB_GETCARETINDEX, 0, 0));
}

// Without the flag for several tables only the table the user just chose stays selected.
void tableChosen(HWND, SelectWizardState &state, int32_t) {
    if ((state.flags & kSeveralTables) == 0) Ostrel_SetBoxIndex(state.tables, tableJustChosen(state));
    refillColumns(state);
    changed(state);
}

void objectTypesChanged(HWND, SelectWizardState &state, int32_t) {
    refillTables(state);
    refillColumns(state);
    changed(state);
}

void chooseSchema(HWND dialog, SelectWizardState &state, int32_t) {
    char16_t schema[kSchemaCapacity] = {};
    OstrelCopyString(schema, state.schema.c_str(), kSchemaCapacity);
    if (Tabra_SelectDbaseSchema(dialog, state.connection, schema) != 1) return;
    state.schema = schema;
    SetDlgItemTextW(dialog, kIds.schema, schema);
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0,
                                 dataSourceName(state.connection).c_str(), kSchemaValue, schema);
    objectTypesChanged(dialog, state, 0);
}

void statesChanged(HWND, SelectWizardState &state, int32_t) { changed(state); }

void selectionChanged(HWND, SelectWizardState &state, int32_t) { updateEnabledStates(state); }

void sortChanged(HWND, SelectWizardState &state, int32_t) { rebuildStatement(state); }

void showHelp(HWND, SelectWizardState &, int32_t) {
    Ostrel_PerformHelp(module::resourceLibrary(), kIds.id, 0);
}

constexpr dialogs::Command<SelectWizardState> kCommands[] = {
    {kIds.remove, BN_CLICKED, removeColumn},
    {kIds.tableList, LBN_SELCHANGE, tableChosen},
    {kIds.tables, BN_CLICKED, objectTypesChanged},
    {kIds.views, BN_CLICKED, objectTypesChanged},
    {kIds.systemTables, BN_CLICKED, objectTypesChanged},
    {kIds.aliases, BN_CLICKED, objectTypesChanged},
    {kIds.synonyms, BN_CLICKED, objectTypesChanged},
    {kIds.allTypes, BN_CLICKED, objectTypesChanged},
    {kIds.sortColumn, CBN_SELCHANGE, sortChanged},
    {kIds.allColumns, BN_CLICKED, statesChanged},
    {kIds.chooseSchema, BN_CLICKED, chooseSchema},
    {kIds.noSort, BN_CLICKED, statesChanged},
    {kIds.chosenColumns, LBN_DBLCLK, removeColumn},
    {kIds.chosenColumns, LBN_SELCHANGE, selectionChanged},
    {kIds.up, BN_CLICKED, moveColumn},
    {kIds.down, BN_CLICKED, moveColumn},
    {kIds.sourceColumns, LBN_DBLCLK, addColumn},
    {kIds.sourceColumns, LBN_SELCHANGE, selectionChanged},
    {kIds.add, BN_CLICKED, addColumn},
    {IDHELP, kAnyNotification, showHelp},
};
constexpr dialogs::Dialog<SelectWizardState> kDialog{
    .initialise = initialise, .initialFocus = tablesFirst, .commands = kCommands};

} // namespace

} // namespace tabra::query::select_wizard

extern "C" INT_PTR SelWizz_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::query::select_wizard::kDialog.answer(dialog, message, wParam, lParam);
}

extern "C" int32_t Tabra_SelectStatementWizzard(SQLHDBC connection, char16_t *statement, int32_t statementChars,
                                                HWND parent, int32_t flags, int32_t reserved) {
    using namespace tabra::query::select_wizard;
    std::unique_ptr<SelectWizardState> state;
    try {
        state = std::make_unique<SelectWizardState>();
        state->statement = tabra::query::readBounded(statement, statementChars).substr(0, kStatementCapacity - 1);
    } catch (const std::bad_alloc &) {
        ShowMessage(tabra::core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
        return 2;
    }
    state->connection = connection;
    state->flags = flags;
    state->reserved = reserved;
    state->schema = readSchema(connection);
    if (tabra::dialogs::runModal(kIds.id, SelWizz_Dialog_Callback, *state,
                                 parent != nullptr ? parent : GetActiveWindow()) != IDOK)
        return 2;
    tabra::platform::writeBounded(statement, statementChars, state->statement);
    return 1;
}
