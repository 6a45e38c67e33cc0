// The field dialog of the export wizard: one column's name and type, its heading
// (which must not be empty) and whether it is written.
#include "catalog/sql_type_names.h"
#include "core/module/module_state.h"
#include "tabra_wizards.h"
#include "wizards/export/export_pages.h"

#include <vector>

namespace tabra::wizards::exporting {
namespace {

constexpr int32_t kTypeNameCapacity = 100;

void showField(HWND dialog, ExportField &field) {
    SetDlgItemTextW(dialog, ids::kFieldDialog.name, field.name.c_str());
    SetDlgItemTextW(dialog, ids::kFieldDialog.heading, field.heading.c_str());
    std::u16string type = catalog::sqlTypeName(field.sqlType).substr(0, kTypeNameCapacity - 1);
    SetDlgItemTextW(dialog, ids::kFieldDialog.type, type.c_str());
    CheckDlgButton(dialog, ids::kFieldDialog.exported, field.selected ? BST_CHECKED : BST_UNCHECKED);
}

bool takeField(HWND dialog, ExportField &field) {
    HWND edit = GetDlgItem(dialog, ids::kFieldDialog.heading);
    std::vector<char16_t> heading(static_cast<std::size_t>(GetWindowTextLengthW(edit)) + 1, u'\0');
    GetWindowTextW(edit, heading.data(), static_cast<int32_t>(heading.size()));
    if (heading[0] == u'\0') {
        ShowMessage(ids::kMessage.emptyHeading, nullptr, nullptr, nullptr);
        SetFocus(edit);
        return false;
    }
    field.heading = heading.data();
    field.selected = IsDlgButtonChecked(dialog, ids::kFieldDialog.exported) == BST_CHECKED;
    return true;
}

constexpr dialogs::Dialog<ExportField> kFieldDialog{.initialise = showField, .accept = takeField};

} // namespace

bool editField(ExportField &field) {
    return dialogs::runModal(ids::kFieldDialog.id, EditExportFieldDialogCallback, field) == IDOK;
}

} // namespace tabra::wizards::exporting

extern "C" INT_PTR EditExportFieldDialogCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::wizards::exporting::kFieldDialog.answer(dialog, message, wParam, lParam);
}
