// The table pages: the destination table of the caller's connection, the source data
// source with its login, and the source table. Leaving the source table page writes
// "Table" to the registry and rebuilds the mapping descriptors.
#include "catalog/table_list.h"
#include "core/module/module_state.h"
#include "ostrel_registry.h"
#include "ostrel_ui.h"
#include "platform/text/bounded_text.h"
#include "tabra_catalog.h"
#include "wizards/add_records/add_records_pages.h"
#include "wizards/data_source_page.h"
#include "wizards/list_choice.h"

namespace tabra::wizards::add_records {
namespace {

using State = AddRecordsWizardState;
constexpr auto &kDestination = ids::kDestinationTablePage;
constexpr auto &kSources = ids::kDataSourcePage;
constexpr auto &kTables = ids::kSourceTablePage;
constexpr int32_t kTableListCapacity = 30000;

static_assert(kSources.user == kDataSourceControls.user && kSources.password == kDataSourceControls.password &&
                  kSources.dataSources == kDataSourceControls.dataSources,
              "the data source page has the shared page's controls");

std::u16string chosenEntry(HWND list) {
    char16_t name[kTableNameCapacity] = {};
    Ostrel_GetBoxEntry(list, -1, name, kTableNameCapacity);
    return name;
}

void fillTables(HWND list, SQLHDBC connection, int32_t typeFlags, const std::u16string &current) {
    Ostrel_FillBox(list, u'\t', nullptr);
    if (auto tables = catalog::tableList(connection, typeFlags, nullptr, 0, kTableListCapacity, u"\t"))
        Ostrel_FillBox(list, u'\t', tables->c_str());
    int32_t found = Ostrel_FindBoxEntry(list, current.c_str(), 0, 0);
    Ostrel_SetBoxIndex(list, found >= 0 ? found : 0);
}

// The destination table.
void showDestinationTables(HWND page, State &state) {
    const int32_t kinds = state.object.DbObjectType > 0 ? state.object.DbObjectType : TABRA_TABLE_TYPE_TABLE;
    fillTables(GetDlgItem(page, kDestination.tables), state.connection, kinds, state.destinationTable());
}

dialogs::PageAnswer leaveDestinationTables(HWND page, State &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    HWND list = GetDlgItem(page, kDestination.tables);
    if (!listHasChoice(list)) return dialogs::PageAnswer::Stay;
    platform::writeBounded(state.object.DbObjectName, static_cast<int32_t>(std::size(state.object.DbObjectName)),
                           chosenEntry(list));
    return dialogs::PageAnswer::GoOn;
}

// The source data source: entering closes the source connection, leaving opens it.
void enterDataSources(HWND page, State &state) {
    state.source.close();
    showDataSources(page, state.sourceRecord);
}
void chooseDataSource(HWND page, State &, int32_t) { dataSourceChosen(page); }
void loginChanged(HWND page, State &state, int32_t) {
    GetDlgItemTextW(page, kSources.user, state.sourceRecord.UserId,
                    static_cast<int32_t>(std::size(state.sourceRecord.UserId)));
    GetDlgItemTextW(page, kSources.password, state.sourceRecord.Password,
                    static_cast<int32_t>(std::size(state.sourceRecord.Password)));
}
dialogs::PageAnswer leaveSources(HWND page, State &state, dialogs::Leaving direction) {
    return leaveDataSources(page, state.sourceRecord, state.source, kRegistryKey, direction);
}
void limitPageLogin(HWND page, State &) { limitLogin(page); }

// The source table.
int32_t typeFlagsOf(int32_t radio) {
    if (radio == kTables.showTables) return TABRA_TABLE_TYPE_TABLE;
    if (radio == kTables.showViews) return TABRA_TABLE_TYPE_VIEW;
    return TABRA_TABLE_TYPE_TABLE | TABRA_TABLE_TYPE_VIEW;
}

void showSourceTables(HWND page, State &state) {
    CheckRadioButton(page, kTables.showTables, kTables.showBoth, state.sourceTableKinds);
    fillTables(GetDlgItem(page, kTables.tables), state.source.handle(), typeFlagsOf(state.sourceTableKinds),
               state.sourceTable);
}

void tableKindChosen(HWND page, State &state, int32_t control) {
    state.sourceTableKinds = control;
    showSourceTables(page, state);
}

dialogs::PageAnswer leaveSourceTables(HWND page, State &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    HWND list = GetDlgItem(page, kTables.tables);
    if (!listHasChoice(list)) return dialogs::PageAnswer::Stay;
    state.sourceTable = chosenEntry(list);
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, kTableValue,
                                 state.sourceTable.c_str());
    return buildFields(state) ? dialogs::PageAnswer::GoOn : dialogs::PageAnswer::Stay;
}

constexpr dialogs::Command<State> kDataSourceCommands[] = {{kSources.dataSources, LBN_SELCHANGE, chooseDataSource},
                                                           {kSources.user, EN_CHANGE, loginChanged},
                                                           {kSources.password, EN_CHANGE, loginChanged}};
constexpr dialogs::Command<State> kSourceTableCommands[] = {{kTables.showTables, BN_CLICKED, tableKindChosen},
                                                            {kTables.showViews, BN_CLICKED, tableKindChosen},
                                                            {kTables.showBoth, BN_CLICKED, tableKindChosen}};

} // namespace

extern const dialogs::Dialog<State> kDestinationTablePageDialog{.entered = showDestinationTables,
                                                                .left = leaveDestinationTables};
extern const dialogs::Dialog<State> kDataSourcePageDialog{
    .initialise = limitPageLogin, .commands = kDataSourceCommands, .entered = enterDataSources, .left = leaveSources};
extern const dialogs::Dialog<State> kSourceTablePageDialog{
    .commands = kSourceTableCommands, .entered = showSourceTables, .left = leaveSourceTables};

} // namespace tabra::wizards::add_records
