// The list pages' shared behaviour.
#include "query/designer/list_page.h"

#include "ostrel.h"
#include "query/designer/statement_generation.h"

#include <algorithm>
#include <vector>

namespace tabra::query::designer {

namespace {

using ids::kDesignerList;

constexpr int32_t kEntryCapacity = static_cast<int32_t>(kItemLength) + 1;
constexpr uint32_t kChosenState = LVIS_SELECTED | LVIS_FOCUSED;
constexpr int32_t kEditButton = ids::kDesignerTablesPage.edit; // every page that edits has it under this id

// The page's ListPage, kept in its user data from WM_INITDIALOG on.
const ListPage *listOf(HWND page) { return reinterpret_cast<const ListPage *>(GetWindowLongPtrW(page, GWLP_USERDATA)); }

HWND chosenList(HWND page) { return GetDlgItem(page, kDesignerList.chosen); }
HWND offeredList(HWND page) { return GetDlgItem(page, kDesignerList.available); }

std::u16string offeredText(HWND page, int32_t index) {
    std::vector<char16_t> text(kEntryCapacity, u'\0');
    if (Ostrel_GetBoxEntry(offeredList(page), index, text.data(), kEntryCapacity) < 0) return {};
    return text.data();
}

void choose(HWND page, int32_t index) {
    HWND view = chosenList(page);
    LVITEMW item{};
    item.stateMask = kChosenState;
    SendMessageW(view, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    if (index < 0) return;
    item.state = kChosenState;
    SendMessageW(view, LVM_SETITEMSTATE, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    SendMessageW(view, LVM_ENSUREVISIBLE, static_cast<WPARAM>(index), FALSE);
}

void fillChosen(HWND page, const QueryDesign &design, const ListPage &list, int32_t chosen) {
    HWND view = chosenList(page);
    SendMessageW(view, LVM_DELETEALLITEMS, 0, 0);
    auto count = static_cast<int32_t>(list.count(design));
    for (int32_t i = 0; i < count; ++i)
        Ostrel_ListView_InsertItem(view, -1, list.row(design, static_cast<size_t>(i)).c_str(), u'\t', i);
    choose(page, std::min(chosen, count - 1));
    enableListButtons(page);
}

// A button that the change disabled gives the focus to the design's list.
void keepFocusUsable(HWND page, int32_t button) {
    if (!IsWindowEnabled(GetDlgItem(page, button))) SetFocus(chosenList(page));
}

void insertOffered(HWND page, DesignerState &state, const ListPage &list, int32_t offered, size_t position) {
    std::u16string text = offeredText(page, offered);
    if (text.empty()) return;
    position = std::min(position, list.count(state.design));
    list.insert(state, text, position);
    listChanged(page, state, static_cast<int32_t>(position));
}

void edit(HWND page, DesignerState &state, int32_t chosen) {
    const ListPage *list = listOf(page);
    if (list == nullptr || list->edit == nullptr || chosen < 0) return;
    if (list->edit(page, state, static_cast<size_t>(chosen))) listChanged(page, state, chosen);
}

} // namespace

void initialiseListPage(HWND page, DesignerState &state, const ListPage &list) {
    SetWindowLongPtrW(page, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&list));
    HWND view = chosenList(page);
    Ostrel_ListView_CreateColumns(view, designerText(list.columnsString).c_str());
    SendMessageW(view, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    Ostrel_SetListDragDrop(view, OSTREL_DRAG_SOURCE | OSTREL_DROP_TARGET);
    Ostrel_SetListDragDrop(offeredList(page), OSTREL_DRAG_SOURCE | OSTREL_DROP_TARGET);
    showListPage(page, state);
}

void showListPage(HWND page, DesignerState &state) {
    const ListPage *list = listOf(page);
    if (list == nullptr) return;
    HWND offered = offeredList(page);
    std::u16string kept = offeredText(page, -1);
    Ostrel_ResetBox(offered);
    for (const std::u16string &text : list->available(state)) Ostrel_AddBoxEntry(offered, text.c_str(), 0, -1, 0);
    if (!kept.empty()) Ostrel_SetBoxIndex(offered, Ostrel_FindBoxEntry(offered, kept.c_str(), 0, 0));
    fillChosen(page, state.design, *list, chosenEntry(page));
}

int32_t chosenEntry(HWND page) {
    return static_cast<int32_t>(SendMessageW(chosenList(page), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void listChanged(HWND page, DesignerState &state, int32_t chosen) {
    const ListPage *list = listOf(page);
    if (list == nullptr) return;
    fillChosen(page, state.design, *list, chosen);
    designChanged(state, list->change);
}

void enableListButtons(HWND page) {
    int32_t chosen = chosenEntry(page);
    auto count = static_cast<int32_t>(SendMessageW(chosenList(page), LVM_GETITEMCOUNT, 0, 0));
    EnableWindow(GetDlgItem(page, kDesignerList.add), Ostrel_GetBoxIndex(offeredList(page)) >= 0);
    EnableWindow(GetDlgItem(page, kDesignerList.remove), chosen >= 0);
    EnableWindow(GetDlgItem(page, kDesignerList.up), chosen > 0);
    EnableWindow(GetDlgItem(page, kDesignerList.down), chosen >= 0 && chosen + 1 < count);
    EnableWindow(GetDlgItem(page, kEditButton), chosen >= 0);
}

void addOffered(HWND page, DesignerState &state, int32_t) {
    if (const ListPage *list = listOf(page))
        insertOffered(page, state, *list, Ostrel_GetBoxIndex(offeredList(page)), list->count(state.design));
}

void removeChosen(HWND page, DesignerState &state, int32_t control) {
    const ListPage *list = listOf(page);
    int32_t chosen = chosenEntry(page);
    if (list == nullptr || chosen < 0) return;
    list->remove(state.design, static_cast<size_t>(chosen));
    listChanged(page, state, std::min(chosen, static_cast<int32_t>(list->count(state.design)) - 1));
    keepFocusUsable(page, control);
}

void moveChosen(HWND page, DesignerState &state, int32_t control) {
    const ListPage *list = listOf(page);
    int32_t chosen = chosenEntry(page);
    if (list == nullptr || chosen < 0) return;
    bool up = control == kDesignerList.up;
    if (up && chosen == 0) return;
    size_t before = up ? static_cast<size_t>(chosen - 1) : static_cast<size_t>(chosen + 2);
    if (before > list->count(state.design)) return;
    listChanged(page, state, static_cast<int32_t>(list->move(state.design, static_cast<size_t>(chosen), before)));
    keepFocusUsable(page, control);
}

void editChosen(HWND page, DesignerState &state, int32_t) { edit(page, state, chosenEntry(page)); }

void offeredChanged(HWND page, DesignerState &, int32_t) { enableListButtons(page); }

void chosenChanged(HWND page, DesignerState &, const NMHDR &) { enableListButtons(page); }

void chosenDoubleClicked(HWND page, DesignerState &state, const NMHDR &header) {
    edit(page, state, reinterpret_cast<const NMITEMACTIVATE &>(header).iItem);
}

// From the offered list to a place in the design's list adds, within the design's
// list moves, from the design's list to the offered list removes.
void entryDropped(HWND page, DesignerState &state, const NMHDR &header) {
    const auto &drop = reinterpret_cast<const OstrelDropInfo &>(header);
    const ListPage *list = listOf(page);
    if (list == nullptr) return;
    bool intoChosen = static_cast<int32_t>(header.idFrom) == kDesignerList.chosen;
    bool fromChosen = drop.sourceId == kDesignerList.chosen;
    auto item = static_cast<size_t>(drop.item);
    if (intoChosen && !fromChosen) {
        insertOffered(page, state, *list, drop.item, static_cast<size_t>(drop.position));
    } else if (intoChosen) {
        listChanged(page, state, static_cast<int32_t>(list->move(state.design, item, static_cast<size_t>(drop.position))));
    } else if (fromChosen) {
        list->remove(state.design, item);
        listChanged(page, state, -1);
    }
}

} // namespace tabra::query::designer
