// The list pages of the designer (tables, result columns, sort order): what may be
// added, in a list box on the left; the design's list, in a report list view on the
// right; Add and Remove between them, Up and Down beside the design's list. A double
// click on the left adds, on the right edits. Entries are dragged from the left to a
// place on the right, within the right list to move them, and back to the left to
// remove them. A page says what its list is in a ListPage; the buttons, double clicks
// and drops work the same on every page.
#pragma once

#include "core/dialogs/dialog.h"
#include "ostrel_ui.h"
#include "query/resource_ids.h"
#include "query/designer/designer_state.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace tabra::query::designer {

struct ListPage {
    int32_t columnsString; // the list view's columns, "Title|width|..."
    Changed change;        // what a change of the list touches
    size_t (*count)(const QueryDesign &design);
    // The list view item of an entry: its column texts, tab-separated.
    std::u16string (*row)(const QueryDesign &design, size_t index);
    // What the left list offers.
    std::vector<std::u16string> (*available)(DesignerState &state);
    // Makes an entry of an offered text at position (the list's size: at the end).
    void (*insert)(DesignerState &state, const std::u16string &offered, size_t position);
    void (*remove)(QueryDesign &design, size_t index);
    size_t (*move)(QueryDesign &design, size_t from, size_t before); // the entry's new index
    // Edits an entry in a dialog or in place (null: entries are not edited); true when
    // it changed.
    bool (*edit)(HWND page, DesignerState &state, size_t index);
};

// WM_INITDIALOG of a list page: its columns, the dragging, its lists.
void initialiseListPage(HWND page, DesignerState &state, const ListPage &list);
// Fills the page from the design, keeping the chosen entry where it can.
void showListPage(HWND page, DesignerState &state);
// The chosen entry of the design's list, or -1.
int32_t chosenEntry(HWND page);
// After the page changed its list: the list shown with entry `chosen` chosen (-1:
// none), and designChanged.
void listChanged(HWND page, DesignerState &state, int32_t chosen);
// What the buttons of the page may do now.
void enableListButtons(HWND page);

using ListCommand = tabra::dialogs::Command<DesignerState>;
using ListNotification = tabra::dialogs::Notification<DesignerState>;

// What the buttons, double clicks and drops of every list page do.
void addOffered(HWND page, DesignerState &state, int32_t control);
void removeChosen(HWND page, DesignerState &state, int32_t control);
void moveChosen(HWND page, DesignerState &state, int32_t control); // Up and Down
void editChosen(HWND page, DesignerState &state, int32_t control);
void offeredChanged(HWND page, DesignerState &state, int32_t control);
void chosenChanged(HWND page, DesignerState &state, const NMHDR &header);
void chosenDoubleClicked(HWND page, DesignerState &state, const NMHDR &header);
void entryDropped(HWND page, DesignerState &state, const NMHDR &header);

inline constexpr std::array<ListCommand, 5> kListCommands{{
    {ids::kDesignerList.add, BN_CLICKED, addOffered},
    {ids::kDesignerList.remove, BN_CLICKED, removeChosen},
    {ids::kDesignerList.up, BN_CLICKED, moveChosen},
    {ids::kDesignerList.down, BN_CLICKED, moveChosen},
    {ids::kDesignerList.available, LBN_SELCHANGE, offeredChanged},
}};

inline constexpr std::array<ListNotification, 4> kListNotifications{{
    {ids::kDesignerList.chosen, LVN_ITEMCHANGED, chosenChanged},
    {ids::kDesignerList.chosen, NM_DBLCLK, chosenDoubleClicked},
    {ids::kDesignerList.chosen, static_cast<int32_t>(OSTREL_NM_DROPPED), entryDropped},
    {ids::kDesignerList.available, static_cast<int32_t>(OSTREL_NM_DROPPED), entryDropped},
}};

// The rows every list page answers, followed by the page's own.
template <class Row, size_t M, size_t N>
constexpr std::array<Row, M + N> joinedRows(const std::array<Row, M> &shared, const std::array<Row, N> &own) {
    std::array<Row, M + N> all{};
    for (size_t i = 0; i < M; ++i) all[i] = shared[i];
    for (size_t i = 0; i < N; ++i) all[M + i] = own[i];
    return all;
}

} // namespace tabra::query::designer
