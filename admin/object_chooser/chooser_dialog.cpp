// The database object chooser's main dialog: the connection's names, the pages the
// request asks for, the schema, and the dialog's own tools (driver information, SQL
// performer, another data source, another schema). The request is copied back on
// every way out.
#include "admin/driver_info/driver_info.h"
#include "admin/object_chooser/chooser_state.h"
#include "admin/object_chooser/resource_ids.h"
#include "admin/sql_performer/sql_performer.h"
#include "core/connection/connection_info.h"
#include "core/dialogs/dialog.h"
#include "core/module/module_state.h"
#include "core/persistence/data_source_dialogs.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"

#include <sqlext.h>

#include <array>
#include <memory>
#include <new>

namespace tabra::admin::object_chooser {
namespace {

using ids::kChooserDialog;
constexpr int32_t kInfoCapacity = 500;
constexpr int32_t kCaptionCapacity = 100;
constexpr int32_t kSchemaCapacity = sizeof DbObjectDialogRequest{}.Schema / sizeof(char16_t);

void showInfo(const ChooserState &state, int32_t control, SQLUSMALLINT code) {
    std::array<char16_t, kInfoCapacity> text{};
    if (state.connection != SQL_NULL_HDBC) connection::readTextInfo(state.connection, code, text.data(), kInfoCapacity);
    SetDlgItemTextW(state.dialog, control, text.data());
}

void showNames(const ChooserState &state) {
    SetDlgItemTextW(state.dialog, kChooserDialog.dataSource, state.request.DataSource.DataSourceName);
    showInfo(state, kChooserDialog.databaseName, SQL_DATABASE_NAME);
    showInfo(state, kChooserDialog.productName, SQL_DBMS_NAME);
}

void showSchema(const ChooserState &state) {
    SetDlgItemTextW(state.dialog, kChooserDialog.schema, state.schema().c_str());
}

void setCaption(HWND dialog, int32_t control, int32_t stringId) {
    std::array<char16_t, kCaptionCapacity> text{};
    module::LoadTranslatedString(module::resourceLibrary(), stringId, text.data(), kCaptionCapacity);
    SetDlgItemTextW(dialog, control, text.data());
}

void addPages(ChooserState &state) {
    HWND tab = GetDlgItem(state.dialog, kChooserDialog.pages);
    for (const PageKind &kind : pageKinds()) {
        if ((state.request.PageMask & kind.kind) == 0) continue;
        int32_t at = Ostrel_AddTabControlItem(tab, -1, module::resourceLibrary(), kind.templateId, kind.procedure,
                                              reinterpret_cast<LPARAM>(&state));
        if (at >= 0) state.pages.push_back({kind.kind, Ostrel_GetTabControlPage(tab, at)});
    }
    int32_t first = 0;
    for (size_t i = 0; i < state.pages.size(); ++i)
        if (state.pages[i].kind == state.request.DbObject.DbObjectType) first = static_cast<int32_t>(i);
    Ostrel_ShowTabControlItem(tab, first);
}

void initialise(HWND dialog, ChooserState &state) {
    state.dialog = dialog;
    state.pages.reserve(pageKinds().size());
    state.connect();
    showNames(state);
    showSchema(state);
    addPages(state);
    const DbObjectDialogRequest &request = state.request;
    if (request.Title != nullptr) SetWindowTextW(dialog, state.title.c_str());
    if ((request.CaptionOptions & TABRA_CHOOSER_CAPTION_OK) != 0) setCaption(dialog, IDOK, ids::kString.okCaption);
    if ((request.CaptionOptions & TABRA_CHOOSER_CAPTION_CANCEL) != 0)
        setCaption(dialog, IDCANCEL, ids::kString.cancelCaption);
    EnableWindow(GetDlgItem(dialog, kChooserDialog.help), (request.DialogOptions & TABRA_CHOOSER_OPTION_HELP) != 0);
    ShowWindow(GetDlgItem(dialog, kChooserDialog.changeDataSource),
               (request.DialogOptions & TABRA_CHOOSER_OPTION_DATA_SOURCE) != 0 ? SW_SHOW : SW_HIDE);
    Ostrel_CenterWindow(dialog, nullptr);
    updateStates(state);
}

// The user starts in the list of the page shown.
HWND currentList(HWND dialog, ChooserState &state) {
    HWND page = Ostrel_GetTabControlPage(GetDlgItem(dialog, kChooserDialog.pages), -1);
    for (const ChooserPage &entry : state.pages)
        if (entry.window == page) return GetDlgItem(page, pageKind(entry.kind).list);
    return nullptr;
}

void accept(HWND dialog, ChooserState &state, int32_t) {
    if (!takeSelection(state)) return;
    state.request.Action = TABRA_CHOOSER_ACTION_OK;
    EndDialog(dialog, 1);
}

void cancel(HWND dialog, ChooserState &state, int32_t) {
    state.request.Action = TABRA_CHOOSER_ACTION_CANCELLED;
    EndDialog(dialog, 2);
}

// A page has set the action (open, second choice).
void endWithPageAction(HWND dialog, ChooserState &state, int32_t) {
    if (takeSelection(state)) EndDialog(dialog, 1);
}

void driverInformation(HWND dialog, ChooserState &state, int32_t) {
    driver_info::showDriverInformation(state.connection, dialog);
}

void sqlPerformer(HWND, ChooserState &state, int32_t) {
    sql_performer::runSqlPerformer(state.connection);
    refillKeeping(state, TABRA_CHOOSER_PAGE_TABLES);
    refillKeeping(state, TABRA_CHOOSER_PAGE_VIEWS);
    updateStates(state);
}

// Another data source: its own schema, the one last chosen for it, or none where the
// database knows no schemas.
void changeDataSource(HWND, ChooserState &state, int32_t) {
    if (persistence::runDataSourceDialog(state.request.DataSource) != 1) return;
    state.disconnect();
    state.connect();
    if (state.connection == SQL_NULL_HDBC) {
        updateStates(state);
        return;
    }
    showNames(state);
    if (connection::schemaUsage(state.connection) == 0) {
        state.request.Schema[0] = u'\0';
        storeSchema(state);
    } else {
        platform::writeBounded(state.request.Schema, kSchemaCapacity, storedSchema(state));
    }
    showSchema(state);
    refillAll(state, true);
}

void chooseSchema(HWND dialog, ChooserState &state, int32_t) {
    std::u16string schema = state.schema();
    if (persistence::runSchemaDialog(dialog, state.connection, schema) != 1) return;
    platform::writeBounded(state.request.Schema, kSchemaCapacity, schema);
    showSchema(state);
    storeSchema(state);
    refillAll(state, false);
}

void pageChosen(HWND dialog, ChooserState &state, const NMHDR &) {
    Ostrel_ShowTabControlItem(GetDlgItem(dialog, kChooserDialog.pages), -1);
    updateStates(state);
}

constexpr dialogs::Command<ChooserState> kCommands[] = {
    {IDOK, BN_CLICKED, accept},
    {IDCANCEL, dialogs::kAnyNotification, cancel},
    {kChooserDialog.close, BN_CLICKED, cancel},
    {ids::kEndWithAction, BN_CLICKED, endWithPageAction},
    {kChooserDialog.driverInformation, BN_CLICKED, driverInformation},
    {kChooserDialog.sqlPerformer, BN_CLICKED, sqlPerformer},
    {kChooserDialog.changeDataSource, BN_CLICKED, changeDataSource},
    {kChooserDialog.chooseSchema, BN_CLICKED, chooseSchema},
};
constexpr dialogs::Notification<ChooserState> kNotifications[] = {
    {kChooserDialog.pages, TCN_SELCHANGE, pageChosen},
};
constexpr dialogs::Dialog<ChooserState> kDialog{
    .initialise = initialise, .initialFocus = currentList, .commands = kCommands, .notifications = kNotifications};

} // namespace
} // namespace tabra::admin::object_chooser

using namespace tabra::admin::object_chooser;

extern "C" INT_PTR DbObjectDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kDialog.answer(dialog, message, wParam, lParam);
}

extern "C" int32_t Tabra_DbObjectDialog(DbObjectDialogRequest *request) {
    if (request == nullptr) return 2;
    std::unique_ptr<ChooserState> state;
    try {
        state = std::make_unique<ChooserState>();
        if (request->Title != nullptr) state->title = request->Title;
    } catch (const std::bad_alloc &) {
        ShowMessage(tabra::core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
        return 2;
    }
    state->request = *request;
    state->request.Action = TABRA_CHOOSER_ACTION_CANCELLED;
    INT_PTR result = tabra::dialogs::runModal(kChooserDialog.id, DbObjectDialog_Callback, *state);
    state->disconnect();
    request->DataSource = state->request.DataSource;
    request->DbObject = state->request.DbObject;
    request->Action = state->request.Action;
    OstrelCopyString(request->Schema, state->request.Schema, kSchemaCapacity);
    return result == 1 ? 1 : 2;
}
