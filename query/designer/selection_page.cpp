// The selection page: the columns of the statement's tables on the left, the
// selection's condition rows on the right (the rows of the selection descriptor code,
// filled and read by it). Add puts the chosen column into the first empty row;
// Remove empties the current row (the one last entered), Up and Down swap it with
// its neighbour. Every change of a row is a new selection.
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "query/designer/design_editing.h"
#include "query/designer/list_page.h"
#include "query/designer/selection_rows.h"
#include "query/operator_tables.h"
#include "tabra_designer.h"

#include <vector>

namespace tabra::query::designer {

namespace {

using ids::kDesignerList;

constexpr int32_t kSelectionCapacity = 10000;
constexpr int32_t kColumnCapacity = 100; // as the rows are read: 99 characters
constexpr int32_t kValueCapacity = 200;

// The rows that hold a condition (not the separators), in order.
std::vector<ConditionRow> conditionRows() {
    std::vector<ConditionRow> rows;
    for (const ConditionRow &row : kSelectionRows)
        if (row.column > 1) rows.push_back(row);
    return rows;
}

// The row last entered, kept in the page's user data (0: none, else index + 1).
int32_t currentRow(HWND page) { return static_cast<int32_t>(GetWindowLongPtrW(page, GWLP_USERDATA)) - 1; }
void setCurrentRow(HWND page, int32_t row) { SetWindowLongPtrW(page, GWLP_USERDATA, row + 1); }

int32_t rowOfControl(int32_t control) {
    auto rows = conditionRows();
    for (size_t i = 0; i < rows.size(); ++i)
        if (control == rows[i].column || control == rows[i].operation || control == rows[i].value)
            return static_cast<int32_t>(i);
    return -1;
}

struct RowContents {
    std::u16string column;
    int32_t operation = -1; // the operator box's entry
    std::u16string value;
};

std::u16string controlText(HWND page, int32_t id, int32_t capacity) {
    std::vector<char16_t> text(static_cast<size_t>(capacity), u'\0');
    GetDlgItemTextW(page, id, text.data(), capacity);
    return text.data();
}

RowContents readRow(HWND page, const ConditionRow &row) {
    return {controlText(page, row.column, kColumnCapacity), Ostrel_GetBoxIndex(GetDlgItem(page, row.operation)),
            controlText(page, row.value, kValueCapacity)};
}

void writeRow(HWND page, const ConditionRow &row, const RowContents &contents) {
    showInBox(page, row.column, contents.column);
    Ostrel_SetBoxIndex(GetDlgItem(page, row.operation), contents.operation);
    showInBox(page, row.value, contents.value);
}

int32_t firstEmptyRow(HWND page) {
    auto rows = conditionRows();
    for (size_t i = 0; i < rows.size(); ++i)
        if (GetWindowTextLengthW(GetDlgItem(page, rows[i].column)) == 0) return static_cast<int32_t>(i);
    return -1;
}

void enableButtons(HWND page) {
    int32_t current = currentRow(page);
    auto count = static_cast<int32_t>(conditionRows().size());
    bool offered = Ostrel_GetBoxIndex(GetDlgItem(page, kDesignerList.available)) >= 0;
    EnableWindow(GetDlgItem(page, kDesignerList.add), offered && firstEmptyRow(page) >= 0);
    EnableWindow(GetDlgItem(page, kDesignerList.remove), current >= 0);
    EnableWindow(GetDlgItem(page, kDesignerList.up), current > 0);
    EnableWindow(GetDlgItem(page, kDesignerList.down), current >= 0 && current + 1 < count);
}

// The rows as the design's selection (empty when no row holds a condition).
void readSelection(HWND page, DesignerState &state) {
    std::vector<char16_t> text(kSelectionCapacity, u'\0');
    Tabra_DialogItems_To_OpDesc(kSelectionKind, page, kSelectionRows, text.data(), kSelectionCapacity);
    state.design.selection = platform::isBlank(text.data()) ? std::u16string() : std::u16string(text.data());
    enableButtons(page);
    designChanged(state, Changed::Statement);
}

void initialise(HWND page, DesignerState &state) { showSelectionPage(page, state); }

void addColumn(HWND page, DesignerState &state, int32_t) {
    std::vector<char16_t> column(kColumnCapacity, u'\0');
    int32_t row = firstEmptyRow(page);
    if (row < 0 || Ostrel_GetBoxEntry(GetDlgItem(page, kDesignerList.available), -1, column.data(), kColumnCapacity) < 0)
        return;
    ConditionRow target = conditionRows()[static_cast<size_t>(row)];
    showInBox(page, target.column, column.data());
    setCurrentRow(page, row);
    SetFocus(GetDlgItem(page, target.operation));
    readSelection(page, state);
}

void clearRow(HWND page, DesignerState &state, int32_t) {
    int32_t row = currentRow(page);
    if (row < 0) return;
    writeRow(page, conditionRows()[static_cast<size_t>(row)], {});
    readSelection(page, state);
}

void moveRow(HWND page, DesignerState &state, int32_t control) {
    auto rows = conditionRows();
    int32_t row = currentRow(page);
    int32_t other = control == kDesignerList.up ? row - 1 : row + 1;
    if (row < 0 || other < 0 || other >= static_cast<int32_t>(rows.size())) return;
    RowContents moving = readRow(page, rows[static_cast<size_t>(row)]);
    writeRow(page, rows[static_cast<size_t>(row)], readRow(page, rows[static_cast<size_t>(other)]));
    writeRow(page, rows[static_cast<size_t>(other)], moving);
    setCurrentRow(page, other);
    readSelection(page, state);
}

void offeredChanged(HWND page, DesignerState &, int32_t) { enableButtons(page); }

// The rows' own notifications: entering a row makes it current, changing it changes
// the selection.
INT_PTR rowMessage(HWND page, DesignerState &state, uint32_t message, WPARAM wParam, LPARAM) {
    if (message != WM_COMMAND) return 0;
    int32_t row = rowOfControl(GetWmCommandId(wParam));
    if (row < 0) return 0;
    switch (GetWmCommandNotif(wParam)) {
    case CBN_SETFOCUS:
        setCurrentRow(page, row);
        enableButtons(page);
        return TRUE;
    case CBN_SELCHANGE:
    case CBN_EDITCHANGE:
        readSelection(page, state);
        return TRUE;
    default: return 0;
    }
}

constexpr ListCommand kCommands[] = {
    {kDesignerList.add, BN_CLICKED, addColumn},
    {kDesignerList.remove, BN_CLICKED, clearRow},
    {kDesignerList.up, BN_CLICKED, moveRow},
    {kDesignerList.down, BN_CLICKED, moveRow},
    {kDesignerList.available, LBN_SELCHANGE, offeredChanged},
};
constexpr tabra::dialogs::Dialog<DesignerState> kPage{.initialise = initialise,
                                                      .commands = kCommands,
                                                      .doubleClick = {kDesignerList.available, kDesignerList.add},
                                                      .otherMessage = rowMessage};

} // namespace

void showSelectionPage(HWND page, DesignerState &state) {
    auto columns = offeredColumns(state.design, state.catalog.lookup(), false);
    HWND offered = GetDlgItem(page, kDesignerList.available);
    Ostrel_ResetBox(offered);
    for (const OfferedColumn &column : columns) Ostrel_AddBoxEntry(offered, column.expression.c_str(), 0, -1, 0);
    Tabra_OpDesc_To_DialogItems(kSelectionKind, state.design.selection.c_str(), columnListText(columns).c_str(), page,
                                kSelectionRows);
    enableButtons(page);
}

} // namespace tabra::query::designer

extern "C" INT_PTR Selection_SubDialog_Callback(HWND page, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::query::designer::kPage.answer(page, message, wParam, lParam);
}
