// The tables page: the tables and views of the schema on the left, the statement's
// tables with their aliases and joins on the right. A table added is joined to an
// earlier one on a column of the same name when there is one; the join dialog edits
// it.
#include "query/designer/design_editing.h"
#include "query/designer/join_tables.h"
#include "query/designer/list_page.h"
#include "tabra_designer.h"

namespace tabra::query::designer {

namespace {

size_t tableCount(const QueryDesign &design) { return design.tables.size(); }

// Table, alias, join and condition; the first table says nothing of a join it does
// not have.
std::u16string tableRow(const QueryDesign &design, size_t index) {
    const TableEntry &table = design.tables[index];
    const JoinType &join = joinTypeOf(table.joinType);
    std::u16string row = table.name + u"\t" + table.alias + u"\t";
    if (index > 0 || join.code != kPlainTable) row += designerText(join.labelId);
    row += u"\t";
    if (join.code != kPlainTable)
        row += table.leftColumn + u" " + std::u16string(comparisonOf(table.comparison).symbol) + u" " + table.rightColumn;
    return row;
}

std::vector<std::u16string> schemaTables(DesignerState &state) { return state.catalog.tables(state.design.schema); }

void insertTable(DesignerState &state, const std::u16string &name, size_t position) {
    TableEntry entry = newTableEntry(state.design, name, state.catalog.lookup());
    state.design.tables.insert(state.design.tables.begin() + static_cast<std::ptrdiff_t>(position), std::move(entry));
}

size_t moveTable(QueryDesign &design, size_t from, size_t before) { return moveEntry(design.tables, from, before); }

bool editChosenTable(HWND page, DesignerState &state, size_t index) { return editTable(page, state, index); }

constexpr ListPage kTablesList{ids::kDesignerString.tableColumns, Changed::Tables, tableCount, tableRow, schemaTables,
                               insertTable, removeTable, moveTable, editChosenTable};

void initialise(HWND page, DesignerState &state) { initialiseListPage(page, state, kTablesList); }

constexpr auto kCommands =
    joinedRows(kListCommands, std::array<ListCommand, 1>{{{ids::kDesignerTablesPage.edit, BN_CLICKED, editChosen}}});
constexpr tabra::dialogs::Dialog<DesignerState> kPage{.initialise = initialise,
                                                      .commands = kCommands,
                                                      .notifications = kListNotifications,
                                                      .doubleClick = {ids::kDesignerList.available, ids::kDesignerList.add}};

} // namespace

} // namespace tabra::query::designer

extern "C" INT_PTR Tables_SubDialog_Callback(HWND page, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::query::designer::kPage.answer(page, message, wParam, lParam);
}
