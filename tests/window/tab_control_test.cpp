// Tab controls whose pages are child dialogs: creating pages from templates, showing
// one at a time, the TCN_SELCHANGING / TCN_SELCHANGE pair a user's choice sends, and
// script actions on a page's controls (ids may repeat across pages).
#include "window_test_support.h"

using namespace tabra::test;

namespace {

class TabControl : public ScriptedTest {
protected:
    TabControl() {
        module.add(DialogBuilder(104, u"Objects").tabControl(1004).okCancel());
        module.add(DialogBuilder(105, u"Tables").page().listBox(1010).button(1043, u"Open"));
        module.add(DialogBuilder(106, u"Views").page().listBox(1010).checkBox(1026));
        page = [this](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
            if (message == WM_INITDIALOG) {
                pageParameters.push_back(lParam);
                Ostrel_FillBox(GetDlgItem(dialog, 1010), u'\t', pageParameters.size() == 1 ? u"Orders\tStock" : u"Open orders");
            }
            if (message == WM_COMMAND && HIWORD(wParam) != LBN_SETFOCUS && HIWORD(wParam) != LBN_KILLFOCUS)
                pageCommands.push_back(LOWORD(wParam));
            return 0;
        };
        main = [this](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
            if (message == WM_INITDIALOG) {
                HWND tab = GetDlgItem(dialog, 1004);
                Ostrel_AddTabControlItem(tab, -1, module.handle(), 105, functionProcedure, reinterpret_cast<LPARAM>(&page));
                Ostrel_AddTabControlItem(tab, -1, module.handle(), 106, functionProcedure, reinterpret_cast<LPARAM>(&page));
                Ostrel_ShowTabControlItem(tab, 0);
            }
            if (message == WM_NOTIFY) {
                auto code = static_cast<int32_t>(reinterpret_cast<const NMHDR *>(lParam)->code);
                tabNotifications.push_back(code);
                if (code == TCN_SELCHANGING && refuseChange) {
                    SetWindowLongPtrW(dialog, DWLP_MSGRESULT, TRUE);
                    return TRUE;
                }
                if (code == TCN_SELCHANGE) Ostrel_ShowTabControlItem(GetDlgItem(dialog, 1004), -1);
            }
            if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
                current = static_cast<int32_t>(SendDlgItemMessageW(dialog, 1004, TCM_GETCURSEL, 0, 0));
                EndDialog(dialog, LOWORD(wParam));
            }
            return message == WM_COMMAND || message == WM_NOTIFY;
        };
    }
    TestModule module;
    Procedure page, main;
    std::vector<LPARAM> pageParameters;
    std::vector<int32_t> pageCommands, tabNotifications;
    bool refuseChange = false;
    int32_t current = -2;
};

TEST_F(TabControl, PagesAreChildDialogsShownOneAtATime) {
    HWND dialog = createModeless(module, 104, main);
    EXPECT_FALSE(IsWindowVisible(dialog)) << "the template has no WS_VISIBLE";
    ShowWindow(dialog, SW_SHOW);
    HWND tab = GetDlgItem(dialog, 1004);
    ASSERT_EQ(SendMessageW(tab, TCM_GETITEMCOUNT, 0, 0), 2);
    HWND tables = Ostrel_GetTabControlPage(tab, 0);
    HWND views = Ostrel_GetTabControlPage(tab, 1);
    ASSERT_NE(tables, nullptr);
    EXPECT_EQ(GetParent(tables), tab);
    EXPECT_EQ(GetParent(GetParent(views)), dialog);
    EXPECT_EQ(pageParameters, (std::vector<LPARAM>{reinterpret_cast<LPARAM>(&page), reinterpret_cast<LPARAM>(&page)}));
    char16_t text[16];
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = 16;
    SendMessageW(tab, TCM_GETITEMW, 1, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(std::u16string(text), u"Views") << "a tab is titled with its page's caption";

    EXPECT_TRUE(IsWindowVisible(tables));
    EXPECT_FALSE(IsWindowVisible(views));
    EXPECT_EQ(Ostrel_ShowTabControlItem(tab, 1), 1);
    EXPECT_FALSE(IsWindowVisible(tables));
    EXPECT_TRUE(IsWindowVisible(views));
    EXPECT_EQ(Ostrel_ShowTabControlItem(tab, 5), -1);
    EXPECT_EQ(Ostrel_GetTabControlPage(tab, -1), views);
    EXPECT_TRUE(tabNotifications.empty()) << "the program's changes are silent";

    DestroyWindow(dialog);
    EXPECT_FALSE(IsWindow(tables)) << "pages go with their dialog";
}

TEST_F(TabControl, UserChoosesATabAndActsOnItsPage) {
    queue("dialog 105: select 1010 \"Stock\"");   // the visible page, by its template
    queue("dialog 104: select 1004 \"Views\"");
    queue("dialog 104: select 1010 \"Open orders\""); // id 1010 exists on both pages: the visible one
    queue("dialog 106: check 1026");
    queue("dialog 105: click 1043");                // the tables page is hidden now
    EXPECT_EQ(runDialog(module, 104, main), IDCANCEL);
    EXPECT_EQ(tabNotifications, (std::vector<int32_t>{TCN_SELCHANGING, TCN_SELCHANGE}));
    EXPECT_EQ(pageCommands, (std::vector<int32_t>{1010, 1010, 1026}));
    EXPECT_NE(report().find("waits for the user, but the next action is \"dialog 105: click 1043\""), std::string::npos)
        << report();
}

TEST_F(TabControl, TheDialogMayKeepTheCurrentTab) {
    refuseChange = true;
    queue("dialog 104: select 1004 #1", "dialog 104: click 1");
    EXPECT_EQ(runScripted(module, 104, main), IDOK);
    EXPECT_EQ(current, 0);
    EXPECT_EQ(tabNotifications, (std::vector<int32_t>{TCN_SELCHANGING}));
}

} // namespace
