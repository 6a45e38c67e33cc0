// The chooser's views page: the views of the schema (only those made with the view
// editor when asked) and the view editor's tools for them.
#include "admin/object_chooser/chooser_state.h"
#include "admin/object_chooser/resource_ids.h"
#include "admin/resource_ids.h"
#include "catalog/table_operations.h"
#include "core/dialogs/dialog.h"
#include "ostrel.h"
#include "query/view_editor/view_editor.h"
#include "tabra_catalog.h"

#include <array>

namespace tabra::admin::object_chooser {
namespace {

using ids::kViewsPage;
using query::view_editor::ViewEditState;
constexpr int32_t kKind = TABRA_CHOOSER_PAGE_VIEWS;
constexpr int32_t kNameCapacity = sizeof DbObjectInfo{}.DbObjectName / sizeof(char16_t);
// The view editor's flags: a new view, an existing one to change.
constexpr int32_t kNewViewFlags = 0x1000001;
constexpr int32_t kEditViewFlags = 0x1000002;
constexpr int32_t kDropReportingErrors = 0;

ViewEditState editState(const ChooserState &state) {
    ViewEditState view;
    view.connection = state.connection;
    view.schema = state.schema();
    return view;
}

void start(HWND page, ChooserState &state) {
    CheckDlgButton(page, kViewsPage.editorViewsOnly,
                   readChoice(kEditorViewsOnlyValue) != 0 ? BST_CHECKED : BST_UNCHECKED);
    startPage(page, state, kKind);
}

void openView(HWND, ChooserState &state, int32_t) { endWithAction(state, TABRA_CHOOSER_ACTION_OPEN); }

void editorViewsOnlyToggled(HWND page, ChooserState &state, int32_t) {
    refillKeeping(state, kKind);
    writeChoice(kEditorViewsOnlyValue, IsDlgButtonChecked(page, kViewsPage.editorViewsOnly) == BST_CHECKED ? 1 : 0);
    updateStates(state);
}

void newView(HWND, ChooserState &state, int32_t) {
    ViewEditState view = editState(state);
    if (query::view_editor::runViewEditor(view, kNewViewFlags, state.dialog) != 1) return;
    refillSelecting(state, kKind, view.name);
    showNotice(ids::kString.viewCreated);
}

// A view without a stored statement is still opened, after the message: the user may
// write its statement again.
void editView(HWND page, ChooserState &state, int32_t) {
    std::u16string name = selectedName(page, kKind);
    if (name.empty()) return;
    ViewEditState view = editState(state);
    if (!query::view_editor::loadViewItems(view, name))
        ShowMessage(ids::kMessage.noStoredStatement, name.c_str(), nullptr, nullptr);
    view.name = name;
    if (query::view_editor::runViewEditor(view, kEditViewFlags, state.dialog) != 1) return;
    refillSelecting(state, kKind, view.name);
    showNotice(ids::kString.viewChanged);
}

void copyView(HWND page, ChooserState &state, int32_t) {
    std::u16string name = selectedName(page, kKind);
    if (name.empty()) return;
    ViewEditState view = editState(state);
    if (!query::view_editor::loadViewItems(view, name)) {
        ShowMessage(ids::kMessage.noStoredStatement, name.c_str(), nullptr, nullptr);
        return;
    }
    std::u16string copyName =
        catalog::uniqueTableName(state.connection, formattedString(ids::kString.copyName, name), kNameCapacity);
    if (query::view_editor::createView(view, copyName) != 1) return;
    refillSelecting(state, kKind, copyName);
    showNotice(ids::kString.viewCreated);
}

// The list is read again whatever the drop did: a failed drop may still have removed
// the view's stored items.
void removeView(HWND page, ChooserState &state, int32_t) {
    std::u16string name = selectedName(page, kKind);
    if (name.empty() || ShowMessage(admin::ids::kMessage.confirmDropView, name.c_str(), nullptr, nullptr) != IDYES)
        return;
    ViewEditState view = editState(state);
    query::view_editor::dropView(view, name, kDropReportingErrors);
    refillAtPosition(state, kKind);
    showNotice(ids::kString.viewDeleted);
}

constexpr dialogs::Command<ChooserState> kCommands[] = {
    {kViewsPage.list, LBN_SELCHANGE, selectionChanged},
    {kViewsPage.open, BN_CLICKED, openView},
    {kViewsPage.editorViewsOnly, BN_CLICKED, editorViewsOnlyToggled},
    {kViewsPage.create, BN_CLICKED, newView},
    {kViewsPage.edit, BN_CLICKED, editView},
    {kViewsPage.copy, BN_CLICKED, copyView},
    {kViewsPage.remove, BN_CLICKED, removeView},
    {kViewsPage.exportRows, BN_CLICKED, objectToolCommand<kKind, exportRows>},
    {kViewsPage.deleteRecords, BN_CLICKED, objectToolCommand<kKind, deleteRecords>},
    {kViewsPage.updateRecords, BN_CLICKED, objectToolCommand<kKind, updateRecords>},
};
constexpr dialogs::Dialog<ChooserState> kPageDialog{
    .initialise = start, .commands = kCommands, .doubleClick = {kViewsPage.list, kViewsPage.open}};

} // namespace

void fillViews(HWND page, ChooserState &state) {
    HWND list = GetDlgItem(page, kViewsPage.list);
    std::u16string schema = state.schema();
    Tabra_FillTablesBoxExtended(state.connection, TABRA_TABLE_TYPE_VIEW, schema.c_str(), 0, list);
    if (IsDlgButtonChecked(page, kViewsPage.editorViewsOnly) != BST_CHECKED) return;
    for (int32_t index = Ostrel_GetBoxCount(list) - 1; index >= 0; --index) {
        std::array<char16_t, kNameCapacity> name{};
        Ostrel_GetBoxEntry(list, index, name.data(), kNameCapacity);
        ViewEditState view = editState(state);
        if (!query::view_editor::loadViewItems(view, name.data())) Ostrel_DeleteBoxEntry(list, index);
    }
}

} // namespace tabra::admin::object_chooser

extern "C" INT_PTR DbObject_Views_SubDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::admin::object_chooser::kPageDialog.answer(dialog, message, wParam, lParam);
}
