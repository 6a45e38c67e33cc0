// Descriptors in rows of dialog controls: each row is a column box, an operator box
// and a value box; separator rows divide the rows into blocks, one block per group.
// The boxes may be list boxes or combo boxes.
#include "query/condition_rows.h"

#include "core/module/module_state.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "query/descriptor_text.h"
#include "query/operator_tables.h"
#include "tabra_query.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace tabra::query;

constexpr int32_t kLabelCapacity = 100;      // operator labels: 99 characters
constexpr int32_t kColumnTextCapacity = 100; // column text read from a row: 99 characters
constexpr int32_t kValueTextCapacity = 200;  // value text read from a row: 199 characters
constexpr int32_t kEntryCapacity = 512;      // one entry of a column box

bool endsTable(const ConditionRow &row) { return row.column < 1; }
bool isSeparator(const ConditionRow &row) { return row.column == 1; }
bool isComboBox(HWND window) { return Ostrel_GetBoxCount(window) >= 0 && Ostrel_IsListBox(window) == 0; }

bool knownKind(int32_t kind) { return kind == kSelectionKind || kind == kAssignmentKind; }

// The kind's operators with their translated labels and codes, then " " (code 0).
void fillOperatorBox(HWND box, int32_t kind) {
    bool listBox = Ostrel_IsListBox(box) == 1;
    uint32_t add = listBox ? LB_ADDSTRING : CB_ADDSTRING;
    uint32_t setData = listBox ? LB_SETITEMDATA : CB_SETITEMDATA;
    auto addEntry = [&](const char16_t *label, LPARAM code) {
        LRESULT index = SendMessageW(box, add, 0, reinterpret_cast<LPARAM>(label));
        if (index >= 0) SendMessageW(box, setData, static_cast<WPARAM>(index), code);
    };
    Ostrel_ResetBox(box);
    for (const OperatorEntry &op : operatorTable(kind)) {
        char16_t label[kLabelCapacity] = {};
        tabra::module::LoadTranslatedString(tabra::module::resourceLibrary(), op.labelId, label, kLabelCapacity);
        addEntry(label, op.code);
    }
    addEntry(u" ", 0);
}

// The entry of the box whose item data is code, -1 when there is none.
int32_t entryWithData(HWND box, LPARAM code) {
    int32_t count = Ostrel_GetBoxCount(box);
    for (int32_t i = 0; i < count; ++i)
        if (Ostrel_GetItemData(box, i) == code) return i;
    return -1;
}

// One descriptor line shown in one row; the data type is not shown (it is taken from
// the column box again when the rows are read).
void showLine(int32_t kind, std::u16string_view text, HWND dialog, const ConditionRow &row) {
    DescriptorLine line = parseDescriptorLine(text);
    HWND columnBox = GetDlgItem(dialog, row.column);
    if (isComboBox(columnBox)) Ostrel_SetBoxIndex(columnBox, Ostrel_FindBoxEntry(columnBox, line.column.c_str(), 0, 0));
    SetWindowTextW(columnBox, line.column.c_str());
    HWND operatorBox = GetDlgItem(dialog, row.operation);
    const OperatorEntry *op = findOperatorByKey(kind, line.key);
    Ostrel_SetBoxIndex(operatorBox, op != nullptr ? entryWithData(operatorBox, op->code)
                                                  : Ostrel_GetBoxCount(operatorBox) - 1);
    SetWindowTextW(GetDlgItem(dialog, row.value), line.value.c_str());
}

std::u16string controlText(HWND dialog, int32_t id, int32_t capacity) {
    std::vector<char16_t> text(static_cast<size_t>(capacity), u'\0');
    GetDlgItemTextW(dialog, id, text.data(), capacity);
    return text.data();
}

// The item data of the column box's entry that equals text exactly; 0 when none does.
int32_t columnDataType(HWND columnBox, const std::u16string &text) {
    int32_t index = Ostrel_FindBoxEntry(columnBox, text.c_str(), 0, 0);
    return index < 0 ? 0 : static_cast<int32_t>(Ostrel_GetItemData(columnBox, index));
}

// The descriptor line of one row; empty when the row has no operator of the kind or
// neither a column nor a value.
std::u16string rowLine(int32_t kind, HWND dialog, const ConditionRow &row) {
    std::u16string column = controlText(dialog, row.column, kColumnTextCapacity);
    std::u16string value = controlText(dialog, row.value, kValueTextCapacity);
    LPARAM code = Ostrel_GetItemData(GetDlgItem(dialog, row.operation), -1);
    const OperatorEntry *op = findOperatorByCode(kind, static_cast<int32_t>(code));
    if (op == nullptr || (column.empty() && value.empty())) return {};
    std::string type = std::to_string(columnDataType(GetDlgItem(dialog, row.column), column));
    return column + kFieldSeparator + std::u16string(op->key) + kFieldSeparator + value + kFieldSeparator +
           std::u16string(type.begin(), type.end()) + kLineEnd;
}

std::vector<std::pair<std::u16string, LPARAM>> boxEntries(HWND box) {
    std::vector<std::pair<std::u16string, LPARAM>> entries;
    int32_t count = Ostrel_GetBoxCount(box);
    for (int32_t i = 0; i < count; ++i) {
        char16_t text[kEntryCapacity] = {};
        Ostrel_GetBoxEntry(box, i, text, kEntryCapacity);
        entries.emplace_back(text, Ostrel_GetItemData(box, i));
    }
    return entries;
}

void replaceEntries(HWND box, const std::vector<std::pair<std::u16string, LPARAM>> &entries) {
    if (Ostrel_ResetBox(box) == 0) return;
    for (const auto &[text, data] : entries) Ostrel_AddBoxEntry(box, text.c_str(), data, -1, 0);
}

} // namespace

namespace tabra::query {

void showDescriptorInRows(int32_t kind, const char16_t *descriptor, const char16_t *columnList, HWND dialog,
                          const ConditionRow *rows) {
    if (!knownKind(kind) || rows == nullptr) return;
    for (const ConditionRow *row = rows; !endsTable(*row); ++row) {
        if (isSeparator(*row)) continue;
        if (columnList != nullptr)
            Ostrel_FillBoxExtended(GetDlgItem(dialog, row->column), kFieldSeparator, columnList, OSTREL_FILL_WITH_DATA);
        fillOperatorBox(GetDlgItem(dialog, row->operation), kind);
        if (columnList != nullptr)
            Ostrel_FillBoxExtended(GetDlgItem(dialog, row->value), kFieldSeparator, columnList, OSTREL_FILL_WITH_DATA);
    }
    if (descriptor == nullptr || endsTable(rows[0])) return;
    size_t index = 0;
    // Each group has its block, an empty one too, so that rows come back where they were
    // written. The group's lines go to the block's rows; the rest are not shown.
    for (std::u16string_view group : splitKeepingEmpty(descriptor, kGroupSeparator)) {
        for (std::u16string_view line : splitNonEmpty(group, kLineEnd)) {
            if (rows[index].column <= 1) break;
            showLine(kind, line, dialog, rows[index++]);
        }
        while (rows[index].column > 1) ++index;
        if (isSeparator(rows[index])) ++index;
        if (endsTable(rows[index])) break;
    }
}

std::u16string descriptorFromRows(int32_t kind, HWND dialog, const ConditionRow *rows, int32_t capacity) {
    std::u16string text;
    if (!knownKind(kind) || rows == nullptr || capacity < 1) return text;
    // Characters the text may still take; a separator costs one more than it takes.
    int64_t limit = capacity - 1;
    auto append = [&](std::u16string_view piece) {
        int64_t room = limit - static_cast<int64_t>(text.size());
        if (room > 0) text += piece.substr(0, static_cast<size_t>(std::min<int64_t>(room, piece.size())));
    };
    for (const ConditionRow *row = rows; !endsTable(*row); ++row) {
        if (isSeparator(*row)) {
            append(std::u16string(1, kGroupSeparator));
            --limit;
        } else {
            append(rowLine(kind, dialog, *row));
        }
    }
    return std::u16string(tabra::platform::boundedPrefix(text, static_cast<size_t>(capacity)));
}

} // namespace tabra::query

extern "C" void Tabra_OpDesc_To_DialogItems(int32_t kind, const char16_t *descriptor, const char16_t *columnList,
                                            HWND dialog, const ConditionRow *rows) {
    showDescriptorInRows(kind, descriptor, columnList, dialog, rows);
}

extern "C" int32_t Tabra_DialogItems_To_OpDesc(int32_t kind, HWND dialog, const ConditionRow *rows, char16_t *out,
                                               int32_t outChars) {
    if (dialog == nullptr || out == nullptr || outChars < 1) return 0;
    OstrelCopyString(out, descriptorFromRows(kind, dialog, rows, outChars).c_str(), outChars);
    return 1;
}

extern "C" void Tabra_OpDesc_Clone_Boxes(HWND dialog, const ConditionRow *rows) {
    if (rows == nullptr || endsTable(rows[0])) return;
    HWND source = GetDlgItem(dialog, rows[0].column);
    if (Ostrel_GetBoxCount(source) < 0) return;
    auto entries = boxEntries(source);
    for (const ConditionRow *row = rows; !endsTable(*row); ++row) {
        if (isSeparator(*row)) continue;
        if (row != rows) replaceEntries(GetDlgItem(dialog, row->column), entries);
        replaceEntries(GetDlgItem(dialog, row->value), entries);
    }
}
