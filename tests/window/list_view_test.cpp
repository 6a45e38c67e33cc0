// Report list views: columns, items with sub-items and parameters, selection and focus
// states, and the notifications a dialog gets: LVN_ITEMCHANGED for every changed item,
// NM_DBLCLK and NM_RCLICK with the item under the pointer.
#include "window_test_support.h"

using namespace tabra::test;

namespace {

struct Notification {
    int32_t code;
    int32_t item;
    uint32_t newState;
    uint32_t oldState;
    LPARAM param;
    bool operator==(const Notification &) const = default;
};

class ListView : public ScriptedTest {
protected:
    ListView() {
        module.add(DialogBuilder(600, u"Fields")
                       .listView(1002).at(10, 20, 120, 60)
                       .listView(1003, LVS_REPORT | LVS_SINGLESEL)
                       .okCancel());
        procedure = [this](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
            if (message == WM_INITDIALOG) {
                for (int32_t id : {1002, 1003}) {
                    HWND view = GetDlgItem(dialog, id);
                    Ostrel_ListView_CreateColumns(view, u"Column|120|Heading|80");
                    Ostrel_ListView_InsertItem(view, -1, u"ID\tid", u'\t', 100);
                    Ostrel_ListView_InsertItem(view, -1, u"Name\tname", u'\t', 101);
                    Ostrel_ListView_InsertItem(view, -1, u"City\t", u'\t', 102);
                }
            }
            if (message == WM_NOTIFY && wParam == 1002) {
                const auto *header = reinterpret_cast<const NMHDR *>(lParam);
                auto code = static_cast<int32_t>(header->code);
                if (code == LVN_ITEMCHANGED) {
                    const auto *info = reinterpret_cast<const NMLISTVIEW *>(lParam);
                    seen.push_back({code, info->iItem, info->uNewState, info->uOldState, info->lParam});
                } else if (code == NM_DBLCLK || code == NM_RCLICK) {
                    const auto *info = reinterpret_cast<const NMITEMACTIVATE *>(lParam);
                    seen.push_back({code, info->iItem, 0, 0, info->lParam});
                }
            }
            if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
                selectedCount = SendDlgItemMessageW(dialog, 1002, LVM_GETSELECTEDCOUNT, 0, 0);
                EndDialog(dialog, LOWORD(wParam));
            }
            return message == WM_COMMAND;
        };
    }
    TestModule module;
    Procedure procedure;
    std::vector<Notification> seen;
    LRESULT selectedCount = -1;
};

constexpr uint32_t kSelectedFocused = LVIS_SELECTED | LVIS_FOCUSED;

TEST_F(ListView, ColumnsItemsAndSubItems) {
    HWND dialog = createModeless(module, 600, procedure);
    HWND view = GetDlgItem(dialog, 1002);
    char16_t text[32];
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = text;
    column.cchTextMax = 32;
    ASSERT_EQ(SendMessageW(view, LVM_GETCOLUMNW, 1, reinterpret_cast<LPARAM>(&column)), 1);
    EXPECT_EQ(std::u16string(text), u"Heading");
    EXPECT_EQ(column.cx, 80);
    EXPECT_EQ(SendMessageW(view, LVM_GETCOLUMNW, 2, reinterpret_cast<LPARAM>(&column)), 0);

    EXPECT_EQ(SendMessageW(view, LVM_GETITEMCOUNT, 0, 0), 3);
    LVITEMW item{};
    item.iSubItem = 1;
    item.pszText = text;
    item.cchTextMax = 3;
    EXPECT_EQ(SendMessageW(view, LVM_GETITEMTEXTW, 1, reinterpret_cast<LPARAM>(&item)), 2) << "cut to the buffer";
    EXPECT_EQ(std::u16string(text), u"na");
    item.cchTextMax = 32;
    item.iSubItem = 1;
    EXPECT_EQ(SendMessageW(view, LVM_GETITEMTEXTW, 2, reinterpret_cast<LPARAM>(&item)), 0) << "an empty sub-item";
    item.iSubItem = 7;
    EXPECT_EQ(SendMessageW(view, LVM_GETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&item)), 0) << "a sub-item never set";

    LVITEMW query{};
    query.mask = LVIF_PARAM | LVIF_TEXT;
    query.iItem = 2;
    query.pszText = text;
    query.cchTextMax = 32;
    ASSERT_EQ(SendMessageW(view, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&query)), 1);
    EXPECT_EQ(query.lParam, 102);
    EXPECT_EQ(std::u16string(text), u"City");

    LVFINDINFOW byParam{};
    byParam.flags = LVFI_PARAM;
    byParam.lParam = 101;
    EXPECT_EQ(SendMessageW(view, LVM_FINDITEMW, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&byParam)), 1);
    LVFINDINFOW byText{};
    byText.flags = LVFI_STRING;
    byText.psz = u"city";
    EXPECT_EQ(SendMessageW(view, LVM_FINDITEMW, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&byText)), 2);
    EXPECT_EQ(SendMessageW(view, LVM_FINDITEMW, 2, reinterpret_cast<LPARAM>(&byText)), -1) << "starts after 2, no wrap";

    SendMessageW(view, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    EXPECT_EQ(SendMessageW(view, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0), LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    EXPECT_EQ(Ostrel_ListView_CreateColumns(view, u"Only|x"), 1) << "columns are replaced; a bad width is 100";
    EXPECT_EQ(SendMessageW(view, LVM_GETCOLUMNWIDTH, 0, 0), 100);
    DestroyWindow(dialog);
}

TEST_F(ListView, StateChangesNotifyEveryChangedItem) {
    HWND dialog = createModeless(module, 600, procedure);
    HWND view = GetDlgItem(dialog, 1002);
    LVITEMW state{};
    state.state = kSelectedFocused;
    state.stateMask = kSelectedFocused;
    SendMessageW(view, LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&state));
    SendMessageW(view, LVM_SETITEMSTATE, 2, reinterpret_cast<LPARAM>(&state));
    // Item 2 took the focus from item 0; both stay selected in a multiple-selection view.
    std::vector<Notification> expected{{LVN_ITEMCHANGED, 0, kSelectedFocused, 0, 100},
                                       {LVN_ITEMCHANGED, 0, LVIS_SELECTED, kSelectedFocused, 100},
                                       {LVN_ITEMCHANGED, 2, kSelectedFocused, 0, 102}};
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(SendMessageW(view, LVM_GETSELECTEDCOUNT, 0, 0), 2);
    EXPECT_EQ(SendMessageW(view, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 0);
    EXPECT_EQ(SendMessageW(view, LVM_GETNEXTITEM, 0, LVNI_SELECTED), 2);
    EXPECT_EQ(SendMessageW(view, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 2);
    EXPECT_EQ(SendMessageW(view, LVM_GETITEMSTATE, 0, LVIS_SELECTED), LVIS_SELECTED);
    seen.clear();
    SendMessageW(view, LVM_SETITEMSTATE, 2, reinterpret_cast<LPARAM>(&state));
    EXPECT_TRUE(seen.empty()) << "no change, no notification";

    HWND single = GetDlgItem(dialog, 1003);
    state.state = state.stateMask = LVIS_SELECTED;
    SendMessageW(single, LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&state));
    SendMessageW(single, LVM_SETITEMSTATE, 1, reinterpret_cast<LPARAM>(&state));
    EXPECT_EQ(SendMessageW(single, LVM_GETSELECTEDCOUNT, 0, 0), 1) << "a single-selection view keeps one";
    EXPECT_EQ(SendMessageW(single, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 1);
    DestroyWindow(dialog);
}

TEST_F(ListView, ClicksSelectAndNotifyTheItemUnderThePointer) {
    queue("dialog 600: select 1002 \"Name\"", "dialog 600: doubleclick 1002 #0");
    queue("dialog 600: rightclick 1002 #0"); // already selected: stays the only one
    queue("dialog 600: toggle 1002 #2");
    queue("dialog 600: rightclick 1002");    // on no item
    queue("dialog 600: click 1");
    EXPECT_EQ(runScripted(module, 600, procedure), IDOK);
    EXPECT_EQ(selectedCount, 2);
    std::vector<Notification> expected{
        {LVN_ITEMCHANGED, 1, kSelectedFocused, 0, 101},
        {LVN_ITEMCHANGED, 1, 0, kSelectedFocused, 101}, // double click on item 0 moves the selection
        {LVN_ITEMCHANGED, 0, kSelectedFocused, 0, 100},
        {NM_DBLCLK, 0, 0, 0, 100},
        {NM_RCLICK, 0, 0, 0, 100},
        {LVN_ITEMCHANGED, 0, LVIS_SELECTED, kSelectedFocused, 100},
        {LVN_ITEMCHANGED, 2, kSelectedFocused, 0, 102},
        {NM_RCLICK, -1, 0, 0, 0},
    };
    EXPECT_EQ(seen, expected);
}

TEST_F(ListView, CheckBoxesAreStateImagesTheUserChecks) {
    std::vector<int32_t> checksAtEnd;
    POINT pointer{-1, -1};
    Procedure withChecks = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        HWND view = GetDlgItem(dialog, 1002);
        if (message == WM_NOTIFY && static_cast<int32_t>(reinterpret_cast<const NMHDR *>(lParam)->code) == NM_RCLICK)
            GetCursorPos(&pointer);
        if (message == WM_COMMAND && LOWORD(wParam) == IDOK)
            for (int32_t i = 0; i < 4; ++i) checksAtEnd.push_back(ListView_GetCheckState(view, i));
        INT_PTR answer = procedure(dialog, message, wParam, lParam);
        if (message == WM_INITDIALOG) {
            // Items there get an unchecked box with the style, and so do items added later.
            SendMessageW(view, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES, LVS_EX_CHECKBOXES);
            Ostrel_ListView_InsertItem(view, -1, u"Zip\tzip", u'\t', 103);
            ListView_SetCheckState(view, 2, TRUE);
            seen.clear();
        }
        return answer;
    };
    queue("dialog 600: check 1002 #0", "dialog 600: uncheck 1002 \"City\"", "dialog 600: rightclick 1002 #3",
          "dialog 600: click 1");
    EXPECT_EQ(runScripted(module, 600, withChecks), IDOK);
    EXPECT_EQ(checksAtEnd, (std::vector<int32_t>{1, 0, 0, 0}));
    const uint32_t unchecked = INDEXTOSTATEIMAGEMASK(1), checked = INDEXTOSTATEIMAGEMASK(2);
    ASSERT_GE(seen.size(), 2u);
    EXPECT_EQ(seen[0], (Notification{LVN_ITEMCHANGED, 0, checked, unchecked, 100}));
    EXPECT_EQ(seen[1], (Notification{LVN_ITEMCHANGED, 2, unchecked, checked, 102}));
    // Headless, the pointer is where the right click went: the list view's centre.
    EXPECT_EQ(pointer.x, 10 + 120 / 2);
    EXPECT_EQ(pointer.y, 20 + 60 / 2);

    TabraScript_Begin();
    queue("dialog 600: check 1003 #0");
    runDialog(module, 600, procedure);
    EXPECT_NE(report().find("list view 1003 cannot check items (no check boxes)"), std::string::npos) << report();
}

TEST_F(ListView, DeletingItemsTellsTheDialog) {
    HWND dialog = createModeless(module, 600, procedure);
    std::vector<std::pair<int32_t, LPARAM>> deleted;
    Procedure watcher = [&](HWND, uint32_t message, WPARAM, LPARAM lParam) -> INT_PTR {
        if (message != WM_NOTIFY) return 0;
        const auto *info = reinterpret_cast<const NMLISTVIEW *>(lParam);
        if (static_cast<int32_t>(info->hdr.code) == LVN_DELETEITEM) deleted.emplace_back(info->iItem, info->lParam);
        return 0;
    };
    SetWindowLongPtrW(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&watcher));
    HWND view = GetDlgItem(dialog, 1002);
    EXPECT_EQ(SendMessageW(view, LVM_DELETEITEM, 1, 0), 1);
    EXPECT_EQ(SendMessageW(view, LVM_DELETEITEM, 5, 0), 0);
    SendMessageW(view, LVM_DELETEALLITEMS, 0, 0);
    EXPECT_EQ(deleted, (std::vector<std::pair<int32_t, LPARAM>>{{1, 101}, {0, 100}, {1, 102}}));
    EXPECT_EQ(SendMessageW(view, LVM_GETITEMCOUNT, 0, 0), 0);
    DestroyWindow(dialog);
}

} // namespace
