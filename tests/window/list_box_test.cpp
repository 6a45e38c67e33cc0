// List boxes: single and multiple selection, item data, sorted insertion, searching
// (exact and by prefix, ignoring case, wrapping), and which changes notify the dialog
// (a user's selection does, the program's does not).
#include "window_test_support.h"

using namespace tabra::test;

namespace {

class ListBox : public ScriptedTest {
protected:
    ListBox() {
        module.add(DialogBuilder(400, u"Lists")
                       .listBox(1004)
                       .listBox(1005, LBS_MULTIPLESEL)
                       .listBox(1006, LBS_SORT)
                       .comboBox(1007, CBS_DROPDOWN)
                       .okCancel());
        auto fill = [](HWND dialog) {
            for (int32_t id : {1004, 1005, 1007}) Ostrel_FillBox(GetDlgItem(dialog, id), u'\t', u"Alpha\tbeta\tGamma\tBeta");
        };
        procedure = recordingProcedure(commands, fill, [this](HWND dialog) {
            single = Ostrel_GetBoxIndex(GetDlgItem(dialog, 1004));
            int32_t items[8] = {};
            auto count = SendDlgItemMessageW(dialog, 1005, LB_GETSELITEMS, 8, reinterpret_cast<LPARAM>(items));
            multiple.assign(items, items + count);
        });
    }
    TestModule module;
    Procedure procedure;
    std::vector<SeenCommand> commands;
    int32_t single = -2;
    std::vector<int32_t> multiple;
};

TEST_F(ListBox, SingleAndMultipleSelectionTakeDifferentMessages) {
    HWND dialog = createModeless(module, 400, procedure);
    HWND single = GetDlgItem(dialog, 1004);
    HWND multi = GetDlgItem(dialog, 1005);
    EXPECT_EQ(SendMessageW(single, LB_SETCURSEL, 2, 0), 2);
    EXPECT_EQ(SendMessageW(single, LB_GETCURSEL, 0, 0), 2);
    EXPECT_EQ(SendMessageW(single, LB_SETSEL, TRUE, 1), LB_ERR) << "LB_SETSEL is for multiple selection";
    EXPECT_EQ(SendMessageW(single, LB_GETSELCOUNT, 0, 0), LB_ERR);
    EXPECT_EQ(SendMessageW(single, LB_SETCURSEL, static_cast<WPARAM>(-1), 0), LB_ERR) << "-1 clears and answers LB_ERR";
    EXPECT_EQ(SendMessageW(single, LB_GETCURSEL, 0, 0), LB_ERR);
    EXPECT_EQ(SendMessageW(single, LB_SETCURSEL, 9, 0), LB_ERR);

    EXPECT_EQ(SendMessageW(multi, LB_SETCURSEL, 1, 0), LB_ERR) << "LB_SETCURSEL is for single selection";
    SendMessageW(multi, LB_SETSEL, TRUE, 3);
    SendMessageW(multi, LB_SETSEL, TRUE, 0);
    EXPECT_EQ(SendMessageW(multi, LB_GETSELCOUNT, 0, 0), 2);
    int32_t items[1] = {};
    EXPECT_EQ(SendMessageW(multi, LB_GETSELITEMS, 1, reinterpret_cast<LPARAM>(items)), 1) << "bounded by the caller";
    EXPECT_EQ(items[0], 0);
    SendMessageW(multi, LB_SETSEL, FALSE, static_cast<LPARAM>(-1));
    EXPECT_EQ(SendMessageW(multi, LB_GETSELCOUNT, 0, 0), 0);
    EXPECT_TRUE(commands.empty()) << "the program's selection notifies nobody";
    DestroyWindow(dialog);
}

TEST_F(ListBox, UserSelectionNotifiesAndDoubleClickFollows) {
    queue("dialog 400: select 1004 \"gamma\"", "dialog 400: select 1005 #1 #3", "dialog 400: toggle 1005 #1",
          "dialog 400: toggle 1005 \"Alpha\"", "dialog 400: doubleclick 1004 #0", "dialog 400: click 1");
    EXPECT_EQ(runScripted(module, 400, procedure), IDOK);
    EXPECT_EQ(single, 0);
    EXPECT_EQ(multiple, (std::vector<int32_t>{0, 3}));
    // The focus follows the user's clicks, and each list says when it gets and loses it.
    std::vector<SeenCommand> expected{{1004, LBN_SETFOCUS},  {1004, LBN_SELCHANGE}, {1004, LBN_KILLFOCUS},
                                      {1005, LBN_SETFOCUS},  {1005, LBN_SELCHANGE}, {1005, LBN_SELCHANGE},
                                      {1005, LBN_SELCHANGE}, {1005, LBN_KILLFOCUS}, {1004, LBN_SETFOCUS},
                                      {1004, LBN_SELCHANGE}, {1004, LBN_DBLCLK},    {1004, LBN_KILLFOCUS},
                                      {IDOK, BN_CLICKED}};
    EXPECT_EQ(commands, expected);
}

TEST_F(ListBox, ASingleSelectionListTakesOneEntry) {
    queue("dialog 400: select 1004 #0 #1");
    runDialog(module, 400, procedure);
    EXPECT_NE(report().find("list box 1004 takes exactly one selected entry"), std::string::npos) << report();
}

// The entry messages list boxes and combo boxes share, each in its own numbers:
// searching (ignoring case, starting after the start index, wrapping), inserting,
// reading texts and item data, and LB_ERR / CB_ERR for indexes out of range.
TEST_F(ListBox, ListsAndCombosAnswerTheEntryMessagesAlike) {
    struct Messages {
        int32_t id;
        uint32_t insert, count, getText, getTextLength, getData, setData, find, findExact, select, getSelection;
        LRESULT error;
    };
    const Messages kinds[] = {
        {1004, LB_INSERTSTRING, LB_GETCOUNT, LB_GETTEXT, LB_GETTEXTLEN, LB_GETITEMDATA, LB_SETITEMDATA, LB_FINDSTRING,
         LB_FINDSTRINGEXACT, LB_SELECTSTRING, LB_GETCURSEL, LB_ERR},
        {1007, CB_INSERTSTRING, CB_GETCOUNT, CB_GETLBTEXT, CB_GETLBTEXTLEN, CB_GETITEMDATA, CB_SETITEMDATA, CB_FINDSTRING,
         CB_FINDSTRINGEXACT, CB_SELECTSTRING, CB_GETCURSEL, CB_ERR},
    };
    HWND dialog = createModeless(module, 400, procedure);
    for (const Messages &m : kinds) {
        SCOPED_TRACE(m.id);
        HWND box = GetDlgItem(dialog, m.id);
        auto send = [&](uint32_t message, intptr_t wParam, const void *lParam = nullptr) {
            return SendMessageW(box, message, static_cast<WPARAM>(wParam), reinterpret_cast<LPARAM>(lParam));
        };
        EXPECT_EQ(send(m.findExact, -1, u"BETA"), 1);
        EXPECT_EQ(send(m.findExact, 1, u"beta"), 3) << "the search starts after the start index";
        EXPECT_EQ(send(m.findExact, 3, u"beta"), 1) << "and wraps around";
        EXPECT_EQ(send(m.findExact, -1, u"bet"), m.error);
        EXPECT_EQ(send(m.find, -1, u"ga"), 2);
        EXPECT_EQ(send(m.select, -1, u"al"), 0);
        EXPECT_EQ(send(m.getSelection, 0), 0);

        EXPECT_EQ(send(m.insert, 9, u"x"), m.error);
        EXPECT_EQ(send(m.insert, 0, u"Delta"), 0);
        EXPECT_EQ(send(m.getSelection, 0), 1) << "the selection moves with its entry";
        EXPECT_EQ(send(m.insert, -1, u"Omega"), 5) << "-1 appends";
        EXPECT_EQ(send(m.count, 0), 6);
        char16_t text[16] = {};
        EXPECT_EQ(send(m.getText, 0, text), 5);
        EXPECT_EQ(std::u16string(text), u"Delta");
        EXPECT_EQ(send(m.getTextLength, 5), 5);
        EXPECT_EQ(send(m.getText, 6, text), m.error);
        EXPECT_EQ(send(m.getTextLength, -1), m.error);

        EXPECT_EQ(send(m.setData, 2, reinterpret_cast<const void *>(4711)), 0);
        EXPECT_EQ(send(m.getData, 2), 4711);
        EXPECT_EQ(send(m.setData, 7, reinterpret_cast<const void *>(1)), m.error);
        EXPECT_EQ(send(m.getData, 7), m.error);
    }
    EXPECT_TRUE(commands.empty()) << "the program's messages notify nobody";
    DestroyWindow(dialog);
}

TEST_F(ListBox, SortingAndDeletion) {
    HWND dialog = createModeless(module, 400, procedure);
    HWND sorted = GetDlgItem(dialog, 1006);
    for (const char16_t *text : {u"pear", u"Apple", u"fig", u"apple"}) SendMessageW(sorted, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    char16_t text[16];
    std::vector<std::u16string> order;
    for (int i = 0; i < 4; ++i) {
        SendMessageW(sorted, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        order.emplace_back(text);
    }
    EXPECT_EQ(order, (std::vector<std::u16string>{u"Apple", u"apple", u"fig", u"pear"}));
    EXPECT_EQ(SendMessageW(sorted, LB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(u"zzz")), 0) << "insertion ignores the sort";

    HWND list = GetDlgItem(dialog, 1004);
    SendMessageW(list, LB_SETITEMDATA, 2, 4711);
    SendMessageW(list, LB_SETCURSEL, 2, 0);
    EXPECT_EQ(SendMessageW(list, LB_DELETESTRING, 0, 0), 3) << "answers the entries left";
    EXPECT_EQ(SendMessageW(list, LB_GETCURSEL, 0, 0), 1) << "the selection moves with its entry";
    EXPECT_EQ(SendMessageW(list, LB_GETITEMDATA, 1, 0), 4711);
    SendMessageW(list, LB_DELETESTRING, 1, 0);
    EXPECT_EQ(SendMessageW(list, LB_GETCURSEL, 0, 0), LB_ERR) << "deleting the selected entry clears the selection";
    EXPECT_EQ(SendMessageW(list, LB_DELETESTRING, 7, 0), LB_ERR);
    SendMessageW(list, LB_RESETCONTENT, 0, 0);
    EXPECT_EQ(SendMessageW(list, LB_GETCOUNT, 0, 0), 0);
    DestroyWindow(dialog);
}

} // namespace
