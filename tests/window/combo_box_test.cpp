// Combo boxes: a drop-down list only ever shows one of its entries; an editable combo
// keeps what the user typed. Selection from the program is silent, from the user it
// notifies.
#include "window_test_support.h"

using namespace tabra::test;

namespace {

class ComboBox : public ScriptedTest {
protected:
    ComboBox() {
        module.add(DialogBuilder(500, u"Combos").comboBox(1011, CBS_DROPDOWNLIST).comboBox(1012, CBS_DROPDOWN).okCancel());
        auto fill = [](HWND dialog) {
            for (int32_t id : {1011, 1012})
                Ostrel_FillBoxExtended(GetDlgItem(dialog, id), u'\t', u"ID\t4\tName\t12\tBorn\t9", OSTREL_FILL_WITH_DATA);
        };
        procedure = recordingProcedure(commands, fill, [this](HWND dialog) {
            listText = windowText(GetDlgItem(dialog, 1011));
            editText = windowText(GetDlgItem(dialog, 1012));
            editSelection = static_cast<int32_t>(SendDlgItemMessageW(dialog, 1012, CB_GETCURSEL, 0, 0));
        });
    }
    TestModule module;
    Procedure procedure;
    std::vector<SeenCommand> commands;
    std::u16string listText, editText;
    int32_t editSelection = -2;
};

TEST_F(ComboBox, ADropDownListShowsOnlyItsEntries) {
    HWND dialog = createModeless(module, 500, procedure);
    HWND list = GetDlgItem(dialog, 1011);
    EXPECT_EQ(windowText(list), u"");
    EXPECT_EQ(SetWindowTextW(list, u"Free text"), 0) << "no such entry";
    EXPECT_EQ(windowText(list), u"");
    EXPECT_EQ(SetWindowTextW(list, u"name"), 1);
    EXPECT_EQ(windowText(list), u"Name") << "the entry's own text";
    EXPECT_EQ(SendMessageW(list, CB_GETCURSEL, 0, 0), 1);
    EXPECT_EQ(SendMessageW(list, CB_SETCURSEL, 2, 0), 2);
    EXPECT_EQ(windowText(list), u"Born");
    SendMessageW(list, CB_DELETESTRING, 2, 0);
    EXPECT_EQ(windowText(list), u"") << "the shown entry is gone";
    EXPECT_EQ(SendMessageW(list, CB_GETCURSEL, 0, 0), CB_ERR);
    EXPECT_TRUE(commands.empty());
    DestroyWindow(dialog);
}

TEST_F(ComboBox, AnEditableComboKeepsAnyText) {
    HWND dialog = createModeless(module, 500, procedure);
    HWND combo = GetDlgItem(dialog, 1012);
    EXPECT_EQ(SetWindowTextW(combo, u"Free text"), 1);
    EXPECT_EQ(windowText(combo), u"Free text");
    EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), CB_ERR);
    SendMessageW(combo, CB_SETCURSEL, 0, 0);
    EXPECT_EQ(windowText(combo), u"ID");
    EXPECT_EQ(SendMessageW(combo, CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(u"na")), 1);
    EXPECT_EQ(windowText(combo), u"Name");
    DestroyWindow(dialog);
}

TEST_F(ComboBox, UserInputNotifiesByKind) {
    queue("dialog 500: select 1011 \"Born\"");
    queue("dialog 500: set 1011 \"ID\""); // a drop-down list: setting text picks the entry
    queue("dialog 500: select 1012 #1", "dialog 500: type 1012 \"!\"", "dialog 500: click 1");
    EXPECT_EQ(runScripted(module, 500, procedure), IDOK);
    EXPECT_EQ(listText, u"ID");
    EXPECT_EQ(editText, u"Name!");
    EXPECT_EQ(editSelection, CB_ERR) << "typing leaves the list's entries";
    std::vector<SeenCommand> expected{{1011, CBN_SETFOCUS},   {1011, CBN_SELCHANGE},  {1011, CBN_SELCHANGE},
                                      {1011, CBN_KILLFOCUS},  {1012, CBN_SETFOCUS},   {1012, CBN_SELCHANGE},
                                      {1012, CBN_EDITUPDATE}, {1012, CBN_EDITCHANGE}, {1012, CBN_KILLFOCUS},
                                      {IDOK, BN_CLICKED}};
    EXPECT_EQ(commands, expected);
}

TEST_F(ComboBox, TypingIsRefusedWhereAUserCannotType) {
    queue("dialog 500: type 1011 \"x\"");
    runDialog(module, 500, procedure);
    EXPECT_NE(report().find("combo box 1011 cannot take typed text"), std::string::npos) << report();
    TabraScript_Begin();
    queue("dialog 500: set 1011 \"Nothing\"");
    runDialog(module, 500, procedure);
    EXPECT_NE(report().find("combo box 1011 has no entry \"Nothing\""), std::string::npos) << report();
}

} // namespace
