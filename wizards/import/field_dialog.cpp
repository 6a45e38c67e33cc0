// The field dialog: one source field and the column it becomes: its name, its type
// (the shared column type table) and length, whether it is imported, whether it is the
// auto-increment column, and whether its values name files whose contents are imported.
// The length is asked only for types that take one, the auto-increment column only of
// a type that may be one.
#include "catalog/column_types.h"
#include "core/module/module_state.h"
#include "core/module/translated_string.h"
#include "platform/text/bounded_text.h"
#include "tabra_wizards.h"
#include "wizards/import/import_pages.h"

#include <string>

namespace tabra::wizards::importing {
namespace {

constexpr auto &kDialog = ids::kFieldDialog;
constexpr int32_t kLabelCapacity = 100;
constexpr int32_t kNameCapacity = 100;
constexpr int32_t kLengthCapacity = 10;

std::u16string label(int32_t id) {
    char16_t text[kLabelCapacity] = {};
    module::LoadTranslatedString(module::resourceLibrary(), id, text, kLabelCapacity);
    return text;
}

HWND typeBox(HWND dialog) { return GetDlgItem(dialog, kDialog.type); }

const catalog::ColumnType &chosenType(HWND dialog) {
    auto index = static_cast<int32_t>(SendMessageW(typeBox(dialog), CB_GETCURSEL, 0, 0));
    return catalog::columnTypeAt(index < 0 ? 0 : index);
}

void check(HWND dialog, int32_t id, bool on) { CheckDlgButton(dialog, id, on ? BST_CHECKED : BST_UNCHECKED); }
bool checked(HWND dialog, int32_t id) { return IsDlgButtonChecked(dialog, id) == BST_CHECKED; }

void enableForType(HWND dialog) {
    const catalog::ColumnType &type = chosenType(dialog);
    EnableWindow(GetDlgItem(dialog, kDialog.length), type.needsLength);
    EnableWindow(GetDlgItem(dialog, kDialog.autoIncrement), type.mayBeAutoIncrement);
    if (!type.mayBeAutoIncrement) check(dialog, kDialog.autoIncrement, false);
}

void showField(HWND dialog, ImportField &field) {
    SetDlgItemTextW(dialog, kDialog.sourceName, field.sourceName.c_str());
    const catalog::ColumnType *sourceType = catalog::findColumnType(field.sourceType);
    SetDlgItemTextW(dialog, kDialog.sourceType, sourceType != nullptr ? label(sourceType->label).c_str() : u"");
    SendMessageW(GetDlgItem(dialog, kDialog.name), EM_LIMITTEXT, kNameCapacity - 1, 0);
    SetDlgItemTextW(dialog, kDialog.name, field.name.c_str());
    HWND types = typeBox(dialog);
    int32_t current = 0;
    for (std::size_t i = 0; i + 1 < catalog::kColumnTypes.size(); ++i) {
        SendMessageW(types, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(label(catalog::kColumnTypes[i].label).c_str()));
        if (catalog::kColumnTypes[i].tabraDataType == field.type) current = static_cast<int32_t>(i);
    }
    SendMessageW(types, CB_SETCURSEL, static_cast<WPARAM>(current), 0);
    std::string length = std::to_string(field.length);
    SendMessageW(GetDlgItem(dialog, kDialog.length), EM_LIMITTEXT, kLengthCapacity - 1, 0);
    SetDlgItemTextW(dialog, kDialog.length, std::u16string(length.begin(), length.end()).c_str());
    check(dialog, kDialog.imported, field.imported);
    check(dialog, kDialog.autoIncrement, field.autoIncrement);
    check(dialog, kDialog.valueFiles, field.valueFiles);
    check(dialog, kDialog.silentFiles, field.silentFiles);
    enableForType(dialog);
}

void typeChosen(HWND dialog, ImportField &, int32_t) { enableForType(dialog); }

bool takeField(HWND dialog, ImportField &field) {
    const std::u16string name = controlText(dialog, kDialog.name, kNameCapacity);
    const bool imported = checked(dialog, kDialog.imported);
    if (imported && platform::isBlank(name)) {
        ShowMessage(ids::kMessage.noColumnName, field.sourceName.c_str(), nullptr, nullptr);
        SetFocus(GetDlgItem(dialog, kDialog.name));
        return false;
    }
    const catalog::ColumnType &type = chosenType(dialog);
    field.name = name;
    field.type = type.tabraDataType;
    if (type.needsLength) {
        std::string digits;
        for (char16_t c : controlText(dialog, kDialog.length, kLengthCapacity)) digits.push_back(static_cast<char>(c));
        int32_t length = std::atoi(digits.c_str());
        if (length > 0) field.length = length;
    }
    field.imported = imported;
    field.autoIncrement = type.mayBeAutoIncrement && checked(dialog, kDialog.autoIncrement);
    field.valueFiles = checked(dialog, kDialog.valueFiles);
    field.silentFiles = checked(dialog, kDialog.silentFiles);
    return true;
}

constexpr dialogs::Command<ImportField> kCommands[] = {{kDialog.type, CBN_SELCHANGE, typeChosen}};
constexpr dialogs::Dialog<ImportField> kFieldDialog{.initialise = showField, .accept = takeField, .commands = kCommands};

} // namespace

bool editField(ImportField &field) {
    return dialogs::runModal(ids::kFieldDialog.id, EditImportFieldDialogCallback, field) == IDOK;
}

} // namespace tabra::wizards::importing

extern "C" INT_PTR EditImportFieldDialogCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::wizards::importing::kFieldDialog.answer(dialog, message, wParam, lParam);
}
