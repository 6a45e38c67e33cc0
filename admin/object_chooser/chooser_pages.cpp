// What the chooser's pages share (their kinds, lists, selections and enabled states)
// and the forms and reports pages, whose entries come from the host's own lists.
#include "admin/object_chooser/chooser_state.h"
#include "admin/object_chooser/resource_ids.h"
#include "core/connection/connection_info.h"
#include "core/dialogs/dialog.h"
#include "core/module/module_state.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "tabra_catalog.h"
#include "wizards/add_records/add_records_wizard.h"
#include "wizards/export/export_wizard.h"
#include "wizards/records/records_wizard.h"

#include <array>

namespace tabra::admin::object_chooser {
namespace {

constexpr int32_t kSelectionCapacity = 30000;
constexpr int32_t kStringCapacity = 300;
constexpr int32_t kSchemaCapacity = sizeof DbObjectDialogRequest{}.Schema / sizeof(char16_t);
constexpr int32_t kNameCapacity = sizeof DbObjectInfo{}.DbObjectName / sizeof(char16_t);
constexpr char16_t kLastUsedKey[] = u"LastUsed";
constexpr char16_t kSchemaKey[] = u"LastUsedDbaseSchema";

using ids::kFormsPage;
using ids::kReportsPage;
using ids::kTablesPage;
using ids::kViewsPage;

constexpr MaskedButton kTablesButtons[] = {
    {kTablesPage.open, TABRA_TABLES_OPEN},
    {kTablesPage.create, TABRA_TABLES_CREATE},
    {kTablesPage.remove, TABRA_TABLES_DELETE},
    {kTablesPage.copy, TABRA_TABLES_COPY},
    {kTablesPage.administer, TABRA_TABLES_ADMINISTER},
    {kTablesPage.import, TABRA_TABLES_IMPORT},
    {kTablesPage.exportRows, TABRA_TABLES_EXPORT},
    {kTablesPage.addRecords, TABRA_TABLES_ADD_RECORDS},
    {kTablesPage.deleteRecords, TABRA_TABLES_DELETE_RECORDS},
    {kTablesPage.updateRecords, TABRA_TABLES_UPDATE_RECORDS},
};
constexpr MaskedButton kViewsButtons[] = {
    {kViewsPage.open, TABRA_VIEWS_OPEN},
    {kViewsPage.create, TABRA_VIEWS_NEW},
    {kViewsPage.remove, TABRA_VIEWS_DELETE},
    {kViewsPage.copy, TABRA_VIEWS_COPY},
    {kViewsPage.edit, TABRA_VIEWS_EDIT},
    {kViewsPage.exportRows, TABRA_VIEWS_EXPORT},
    {kViewsPage.deleteRecords, TABRA_VIEWS_DELETE_RECORDS},
    {kViewsPage.updateRecords, TABRA_VIEWS_UPDATE_RECORDS},
};
constexpr MaskedButton kFormsButtons[] = {
    {kFormsPage.open, TABRA_FORMS_OPEN},      {kFormsPage.first, TABRA_FORMS_1038},
    {kFormsPage.second, TABRA_FORMS_1040},    {kFormsPage.third, TABRA_FORMS_1020},
    {kFormsPage.secondChoice, TABRA_FORMS_SECOND_CHOICE},
};
constexpr MaskedButton kReportsButtons[] = {
    {kReportsPage.first, TABRA_REPORTS_1034},  {kReportsPage.second, TABRA_REPORTS_1037},
    {kReportsPage.third, TABRA_REPORTS_1036},  {kReportsPage.secondChoice, TABRA_REPORTS_SECOND_CHOICE},
    {kReportsPage.fourth, TABRA_REPORTS_1038}, {kReportsPage.fifth, TABRA_REPORTS_1039},
};

// The buttons that follow each page's selection, whatever its mask said at start.
constexpr int32_t kTablesFollowers[] = {kTablesPage.open, kTablesPage.administer, kTablesPage.remove, kTablesPage.copy,
                                        kTablesPage.exportRows};
constexpr int32_t kViewsFollowers[] = {kViewsPage.open, kViewsPage.edit,          kViewsPage.remove,
                                       kViewsPage.copy, kViewsPage.exportRows,    kViewsPage.deleteRecords,
                                       kViewsPage.updateRecords};
constexpr int32_t kFormsFollowers[] = {kFormsPage.open, kFormsPage.secondChoice, kFormsPage.second, kFormsPage.third};
constexpr int32_t kReportsFollowers[] = {kReportsPage.fourth, kReportsPage.fifth, kReportsPage.secondChoice,
                                         kReportsPage.second, kReportsPage.third};

void fillForms(HWND, ChooserState &) { Tabra_FillFormsBox(); }
void fillReports(HWND, ChooserState &) { Tabra_FillReportsBox(); }

const PageKind kPageKinds[] = {
    {TABRA_CHOOSER_PAGE_TABLES, kTablesPage.id, DbObject_Tables_SubDialog_Callback, kTablesPage.list,
     &DbObjectDialogRequest::TablesButtons, kTablesButtons, kTablesFollowers, fillTables},
    {TABRA_CHOOSER_PAGE_VIEWS, kViewsPage.id, DbObject_Views_SubDialog_Callback, kViewsPage.list,
     &DbObjectDialogRequest::ViewsButtons, kViewsButtons, kViewsFollowers, fillViews},
    {TABRA_CHOOSER_PAGE_FORMS, kFormsPage.id, DbObject_Forms_SubDialog_Callback, kFormsPage.list,
     &DbObjectDialogRequest::FormsButtons, kFormsButtons, kFormsFollowers, fillForms},
    {TABRA_CHOOSER_PAGE_REPORTS, kReportsPage.id, DbObject_Reports_SubDialog_Callback, kReportsPage.list,
     &DbObjectDialogRequest::ReportsButtons, kReportsButtons, kReportsFollowers, fillReports},
};

HWND listOf(HWND page, int32_t kind) { return GetDlgItem(page, pageKind(kind).list); }

void selectEntry(HWND list, const std::u16string &name) {
    if (name.empty() || Ostrel_SelectBoxEntries(list, u'\t', name.c_str(), 0) < 1) Ostrel_SetBoxIndex(list, 0);
}

void enableControl(HWND dialog, int32_t control, bool enabled) { EnableWindow(GetDlgItem(dialog, control), enabled); }

// The selected entries of a list, tab-separated.
std::u16string selectedEntries(HWND list) {
    std::u16string text(kSelectionCapacity, u'\0');
    if (Ostrel_ReadBox(list, u'\t', OSTREL_READ_TEXTS | OSTREL_READ_SELECTED, text.data(), kSelectionCapacity) < 1)
        return {};
    return text.c_str();
}

void refill(HWND page, ChooserState &state, int32_t kind) {
    Ostrel_ResetBox(listOf(page, kind));
    pageKind(kind).fill(page, state);
}

// Forms and reports: a double click posts the page's command to the dialog, which has
// nothing to do with it there; their buttons set the action and end the dialog.
void openForm(HWND, ChooserState &state, int32_t) { endWithAction(state, TABRA_CHOOSER_ACTION_OPEN); }
void secondChoice(HWND, ChooserState &state, int32_t) { endWithAction(state, TABRA_CHOOSER_ACTION_SECOND_CHOICE); }
void postToDialog(ChooserState &state, int32_t command) { PostWmCommand(state.dialog, command, BN_CLICKED); }
void formDoubleClicked(HWND, ChooserState &state, int32_t) { postToDialog(state, kFormsPage.open); }
void reportDoubleClicked(HWND, ChooserState &state, int32_t) { postToDialog(state, kReportsPage.fifth); }
void startForms(HWND page, ChooserState &state) { startPage(page, state, TABRA_CHOOSER_PAGE_FORMS); }
void startReports(HWND page, ChooserState &state) { startPage(page, state, TABRA_CHOOSER_PAGE_REPORTS); }

constexpr dialogs::Command<ChooserState> kFormsCommands[] = {
    {kFormsPage.list, LBN_SELCHANGE, selectionChanged},
    {kFormsPage.list, LBN_DBLCLK, formDoubleClicked},
    {kFormsPage.open, BN_CLICKED, openForm},
    {kFormsPage.secondChoice, BN_CLICKED, secondChoice},
};
constexpr dialogs::Command<ChooserState> kReportsCommands[] = {
    {kReportsPage.list, LBN_SELCHANGE, selectionChanged},
    {kReportsPage.list, LBN_DBLCLK, reportDoubleClicked},
    {kReportsPage.secondChoice, BN_CLICKED, secondChoice},
};
constexpr dialogs::Dialog<ChooserState> kFormsPageDialog{.initialise = startForms, .commands = kFormsCommands};
constexpr dialogs::Dialog<ChooserState> kReportsPageDialog{.initialise = startReports, .commands = kReportsCommands};

} // namespace

ChooserState::~ChooserState() { disconnect(); }

void ChooserState::connect() { Tabra_ConnectDataSource(&request.DataSource, &environment, &connection); }

void ChooserState::disconnect() { Tabra_DisconnectDataSource(&environment, &connection); }

std::u16string ChooserState::schema() const {
    return std::u16string(platform::viewOfBuffer(request.Schema, kSchemaCapacity));
}

FreshConnection::FreshConnection(const DataSourceInfo &record) {
    Tabra_ConnectDataSource(&record, &environment_, &connection_);
}

FreshConnection::~FreshConnection() { Tabra_DisconnectDataSource(&environment_, &connection_); }

std::span<const PageKind> pageKinds() { return kPageKinds; }

const PageKind &pageKind(int32_t kind) {
    for (const PageKind &entry : kPageKinds)
        if (entry.kind == kind) return entry;
    return kPageKinds[0];
}

HWND pageOf(const ChooserState &state, int32_t kind) {
    for (const ChooserPage &page : state.pages)
        if (page.kind == kind) return page.window;
    return nullptr;
}

std::u16string selectedName(HWND page, int32_t kind) {
    HWND list = listOf(page, kind);
    std::array<char16_t, kNameCapacity> name{};
    int32_t index = Ostrel_GetBoxIndex(list);
    if (index < 0 || Ostrel_GetBoxEntry(list, index, name.data(), kNameCapacity) < 0) return {};
    return name.data();
}

void startPage(HWND page, ChooserState &state, int32_t kind) {
    const PageKind &entry = pageKind(kind);
    refill(page, state, kind);
    selectEntry(listOf(page, kind),
                std::u16string(platform::viewOfBuffer(state.request.DbObject.DbObjectName, kNameCapacity)));
    for (const MaskedButton &button : entry.buttons)
        enableControl(page, button.control, (state.request.*entry.mask & button.bit) != 0);
}

void refillKeeping(ChooserState &state, int32_t kind) {
    HWND page = pageOf(state, kind);
    if (page == nullptr) return;
    std::u16string kept = selectedEntries(listOf(page, kind));
    refill(page, state, kind);
    selectEntry(listOf(page, kind), kept);
}

void refillSelecting(ChooserState &state, int32_t kind, const std::u16string &name) {
    HWND page = pageOf(state, kind);
    if (page == nullptr) return;
    refill(page, state, kind);
    selectEntry(listOf(page, kind), name);
    updateStates(state);
}

void refillAtPosition(ChooserState &state, int32_t kind) {
    HWND page = pageOf(state, kind);
    if (page == nullptr) return;
    HWND list = listOf(page, kind);
    int32_t position = Ostrel_GetBoxIndex(list);
    refill(page, state, kind);
    Ostrel_SetBoxIndex(list, std::min(std::max(position, 0), Ostrel_GetBoxCount(list) - 1));
    updateStates(state);
}

void refillAll(ChooserState &state, bool entry0) {
    for (const ChooserPage &page : state.pages) {
        if (entry0) {
            refill(page.window, state, page.kind);
            Ostrel_SetBoxIndex(listOf(page.window, page.kind), 0);
        } else {
            refillKeeping(state, page.kind);
        }
    }
    updateStates(state);
}

void selectionChanged(HWND, ChooserState &state, int32_t) { updateStates(state); }

void endWithAction(ChooserState &state, int32_t action) {
    state.request.Action = action;
    SendMessageW(state.dialog, WM_COMMAND, MAKEWPARAM(ids::kEndWithAction, BN_CLICKED), 0);
}

bool takeSelection(ChooserState &state) {
    HWND tab = GetDlgItem(state.dialog, ids::kChooserDialog.pages);
    auto current = static_cast<size_t>(SendMessageW(tab, TCM_GETCURSEL, 0, 0));
    if (current >= state.pages.size()) return false;
    const ChooserPage &page = state.pages[current];
    state.request.DbObject.DbObjectType = page.kind;
    platform::writeBounded(state.request.DbObject.DbObjectName, kNameCapacity, selectedName(page.window, page.kind));
    return state.request.DbObject.DbObjectName[0] != u'\0';
}

void updateStates(ChooserState &state) {
    const auto &dialog = ids::kChooserDialog;
    bool schemas = connection::schemaUsage(state.connection) != 0;
    for (int32_t control : {dialog.schemaGroup, dialog.schema, dialog.chooseSchema})
        enableControl(state.dialog, control, schemas);
    bool selected = takeSelection(state);
    enableControl(state.dialog, IDOK, selected && (state.request.DialogOptions & TABRA_CHOOSER_OPTION_OK) != 0);
    for (const ChooserPage &page : state.pages) {
        bool pageSelected = Ostrel_GetBoxIndex(listOf(page.window, page.kind)) >= 0;
        for (int32_t control : pageKind(page.kind).followers) enableControl(page.window, control, pageSelected);
    }
}

void showNotice(int32_t stringId) {
    Ostrel_DisplayTempWind(module::resourceLibrary(), stringId, module::kMessageWindowTime,
                           module::kMessageWindowColour);
}

std::u16string formattedString(int32_t stringId, const std::u16string &argument) {
    std::array<char16_t, kStringCapacity> text{};
    module::LoadTranslatedString(module::resourceLibrary(), stringId, text.data(), kStringCapacity);
    std::u16string result = text.data();
    if (auto at = result.find(u"%s"); at != std::u16string::npos) result.replace(at, 2, argument);
    return result;
}

DbObjectInfo objectRecord(const ChooserState &state, const std::u16string &name, int32_t kind) {
    DbObjectInfo object = state.request.DbObject;
    platform::writeBounded(object.DbObjectName, kNameCapacity, name);
    object.DbObjectType = kind;
    return object;
}

void runObjectTool(HWND page, ChooserState &state, int32_t kind, int32_t (*tool)(SQLHDBC, DbObjectInfo *)) {
    std::u16string name = selectedName(page, kind);
    if (name.empty()) return;
    DbObjectInfo object = objectRecord(state, name, kind);
    FreshConnection fresh(state.request.DataSource);
    if (fresh) tool(fresh.handle(), &object);
}

int32_t exportRows(SQLHDBC connection, DbObjectInfo *object) {
    return wizards::exporting::runExportWizard(connection, object);
}
int32_t addRecords(SQLHDBC connection, DbObjectInfo *object) {
    return wizards::add_records::runAddRecordsWizard(connection, object);
}
int32_t deleteRecords(SQLHDBC connection, DbObjectInfo *object) {
    return wizards::records::runDeleteRecordsWizard(connection, object);
}
int32_t updateRecords(SQLHDBC connection, DbObjectInfo *object) {
    return wizards::records::runUpdateRecordsWizard(connection, object);
}

int32_t readChoice(const char16_t *value) {
    return Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kLastUsedKey, value, 1);
}

void writeChoice(const char16_t *value, int32_t number) {
    Ostrel_WriteLongToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kLastUsedKey, value, number);
}

void storeSchema(const ChooserState &state) {
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kSchemaKey,
                                 state.request.DataSource.DataSourceName, state.schema().c_str());
}

std::u16string storedSchema(const ChooserState &state) {
    std::array<char16_t, kSchemaCapacity> schema{};
    Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kSchemaKey,
                                  state.request.DataSource.DataSourceName, u"", schema.data(), kSchemaCapacity,
                                  kSchemaCapacity - 1);
    return schema.data();
}

} // namespace tabra::admin::object_chooser

using namespace tabra::admin::object_chooser;

extern "C" INT_PTR DbObject_Forms_SubDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kFormsPageDialog.answer(dialog, message, wParam, lParam);
}

extern "C" INT_PTR DbObject_Reports_SubDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kReportsPageDialog.answer(dialog, message, wParam, lParam);
}
