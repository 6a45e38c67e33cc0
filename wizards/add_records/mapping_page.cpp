// The mapping page: one row per destination column with where its value comes from
// (NULL, the constant in quotes, or the source column; a column that is never written
// says so). The edit button and a double click open the field dialog. Leaving forward
// needs at least one column that takes a source column (message 1633) and checks the
// type pairs from the first descriptor up to, but not including, the last: the last is
// never checked, a deliberate limit of the wizard (message 1630 with the source name).
#include "core/module/module_state.h"
#include "core/module/translated_string.h"
#include "ostrel.h"
#include "wizards/add_records/add_records_pages.h"
#include "wizards/import/mapping_checks.h"
#include "wizards/list_view_rows.h"
#include "wizards/resource_ids.h"

#include <algorithm>

namespace tabra::wizards::add_records {
namespace {

using State = AddRecordsWizardState;
constexpr auto &kPage = ids::kMappingPage;
constexpr int32_t kLabelCapacity = 100;

HWND fieldList(HWND page) { return GetDlgItem(page, kPage.fields); }

std::u16string valueText(const FieldDescriptor &field) {
    if (field.skip) return label(ids::kString.skipped);
    if (field.kind == ids::kValueKind.constant) return u"'" + field.constant + u"'";
    if (field.kind == ids::kValueKind.source && !field.sourceName.empty()) return field.sourceName;
    return label(ids::kString.noValue);
}

void redrawRow(HWND page, const State &state, int32_t row) {
    const FieldDescriptor &field = state.fields[static_cast<std::size_t>(row)];
    setCellText(fieldList(page), row, 0, field.name);
    setCellText(fieldList(page), row, 1, valueText(field));
}

int32_t selectedRow(HWND page) {
    return static_cast<int32_t>(SendMessageW(fieldList(page), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void createColumns(HWND page, State &) {
    Ostrel_ListView_CreateColumns(fieldList(page), label(ids::kString.fieldColumns).c_str());
}

void showFields(HWND page, State &state) {
    HWND list = fieldList(page);
    SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
    for (std::size_t index = 0; index < state.fields.size(); ++index) {
        auto row = Ostrel_ListView_InsertItem(list, -1, u"", u'\t', static_cast<LPARAM>(index));
        if (row >= 0) redrawRow(page, state, row);
    }
    if (!state.fields.empty()) selectOnlyRow(list, 0);
    SetFocus(list);
}

void editSelected(HWND page, State &state, int32_t) {
    const int32_t row = selectedRow(page);
    if (row < 0 || static_cast<std::size_t>(row) >= state.fields.size()) return;
    FieldDescriptor &field = state.fields[static_cast<std::size_t>(row)];
    if (!field.skip && editField(field, state.sourceColumns)) redrawRow(page, state, row);
}

dialogs::PageAnswer leaveFields(HWND, State &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    if (std::none_of(state.fields.begin(), state.fields.end(), [](const FieldDescriptor &f) { return f.selected(); })) {
        ShowMessage(ids::kMessage.noSourceColumn, nullptr, nullptr, nullptr);
        return dialogs::PageAnswer::Stay;
    }
    for (std::size_t i = 0; i + 1 < state.fields.size(); ++i) {
        const FieldDescriptor &field = state.fields[i];
        if (!importing::conversionAllowed(field.sourceType, field.type)) {
            ShowMessage(wizards::ids::kMessage.conversionNotAllowed, field.sourceName.c_str(), nullptr, nullptr);
            return dialogs::PageAnswer::Stay;
        }
    }
    return dialogs::PageAnswer::GoOn;
}

constexpr dialogs::Command<State> kCommands[] = {{kPage.edit, BN_CLICKED, editSelected}};

} // namespace

std::u16string label(int32_t id) {
    char16_t text[kLabelCapacity] = {};
    module::LoadTranslatedString(module::resourceLibrary(), id, text, kLabelCapacity);
    return text;
}

extern const dialogs::Dialog<State> kMappingPageDialog{.initialise = createColumns,
                                                       .commands = kCommands,
                                                       .doubleClick = {kPage.fields, kPage.edit},
                                                       .entered = showFields,
                                                       .left = leaveFields};

} // namespace tabra::wizards::add_records
