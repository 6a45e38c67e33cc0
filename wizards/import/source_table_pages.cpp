// The pages of a table source: the data source with its login, and the table. Leaving
// the data source page connects the import's own source connection (a failed login is
// shown and keeps the user there); leaving the table page reads the table's columns
// when the data source or the table changed since the last reading. The choices are
// kept in the registry (the data source record and "Table" in the key "Import").
#include "catalog/table_list.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel_registry.h"
#include "ostrel_ui.h"
#include "platform/text/bounded_text.h"
#include "tabra_catalog.h"
#include "wizards/import/import_pages.h"
#include "wizards/data_source_page.h"
#include "wizards/import/import_source.h"
#include "wizards/resource_ids.h"

namespace tabra::wizards::importing {
namespace {

constexpr auto &kSources = ids::kDataSourcePage;
constexpr auto &kTables = ids::kSourceTablePage;
constexpr int32_t kTableListCapacity = 30000;

HWND tableList(HWND page) { return GetDlgItem(page, kTables.tables); }

static_assert(kSources.user == kDataSourceControls.user && kSources.password == kDataSourceControls.password &&
                  kSources.dataSources == kDataSourceControls.dataSources,
              "the data source page has the shared page's controls");

void enterDataSources(HWND page, ImportWizardState &state) { showDataSources(page, state.sourceRecord); }
void chooseDataSource(HWND page, ImportWizardState &, int32_t) { dataSourceChosen(page); }
dialogs::PageAnswer leaveSources(HWND page, ImportWizardState &state, dialogs::Leaving direction) {
    return leaveDataSources(page, state.sourceRecord, state.source, kRegistryKey, direction);
}

void showTables(HWND page, ImportWizardState &state) {
    HWND list = tableList(page);
    Ostrel_FillBox(list, u'\t', nullptr);
    if (auto tables = catalog::tableList(state.source.handle(), TABRA_TABLE_TYPE_TABLE | TABRA_TABLE_TYPE_VIEW, nullptr,
                                         0, kTableListCapacity, u"\t"))
        Ostrel_FillBox(list, u'\t', tables->c_str());
    int32_t found = Ostrel_FindBoxEntry(list, state.sourceTable.c_str(), 0, 0);
    Ostrel_SetBoxIndex(list, found >= 0 ? found : 0);
}

dialogs::PageAnswer leaveTables(HWND page, ImportWizardState &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    char16_t table[kTableNameCapacity] = {};
    if (Ostrel_GetBoxEntry(tableList(page), -1, table, kTableNameCapacity) < 1) {
        ShowMessage(wizards::ids::kMessage.nothingChosen, nullptr, nullptr, nullptr);
        SetFocus(tableList(page));
        return dialogs::PageAnswer::Stay;
    }
    state.sourceTable = table;
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, kTableValue, table);
    return readFieldsIfChanged(state) ? dialogs::PageAnswer::GoOn : dialogs::PageAnswer::Stay;
}

void limitPageLogin(HWND page, ImportWizardState &) { limitLogin(page); }

constexpr dialogs::Command<ImportWizardState> kDataSourceCommands[] = {
    {kSources.dataSources, LBN_SELCHANGE, chooseDataSource}};

} // namespace

extern const dialogs::Dialog<ImportWizardState> kDataSourcePageDialog{
    .initialise = limitPageLogin, .commands = kDataSourceCommands, .entered = enterDataSources, .left = leaveSources};
extern const dialogs::Dialog<ImportWizardState> kSourceTablePageDialog{.entered = showTables, .left = leaveTables};

} // namespace tabra::wizards::importing
