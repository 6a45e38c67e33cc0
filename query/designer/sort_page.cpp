// The sort order page: the columns of the statement's tables on the left, the sort
// columns with their directions on the right. The radio buttons beside the list set
// the chosen column's direction; a double click turns it round.
#include "query/clause_items.h"
#include "query/designer/design_editing.h"
#include "query/designer/list_page.h"
#include "tabra_designer.h"

namespace tabra::query::designer {

namespace {

using ids::kDesignerSortPage;

constexpr char16_t kAscending[] = u"ASC";
constexpr char16_t kDescending[] = u"DESC";

size_t sortCount(const QueryDesign &design) { return design.sortOrder.size(); }

std::u16string sortRow(const QueryDesign &design, size_t index) {
    const SortEntry &sort = design.sortOrder[index];
    return sort.column + u"\t" +
           designerText(isDescending(sort.direction) ? ids::kString.descending : ids::kString.ascending);
}

std::vector<std::u16string> tableColumns(DesignerState &state) {
    std::vector<std::u16string> texts;
    for (const OfferedColumn &column : offeredColumns(state.design, state.catalog.lookup(), false))
        texts.push_back(column.expression);
    return texts;
}

void insertSort(DesignerState &state, const std::u16string &column, size_t position) {
    state.design.sortOrder.insert(state.design.sortOrder.begin() + static_cast<std::ptrdiff_t>(position),
                                  {column, kAscending});
}

void removeSort(QueryDesign &design, size_t index) {
    design.sortOrder.erase(design.sortOrder.begin() + static_cast<std::ptrdiff_t>(index));
}

size_t moveSort(QueryDesign &design, size_t from, size_t before) { return moveEntry(design.sortOrder, from, before); }

bool turnRound(HWND, DesignerState &state, size_t index) {
    SortEntry &sort = state.design.sortOrder[index];
    sort.direction = isDescending(sort.direction) ? kAscending : kDescending;
    return true;
}

constexpr ListPage kSortList{ids::kDesignerString.sortColumns, Changed::Statement, sortCount, sortRow, tableColumns,
                             insertSort, removeSort, moveSort, turnRound};

// The radio buttons show the chosen column's direction, and only while one is chosen.
void showDirection(HWND page, DesignerState &state) {
    int32_t chosen = chosenEntry(page);
    bool descending = chosen >= 0 && isDescending(state.design.sortOrder[static_cast<size_t>(chosen)].direction);
    CheckDlgButton(page, kDesignerSortPage.ascending, chosen >= 0 && !descending ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(page, kDesignerSortPage.descending, descending ? BST_CHECKED : BST_UNCHECKED);
    EnableWindow(GetDlgItem(page, kDesignerSortPage.ascending), chosen >= 0);
    EnableWindow(GetDlgItem(page, kDesignerSortPage.descending), chosen >= 0);
}

void initialise(HWND page, DesignerState &state) {
    initialiseListPage(page, state, kSortList);
    showDirection(page, state);
}

void chosenSortChanged(HWND page, DesignerState &state, const NMHDR &header) {
    chosenChanged(page, state, header);
    showDirection(page, state);
}

void setDirection(HWND page, DesignerState &state, int32_t control) {
    int32_t chosen = chosenEntry(page);
    if (chosen < 0) return;
    state.design.sortOrder[static_cast<size_t>(chosen)].direction =
        control == kDesignerSortPage.descending ? kDescending : kAscending;
    listChanged(page, state, chosen);
}

constexpr auto kCommands = joinedRows(kListCommands, std::array<ListCommand, 2>{{
                                                         {kDesignerSortPage.ascending, BN_CLICKED, setDirection},
                                                         {kDesignerSortPage.descending, BN_CLICKED, setDirection},
                                                     }});
constexpr auto kNotifications = joinedRows(
    std::array<ListNotification, 1>{{{ids::kDesignerList.chosen, LVN_ITEMCHANGED, chosenSortChanged}}}, kListNotifications);
constexpr tabra::dialogs::Dialog<DesignerState> kPage{.initialise = initialise,
                                                      .commands = kCommands,
                                                      .notifications = kNotifications,
                                                      .doubleClick = {ids::kDesignerList.available, ids::kDesignerList.add}};

} // namespace

} // namespace tabra::query::designer

extern "C" INT_PTR OrderBy_SubDialog_Callback(HWND page, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::query::designer::kPage.answer(page, message, wParam, lParam);
}
