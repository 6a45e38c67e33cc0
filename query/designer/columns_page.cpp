// The result columns page: the columns of the statement's tables on the left (each
// table's "alias.*" first), the result columns with their aliases on the right. The
// column dialog edits a column or adds an expression of the user's own.
#include "query/designer/design_editing.h"
#include "query/designer/list_page.h"
#include "tabra_designer.h"

namespace tabra::query::designer {

namespace {

size_t columnCount(const QueryDesign &design) { return design.columns.size(); }

std::u16string columnRow(const QueryDesign &design, size_t index) {
    return design.columns[index].expression + u"\t" + design.columns[index].alias;
}

std::vector<std::u16string> tableColumns(DesignerState &state) {
    std::vector<std::u16string> texts;
    for (const OfferedColumn &column : offeredColumns(state.design, state.catalog.lookup(), true))
        texts.push_back(column.expression);
    return texts;
}

void insertColumn(DesignerState &state, const std::u16string &expression, size_t position) {
    state.design.columns.insert(state.design.columns.begin() + static_cast<std::ptrdiff_t>(position), {expression, {}});
}

void removeColumn(QueryDesign &design, size_t index) {
    design.columns.erase(design.columns.begin() + static_cast<std::ptrdiff_t>(index));
}

size_t moveColumn(QueryDesign &design, size_t from, size_t before) { return moveEntry(design.columns, from, before); }

bool editChosenColumn(HWND page, DesignerState &state, size_t index) {
    ColumnEntry column = state.design.columns[index];
    if (!editColumn(page, state, column) || column == state.design.columns[index]) return false;
    state.design.columns[index] = std::move(column);
    return true;
}

constexpr ListPage kColumnsList{ids::kDesignerString.resultColumns, Changed::Statement, columnCount, columnRow,
                                tableColumns, insertColumn, removeColumn, moveColumn, editChosenColumn};

void initialise(HWND page, DesignerState &state) { initialiseListPage(page, state, kColumnsList); }

// A column of the user's own (an expression), after the chosen one.
void addExpression(HWND page, DesignerState &state, int32_t) {
    ColumnEntry column;
    if (!editColumn(page, state, column)) return;
    size_t position = static_cast<size_t>(chosenEntry(page) + 1);
    if (position == 0) position = state.design.columns.size();
    state.design.columns.insert(state.design.columns.begin() + static_cast<std::ptrdiff_t>(position), std::move(column));
    listChanged(page, state, static_cast<int32_t>(position));
}

constexpr auto kCommands = joinedRows(kListCommands, std::array<ListCommand, 2>{{
                                                         {ids::kDesignerColumnsPage.edit, BN_CLICKED, editChosen},
                                                         {ids::kDesignerColumnsPage.expression, BN_CLICKED, addExpression},
                                                     }});
constexpr tabra::dialogs::Dialog<DesignerState> kPage{.initialise = initialise,
                                                      .commands = kCommands,
                                                      .notifications = kListNotifications,
                                                      .doubleClick = {ids::kDesignerList.available, ids::kDesignerList.add}};

} // namespace

} // namespace tabra::query::designer

extern "C" INT_PTR Columns_SubDialog_Callback(HWND page, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::query::designer::kPage.answer(page, message, wParam, lParam);
}
