// The source data source page of the wizards.
#include "wizards/data_source_page.h"

#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel_registry.h"
#include "ostrel_ui.h"

#include <iterator>
#include <string>

namespace tabra::wizards {
namespace {

constexpr auto &kControls = kDataSourceControls;
constexpr char16_t kRememberedUsers[] = u"DataSourceDialog";

HWND dataSourceList(HWND page) { return GetDlgItem(page, kControls.dataSources); }

// The user last used with the data source in the data source dialog.
std::u16string rememberedUser(const char16_t *dataSource) {
    char16_t user[std::size(DataSourceInfo{}.UserId)] = {};
    Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRememberedUsers, dataSource, u"", user,
                                  static_cast<int32_t>(std::size(user)), 0);
    return user;
}

} // namespace

void limitLogin(HWND page) {
    SendMessageW(GetDlgItem(page, kControls.user), EM_LIMITTEXT, std::size(DataSourceInfo{}.UserId) - 1, 0);
    SendMessageW(GetDlgItem(page, kControls.password), EM_LIMITTEXT, std::size(DataSourceInfo{}.Password) - 1, 0);
}

void showDataSources(HWND page, DataSourceInfo record) {
    HWND list = dataSourceList(page);
    Tabra_FillDataSourcesBox(list);
    int32_t found = Ostrel_FindBoxEntry(list, record.DataSourceName, 0, 0);
    Ostrel_SetBoxIndex(list, found >= 0 ? found : 0);
    if (found >= 0) {
        SetDlgItemTextW(page, kControls.user, record.UserId);
        SetDlgItemTextW(page, kControls.password, record.Password);
    } else {
        dataSourceChosen(page);
    }
}

void dataSourceChosen(HWND page) {
    char16_t name[std::size(DataSourceInfo{}.DataSourceName)] = {};
    Ostrel_GetBoxEntry(dataSourceList(page), -1, name, static_cast<int32_t>(std::size(name)));
    SetDlgItemTextW(page, kControls.user, rememberedUser(name).c_str());
    SetDlgItemTextW(page, kControls.password, u"");
}

dialogs::PageAnswer leaveDataSources(HWND page, DataSourceInfo &chosen, SourceConnection &source,
                                     const char16_t *registryKey, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    DataSourceInfo record = chosen;
    if (Ostrel_GetBoxEntry(dataSourceList(page), -1, record.DataSourceName,
                           static_cast<int32_t>(std::size(record.DataSourceName))) < 1) {
        ShowMessage(core::ids::kMessage.emptyDataSourceName, nullptr, nullptr, nullptr);
        return dialogs::PageAnswer::Stay;
    }
    GetDlgItemTextW(page, kControls.user, record.UserId, static_cast<int32_t>(std::size(record.UserId)));
    GetDlgItemTextW(page, kControls.password, record.Password, static_cast<int32_t>(std::size(record.Password)));
    if (!source.open(record)) return dialogs::PageAnswer::Stay;
    chosen = record;
    Tabra_WriteDataSourceToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, registryKey, &record);
    return dialogs::PageAnswer::GoOn;
}

} // namespace tabra::wizards
