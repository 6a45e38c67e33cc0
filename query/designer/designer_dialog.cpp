// The designer dialog (template 10064): a tab page per list of the design (tables,
// result columns, selection, sort order) above the statement they build, which is
// shown again after every change and cannot be edited. Schema chooses the schema the
// tables are offered from (every page is filled again), Test tries the statement on
// the database. The dialog works on the design it is handed; OK keeps it, Cancel
// leaves it to be thrown away.
#include "core/dialogs/dialog.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "query/designer/design_copy.h"
#include "query/designer/designer_state.h"
#include "query/designer/list_page.h"
#include "query/designer/statement_check.h"
#include "query/designer/statement_generation.h"
#include "query/resource_ids.h"
#include "tabra_connection.h"
#include "tabra_designer.h"

#include <vector>

namespace tabra::query::designer {

namespace {

using ids::kDesignerDialog;

constexpr int32_t kTextCapacity = 300;
constexpr int32_t kSchemaCapacity = 100; // the schema dialog's

struct PageTemplate {
    int32_t id;
    DLGPROC procedure;
};

// In the order of Page.
constexpr PageTemplate kPageTemplates[kPageCount] = {
    {ids::kDesignerTablesPage.id, Tables_SubDialog_Callback},
    {ids::kDesignerColumnsPage.id, Columns_SubDialog_Callback},
    {ids::kDesignerSelectionPage.id, Selection_SubDialog_Callback},
    {ids::kDesignerSortPage.id, OrderBy_SubDialog_Callback},
};

void showStatement(DesignerState &state) {
    SetDlgItemTextW(state.dialog, kDesignerDialog.statement, statementText(state.design).c_str());
}

void showSchema(DesignerState &state) {
    const std::u16string &schema = state.design.schema;
    SetDlgItemTextW(state.dialog, kDesignerDialog.schema,
                    platform::isBlank(schema) ? designerText(ids::kDesignerString.defaultSchema).c_str() : schema.c_str());
}

void initialise(HWND dialog, DesignerState &state) {
    state.dialog = dialog;
    state.design.dialog = dialog;
    HWND tab = GetDlgItem(dialog, kDesignerDialog.pages);
    for (size_t i = 0; i < kPageCount; ++i) {
        int32_t at = Ostrel_AddTabControlItem(tab, -1, module::resourceLibrary(), kPageTemplates[i].id,
                                              kPageTemplates[i].procedure, reinterpret_cast<LPARAM>(&state));
        state.pages[i] = Ostrel_GetTabControlPage(tab, at);
    }
    Ostrel_ShowTabControlItem(tab, 0);
    showSchema(state);
    showStatement(state);
}

// The user starts with what the first page offers.
HWND firstList(HWND, DesignerState &state) {
    HWND page = state.pages[static_cast<size_t>(Page::Tables)];
    return page != nullptr ? GetDlgItem(page, ids::kDesignerList.available) : nullptr;
}

void pageChosen(HWND dialog, DesignerState &, const NMHDR &) {
    Ostrel_ShowTabControlItem(GetDlgItem(dialog, kDesignerDialog.pages), -1);
}

void chooseSchema(HWND dialog, DesignerState &state, int32_t) {
    char16_t schema[kSchemaCapacity] = {};
    OstrelCopyString(schema, state.design.schema.c_str(), kSchemaCapacity);
    if (Tabra_SelectDbaseSchema(dialog, state.design.connection, schema) != 1) return;
    state.design.schema = std::u16string(schema).substr(0, kSchemaLength);
    state.catalog.forget();
    showSchema(state);
    designChanged(state, Changed::Schema);
}

void testDesign(HWND, DesignerState &state, int32_t) {
    if (testStatement(state.design) == 1) ShowMessage(ids::kMessage.statementValid, nullptr, nullptr, nullptr);
}

void showHelp(HWND, DesignerState &, int32_t) { Ostrel_PerformHelp(module::resourceLibrary(), kDesignerDialog.id, 0); }

constexpr tabra::dialogs::Command<DesignerState> kCommands[] = {
    {kDesignerDialog.chooseSchema, BN_CLICKED, chooseSchema},
    {kDesignerDialog.test, BN_CLICKED, testDesign},
    {IDHELP, BN_CLICKED, showHelp},
};
constexpr tabra::dialogs::Notification<DesignerState> kNotifications[] = {
    {kDesignerDialog.pages, TCN_SELCHANGE, pageChosen},
};
constexpr tabra::dialogs::Dialog<DesignerState> kDialog{
    .initialise = initialise, .initialFocus = firstList, .commands = kCommands, .notifications = kNotifications};

} // namespace

void designChanged(DesignerState &state, Changed what) {
    if (what != Changed::Statement)
        for (size_t i = 0; i < kPageCount; ++i) showPage(state, static_cast<Page>(i));
    showStatement(state);
}

void showPage(DesignerState &state, Page page) {
    HWND window = state.pages[static_cast<size_t>(page)];
    if (window == nullptr) return;
    if (page == Page::Selection) showSelectionPage(window, state);
    else showListPage(window, state);
}

void showInBox(HWND dialog, int32_t id, const std::u16string &text) {
    HWND box = GetDlgItem(dialog, id);
    Ostrel_SetBoxIndex(box, text.empty() ? -1 : Ostrel_FindBoxEntry(box, text.c_str(), 0, 0));
    SetWindowTextW(box, text.c_str());
}

std::u16string designerText(int32_t stringId) {
    char16_t text[kTextCapacity] = {};
    module::LoadTranslatedString(module::resourceLibrary(), stringId, text, kTextCapacity);
    return text;
}

std::u16string controlText(HWND dialog, int32_t id) {
    constexpr int32_t capacity = static_cast<int32_t>(kItemLength) + 1;
    std::vector<char16_t> text(capacity, u'\0');
    GetDlgItemTextW(dialog, id, text.data(), capacity);
    return text.data();
}

int32_t runDesignerDialog(HWND parent, QueryDesign &design) {
    DesignerState state(design);
    INT_PTR result = tabra::dialogs::runModal(kDesignerDialog.id, SelFact_Dialog_Callback, state,
                                              parent != nullptr ? parent : GetActiveWindow());
    design.dialog = nullptr;
    return result == IDOK ? 1 : 2;
}

} // namespace tabra::query::designer

extern "C" INT_PTR SelFact_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::query::designer::kDialog.answer(dialog, message, wParam, lParam);
}

extern "C" int32_t Tabra_SelFact_Edit(SelFact handle, HWND parent) {
    return tabra::query::designer::editSelFact(handle, parent, tabra::query::designer::runDesignerDialog);
}
