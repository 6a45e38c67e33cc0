// Page 2 of the export wizard: the fields, one row each with its column and the
// heading it is written under (or that it is not written). The edit button, a double
// click or the context menu's first command open the field dialog; the menu also marks
// every selected row as written or not written.
#include "core/module/module_state.h"
#include "core/module/translated_string.h"
#include "ostrel.h"
#include "wizards/field_menu.h"
#include "wizards/list_view_rows.h"
#include "wizards/export/export_pages.h"

#include <vector>

namespace tabra::wizards::exporting {
namespace {

constexpr int32_t kColumnListCapacity = 300;
constexpr int32_t kNotExportedCapacity = 100;

HWND fieldList(HWND page) { return GetDlgItem(page, ids::kFieldsPage.fields); }

// The rows the user has selected, in list order.
std::vector<int32_t> selectedRows(HWND page) {
    std::vector<int32_t> rows;
    for (auto row = static_cast<int32_t>(SendMessageW(fieldList(page), LVM_GETNEXTITEM, static_cast<WPARAM>(-1),
                                                      LVNI_SELECTED));
         row >= 0; row = static_cast<int32_t>(SendMessageW(fieldList(page), LVM_GETNEXTITEM, static_cast<WPARAM>(row),
                                                            LVNI_SELECTED)))
        rows.push_back(row);
    return rows;
}

// The heading column's text: the heading of a written field, else "not exported".
std::u16string shownHeading(const ExportField *field) {
    if (field != nullptr && field->selected && !field->heading.empty()) return field->heading;
    char16_t text[kNotExportedCapacity] = {};
    module::LoadTranslatedString(module::resourceLibrary(), ids::kString.notExported, text, kNotExportedCapacity);
    return text;
}

// Shows the field of the row (a row stands for the list slot of the same index).
void redrawRow(HWND page, const ExportWizardState &state, int32_t row) {
    const ExportField *field = state.fields.at(static_cast<std::size_t>(row));
    setCellText(fieldList(page), row, 0, field != nullptr ? field->name : u"");
    setCellText(fieldList(page), row, 1, shownHeading(field));
}

void enableEdit(HWND page) {
    EnableWindow(GetDlgItem(page, ids::kFieldsPage.edit), !selectedRows(page).empty());
}

void createColumns(HWND page, ExportWizardState &) {
    char16_t columns[kColumnListCapacity] = {};
    module::LoadTranslatedString(module::resourceLibrary(), ids::kString.fieldColumns, columns, kColumnListCapacity);
    Ostrel_ListView_CreateColumns(fieldList(page), columns);
}

void showFields(HWND page, ExportWizardState &state) {
    HWND list = fieldList(page);
    SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
    for (std::size_t index = 0; index < state.fields.count(); ++index) {
        auto row = Ostrel_ListView_InsertItem(list, -1, u"", u'\t', static_cast<LPARAM>(index));
        if (row >= 0) redrawRow(page, state, row);
    }
    SetFocus(list);
    enableEdit(page);
}

void editRow(HWND page, ExportWizardState &state, int32_t row) {
    ExportField *field = state.fields.at(static_cast<std::size_t>(row));
    if (field != nullptr && editField(*field)) redrawRow(page, state, row);
}

void editFirstSelected(HWND page, ExportWizardState &state, int32_t) {
    auto rows = selectedRows(page);
    if (!rows.empty()) editRow(page, state, rows.front());
}

void markSelected(HWND page, ExportWizardState &state, bool exported) {
    for (int32_t row : selectedRows(page)) {
        if (ExportField *field = state.fields.at(static_cast<std::size_t>(row))) {
            field->selected = exported;
            redrawRow(page, state, row);
        }
    }
}

// The context menu at the pointer; "edit" only for exactly one selected row.
void showContextMenu(HWND page, ExportWizardState &state, const NMHDR &) {
    auto rows = selectedRows(page);
    if (rows.empty()) return;
    const int32_t chosen = trackFieldMenu(page, ids::kFieldMenu.id, ids::kFieldMenu.edit, rows.size());
    if (chosen == ids::kFieldMenu.edit && rows.size() == 1) editRow(page, state, rows.front());
    else if (chosen == ids::kFieldMenu.exported) markSelected(page, state, true);
    else if (chosen == ids::kFieldMenu.notExported) markSelected(page, state, false);
}

void selectionChanged(HWND page, ExportWizardState &, const NMHDR &) { enableEdit(page); }

dialogs::PageAnswer leave(HWND, ExportWizardState &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back || state.fields.selectedNamedCount() > 0) return dialogs::PageAnswer::GoOn;
    ShowMessage(ids::kMessage.noFieldChosen, nullptr, nullptr, nullptr);
    return dialogs::PageAnswer::Stay;
}

constexpr dialogs::Command<ExportWizardState> kCommands[] = {
    {ids::kFieldsPage.edit, BN_CLICKED, editFirstSelected}};
constexpr dialogs::Notification<ExportWizardState> kNotifications[] = {
    {ids::kFieldsPage.fields, NM_RCLICK, showContextMenu},
    {ids::kFieldsPage.fields, LVN_ITEMCHANGED, selectionChanged},
};

} // namespace

extern const dialogs::Dialog<ExportWizardState> kFieldsPageDialog{
    .initialise = createColumns,
    .commands = kCommands,
    .notifications = kNotifications,
    .doubleClick = {ids::kFieldsPage.fields, ids::kFieldsPage.edit},
    .entered = showFields,
    .left = leave,
};

} // namespace tabra::wizards::exporting
