// The page on which a wizard asks for its source data source and the login (the
// import's table source, the add records wizard): the data sources in a list, the
// record's one chosen (else the first, with the user last used with it), the user name
// and password in two edits. Leaving forward connects the wizard's source connection
// (an empty name gives message 1608, a failed login is shown; both keep the user
// there) and writes the record to the wizard's registry key.
#pragma once

#include "core/dialogs/dialog.h"
#include "tabra_connection.h"
#include "wizards/source_connection.h"

namespace tabra::wizards {

// The page's controls (the same in every wizard's template).
inline constexpr struct DataSourceControls {
    int32_t user = 1002;
    int32_t password = 1003;
    int32_t dataSources = 1004;
} kDataSourceControls{};

void limitLogin(HWND page);
// The record is taken as a copy: the edits may copy their text back into the original.
void showDataSources(HWND page, DataSourceInfo record);
// The list's choice changed: the user last used with it, no password.
void dataSourceChosen(HWND page);
dialogs::PageAnswer leaveDataSources(HWND page, DataSourceInfo &record, SourceConnection &source,
                                     const char16_t *registryKey, dialogs::Leaving direction);

} // namespace tabra::wizards
