// The mapping page: one row per field in the order of the table's columns, with the
// source field, the column it becomes (or that it is not imported) and the column's
// type. The edit button, a double click or the context menu's first command open the
// field dialog; the menu also marks the selected fields as imported or not; Up and
// Down move a column. Leaving forward runs the checks of the fields (mapping_checks.h)
// and asks for at least one imported field, a name for each imported column, and an
// auto-increment column only where the database has one.
#include "catalog/column_types.h"
#include "core/connection/capabilities.h"
#include "core/module/module_state.h"
#include "core/module/translated_string.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "wizards/field_menu.h"
#include "platform/text/bounded_text.h"
#include "wizards/import/import_pages.h"
#include "wizards/import/mapping_checks.h"
#include "wizards/list_view_rows.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tabra::wizards::importing {
namespace {

constexpr auto &kPage = ids::kMappingPage;
constexpr int32_t kColumnListCapacity = 300;
constexpr int32_t kLabelCapacity = 100;

HWND fieldList(HWND page) { return GetDlgItem(page, kPage.fields); }

std::u16string label(int32_t id) {
    char16_t text[kLabelCapacity] = {};
    module::LoadTranslatedString(module::resourceLibrary(), id, text, kLabelCapacity);
    return text;
}

// The column's type as shown: "Text (40)", "Integer, auto-increment".
std::u16string typeText(const ImportField &field) {
    const catalog::ColumnType *type = catalog::findColumnType(field.type);
    if (type == nullptr) return {};
    std::u16string text = label(type->label);
    if (type->needsLength) {
        std::string length = std::to_string(field.length);
        text += u" (" + std::u16string(length.begin(), length.end()) + u")";
    }
    if (field.autoIncrement && type->mayBeAutoIncrement) text += u", " + label(ids::kString.autoIncrement);
    return text;
}

std::vector<int32_t> selectedRows(HWND page) {
    std::vector<int32_t> rows;
    for (auto row = static_cast<int32_t>(
             SendMessageW(fieldList(page), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
         row >= 0; row = static_cast<int32_t>(SendMessageW(fieldList(page), LVM_GETNEXTITEM, static_cast<WPARAM>(row),
                                                            LVNI_SELECTED)))
        rows.push_back(row);
    return rows;
}

void redrawRow(HWND page, const ImportWizardState &state, int32_t row) {
    const ImportField *field = state.fields.inDisplayOrder(static_cast<std::size_t>(row));
    if (field == nullptr) return;
    setCellText(fieldList(page), row, 0, field->sourceName);
    setCellText(fieldList(page), row, 1, field->imported ? field->name : label(ids::kString.notImported));
    setCellText(fieldList(page), row, 2, typeText(*field));
}

void selectRow(HWND page, int32_t row) { selectOnlyRow(fieldList(page), row); }

void enableButtons(HWND page, const ImportWizardState &state) {
    auto rows = selectedRows(page);
    const bool one = rows.size() == 1;
    EnableWindow(GetDlgItem(page, kPage.edit), !rows.empty());
    EnableWindow(GetDlgItem(page, kPage.up), one && rows.front() > 0);
    EnableWindow(GetDlgItem(page, kPage.down),
                 one && static_cast<std::size_t>(rows.front()) + 1 < state.fields.count());
}

void createColumns(HWND page, ImportWizardState &) {
    Ostrel_ListView_CreateColumns(fieldList(page), label(ids::kString.fieldColumns).c_str());
}

void showFields(HWND page, ImportWizardState &state) {
    HWND list = fieldList(page);
    SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
    for (std::size_t index = 0; index < state.fields.count(); ++index) {
        auto row = Ostrel_ListView_InsertItem(list, -1, u"", u'\t', static_cast<LPARAM>(index));
        if (row >= 0) redrawRow(page, state, row);
    }
    if (state.fields.count() > 0) selectRow(page, 0);
    SetFocus(list);
    enableButtons(page, state);
}

void editRow(HWND page, ImportWizardState &state, int32_t row) {
    ImportField *field = state.fields.inDisplayOrder(static_cast<std::size_t>(row));
    if (field != nullptr && editField(*field)) redrawRow(page, state, row);
}

void editFirstSelected(HWND page, ImportWizardState &state, int32_t) {
    auto rows = selectedRows(page);
    if (!rows.empty()) editRow(page, state, rows.front());
}

void moveSelected(HWND page, ImportWizardState &state, int32_t control) {
    auto rows = selectedRows(page);
    const int offset = control == kPage.up ? -1 : 1;
    if (rows.size() != 1 || !state.fields.move(static_cast<std::size_t>(rows.front()), offset)) return;
    redrawRow(page, state, rows.front());
    redrawRow(page, state, rows.front() + offset);
    selectRow(page, rows.front() + offset);
    enableButtons(page, state);
}

void markSelected(HWND page, ImportWizardState &state, bool imported) {
    for (int32_t row : selectedRows(page)) {
        if (ImportField *field = state.fields.inDisplayOrder(static_cast<std::size_t>(row))) {
            field->imported = imported;
            redrawRow(page, state, row);
        }
    }
}

// The context menu at the pointer; "edit" only for exactly one selected row.
void showContextMenu(HWND page, ImportWizardState &state, const NMHDR &) {
    auto rows = selectedRows(page);
    if (rows.empty()) return;
    const int32_t chosen = trackFieldMenu(page, ids::kFieldMenu.id, ids::kFieldMenu.edit, rows.size());
    if (chosen == ids::kFieldMenu.edit && rows.size() == 1) editRow(page, state, rows.front());
    else if (chosen == ids::kFieldMenu.imported) markSelected(page, state, true);
    else if (chosen == ids::kFieldMenu.notImported) markSelected(page, state, false);
}

void selectionChanged(HWND page, ImportWizardState &state, const NMHDR &) { enableButtons(page, state); }

// What the checks of mapping_checks.h leave to the page: something to import, names,
// and an auto-increment column only where the database has one.
bool importable(const ImportWizardState &state) {
    const auto &fields = state.fields.displayed();
    if (std::none_of(fields.begin(), fields.end(), [](const ImportField *field) { return field->imported; })) {
        ShowMessage(ids::kMessage.noFieldImported, nullptr, nullptr, nullptr);
        return false;
    }
    for (const ImportField *field : fields) {
        if (!field->imported) continue;
        if (platform::isBlank(field->name)) {
            ShowMessage(ids::kMessage.noColumnName, field->sourceName.c_str(), nullptr, nullptr);
            return false;
        }
        if (field->autoIncrement && !connection::capabilities(state.connection).hasAutoIncrement()) {
            ShowMessage(core::ids::kMessage.notPossibleHere, nullptr, nullptr, nullptr);
            return false;
        }
    }
    return true;
}

dialogs::PageAnswer leave(HWND, ImportWizardState &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    if (auto failure = checkFields(state.fields)) {
        ShowMessage(failure->message, failure->argument.c_str(), nullptr, nullptr);
        return dialogs::PageAnswer::Stay;
    }
    return importable(state) ? dialogs::PageAnswer::GoOn : dialogs::PageAnswer::Stay;
}

constexpr dialogs::Command<ImportWizardState> kCommands[] = {
    {kPage.edit, BN_CLICKED, editFirstSelected},
    {kPage.up, BN_CLICKED, moveSelected},
    {kPage.down, BN_CLICKED, moveSelected},
};
constexpr dialogs::Notification<ImportWizardState> kNotifications[] = {
    {kPage.fields, NM_RCLICK, showContextMenu},
    {kPage.fields, LVN_ITEMCHANGED, selectionChanged},
};

} // namespace

extern const dialogs::Dialog<ImportWizardState> kMappingPageDialog{
    .initialise = createColumns,
    .commands = kCommands,
    .notifications = kNotifications,
    .doubleClick = {kPage.fields, kPage.edit},
    .entered = showFields,
    .left = leave,
};

} // namespace tabra::wizards::importing
