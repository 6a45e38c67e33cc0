// The field dialog: one destination column and where its value comes from: nothing
// (NULL), a constant, or a source column chosen from the source table's columns. Only
// the control of the chosen kind is enabled.
#include "ostrel_ui.h"
#include "tabra_wizards.h"
#include "wizards/add_records/add_records_pages.h"

namespace tabra::wizards::add_records {
namespace {

constexpr auto &kDialog = ids::kFieldDialog;

struct FieldEdit {
    FieldDescriptor &field;
    std::span<const SourceColumn> columns;
};

HWND columnBox(HWND dialog) { return GetDlgItem(dialog, kDialog.sourceColumns); }

int32_t checkedKind(HWND dialog) {
    for (int32_t kind : {kDialog.constant, kDialog.source})
        if (IsDlgButtonChecked(dialog, kind) == BST_CHECKED) return kind;
    return kDialog.none;
}

void enableForKind(HWND dialog) {
    EnableWindow(GetDlgItem(dialog, kDialog.constantText), checkedKind(dialog) == kDialog.constant);
    EnableWindow(columnBox(dialog), checkedKind(dialog) == kDialog.source);
}

void showField(HWND dialog, FieldEdit &edit) {
    SetDlgItemTextW(dialog, kDialog.column, edit.field.name.c_str());
    CheckRadioButton(dialog, kDialog.none, kDialog.source, edit.field.kind);
    SendMessageW(GetDlgItem(dialog, kDialog.constantText), EM_LIMITTEXT, kConstantCapacity - 1, 0);
    SetDlgItemTextW(dialog, kDialog.constantText, edit.field.constant.c_str());
    HWND box = columnBox(dialog);
    int32_t current = edit.columns.empty() ? -1 : 0;
    for (std::size_t i = 0; i < edit.columns.size(); ++i) {
        SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(edit.columns[i].name.c_str()));
        if (edit.columns[i].name == edit.field.sourceName) current = static_cast<int32_t>(i);
    }
    SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(current), 0);
    enableForKind(dialog);
}

void kindChosen(HWND dialog, FieldEdit &, int32_t) { enableForKind(dialog); }

bool takeField(HWND dialog, FieldEdit &edit) {
    FieldDescriptor &field = edit.field;
    field.kind = checkedKind(dialog);
    char16_t constant[kConstantCapacity] = {};
    GetDlgItemTextW(dialog, kDialog.constantText, constant, kConstantCapacity);
    field.constant = constant;
    const auto chosen = static_cast<int32_t>(SendMessageW(columnBox(dialog), CB_GETCURSEL, 0, 0));
    if (field.kind == kDialog.source && chosen >= 0 && static_cast<std::size_t>(chosen) < edit.columns.size()) {
        const SourceColumn &column = edit.columns[static_cast<std::size_t>(chosen)];
        field.sourceName = column.name;
        field.sourceType = column.type;
        field.sourceLength = column.length;
    } else if (field.kind == kDialog.source) {
        field.kind = kDialog.none;
    }
    return true;
}

constexpr dialogs::Command<FieldEdit> kCommands[] = {{kDialog.none, BN_CLICKED, kindChosen},
                                                     {kDialog.constant, BN_CLICKED, kindChosen},
                                                     {kDialog.source, BN_CLICKED, kindChosen}};
constexpr dialogs::Dialog<FieldEdit> kFieldDialog{.initialise = showField, .accept = takeField, .commands = kCommands};

static_assert(kDialog.none == ids::kValueKind.none && kDialog.constant == ids::kValueKind.constant &&
                  kDialog.source == ids::kValueKind.source,
              "the radios are the value kinds");

} // namespace

bool editField(FieldDescriptor &field, std::span<const SourceColumn> sourceColumns) {
    FieldEdit edit{field, sourceColumns};
    return dialogs::runModal(kDialog.id, EditAddRecFieldDialogCallback, edit) == IDOK;
}

} // namespace tabra::wizards::add_records

extern "C" INT_PTR EditAddRecFieldDialogCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::wizards::add_records::kFieldDialog.answer(dialog, message, wParam, lParam);
}
