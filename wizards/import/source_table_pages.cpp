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
#include "wizards/import/import_source.h"
#include "wizards/resource_ids.h"

namespace tabra::wizards::importing {
namespace {

constexpr auto &kSources = ids::kDataSourcePage;
constexpr auto &kTables = ids::kSourceTablePage;
constexpr int32_t kTableListCapacity = 30000;
constexpr char16_t kRememberedUsers[] = u"DataSourceDialog";

HWND dataSourceList(HWND page) { return GetDlgItem(page, kSources.dataSources); }
HWND tableList(HWND page) { return GetDlgItem(page, kTables.tables); }

// The user last used with the data source in the data source dialog.
std::u16string rememberedUser(const char16_t *dataSource) {
    char16_t user[std::size(DataSourceInfo{}.UserId)] = {};
    Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRememberedUsers, dataSource, u"", user,
                                  static_cast<int32_t>(std::size(user)), 0);
    return user;
}

void showDataSources(HWND page, ImportWizardState &state) {
    HWND list = dataSourceList(page);
    Tabra_FillDataSourcesBox(list);
    const DataSourceInfo record = state.sourceRecord;
    int32_t found = Ostrel_FindBoxEntry(list, record.DataSourceName, 0, 0);
    Ostrel_SetBoxIndex(list, found >= 0 ? found : 0);
    if (found >= 0) {
        SetDlgItemTextW(page, kSources.user, record.UserId);
        SetDlgItemTextW(page, kSources.password, record.Password);
    } else {
        char16_t name[std::size(DataSourceInfo{}.DataSourceName)] = {};
        Ostrel_GetBoxEntry(list, -1, name, static_cast<int32_t>(std::size(name)));
        SetDlgItemTextW(page, kSources.user, rememberedUser(name).c_str());
        SetDlgItemTextW(page, kSources.password, u"");
    }
}

void dataSourceChosen(HWND page, ImportWizardState &, int32_t) {
    char16_t name[std::size(DataSourceInfo{}.DataSourceName)] = {};
    Ostrel_GetBoxEntry(dataSourceList(page), -1, name, static_cast<int32_t>(std::size(name)));
    SetDlgItemTextW(page, kSources.user, rememberedUser(name).c_str());
    SetDlgItemTextW(page, kSources.password, u"");
}

dialogs::PageAnswer leaveDataSources(HWND page, ImportWizardState &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    DataSourceInfo record = state.sourceRecord;
    if (Ostrel_GetBoxEntry(dataSourceList(page), -1, record.DataSourceName,
                           static_cast<int32_t>(std::size(record.DataSourceName))) < 1) {
        ShowMessage(core::ids::kMessage.emptyDataSourceName, nullptr, nullptr, nullptr);
        return dialogs::PageAnswer::Stay;
    }
    GetDlgItemTextW(page, kSources.user, record.UserId, static_cast<int32_t>(std::size(record.UserId)));
    GetDlgItemTextW(page, kSources.password, record.Password, static_cast<int32_t>(std::size(record.Password)));
    if (!state.source.open(record)) return dialogs::PageAnswer::Stay;
    state.sourceRecord = record;
    Tabra_WriteDataSourceToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, &record);
    return dialogs::PageAnswer::GoOn;
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

void limitLogin(HWND page, ImportWizardState &) {
    SendMessageW(GetDlgItem(page, kSources.user), EM_LIMITTEXT, std::size(DataSourceInfo{}.UserId) - 1, 0);
    SendMessageW(GetDlgItem(page, kSources.password), EM_LIMITTEXT, std::size(DataSourceInfo{}.Password) - 1, 0);
}

constexpr dialogs::Command<ImportWizardState> kDataSourceCommands[] = {
    {kSources.dataSources, LBN_SELCHANGE, dataSourceChosen}};

} // namespace

extern const dialogs::Dialog<ImportWizardState> kDataSourcePageDialog{
    .initialise = limitLogin, .commands = kDataSourceCommands, .entered = showDataSources, .left = leaveDataSources};
extern const dialogs::Dialog<ImportWizardState> kSourceTablePageDialog{.entered = showTables, .left = leaveTables};

} // namespace tabra::wizards::importing
