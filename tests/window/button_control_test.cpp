// Buttons: check boxes with and without automatic toggling, radio groups bounded by
// WS_GROUP, CheckRadioButton over an id range, and the script's check / uncheck.
#include "window_test_support.h"

using namespace tabra::test;

namespace {

class ButtonControl : public ScriptedTest {
protected:
    ButtonControl() {
        // Two radio groups: 1016-1017 and 1003-1005; 1040 is a manual check box.
        module.add(DialogBuilder(300, u"Buttons")
                       .radio(1016, true)
                       .radio(1017, false)
                       .radio(1003, true)
                       .radio(1004, false)
                       .radio(1005, false)
                       .checkBox(1026)
                       .control(tabra::platform::ControlKind::CheckBox, 1040, u"Manual", BS_CHECKBOX | WS_GROUP)
                       .control(tabra::platform::ControlKind::GroupBox, 1050, u"Group")
                       .okCancel());
        auto check = [](HWND dialog) {
            CheckRadioButton(dialog, 1016, 1017, 1016);
            CheckRadioButton(dialog, 1003, 1005, 1005);
        };
        auto atEnd = [this](HWND dialog) {
            for (int32_t id : {1016, 1017, 1003, 1004, 1005, 1026, 1040})
                if (IsDlgButtonChecked(dialog, id)) checkedAtEnd.push_back(id);
        };
        procedure = recordingProcedure(clicked, check, atEnd, [](HWND dialog, int32_t id, int32_t) {
            if (id == 1040) // a manual check box leaves the toggling to the dialog
                CheckDlgButton(dialog, 1040, IsDlgButtonChecked(dialog, 1040) ? BST_UNCHECKED : BST_CHECKED);
        });
    }
    TestModule module;
    Procedure procedure;
    std::vector<SeenCommand> clicked;
    std::vector<int32_t> checkedAtEnd;
};

TEST_F(ButtonControl, ClickingARadioButtonUnchecksOnlyItsGroup) {
    queue("dialog 300: click 1004", "dialog 300: check 1017", "dialog 300: click 1");
    EXPECT_EQ(runScripted(module, 300, procedure), IDOK);
    EXPECT_EQ(checkedAtEnd, (std::vector<int32_t>{1017, 1004}));
    EXPECT_EQ(clicked, (std::vector<SeenCommand>{{1004, BN_CLICKED}, {1017, BN_CLICKED}, {IDOK, BN_CLICKED}}));
}

TEST_F(ButtonControl, CheckingWhatIsCheckedDoesNothingAndRadiosCannotBeUnchecked) {
    queue("dialog 300: check 1016"); // already checked: no click
    queue("dialog 300: uncheck 1016");
    EXPECT_EQ(runDialog(module, 300, procedure), IDCANCEL);
    EXPECT_TRUE(clicked.empty());
    EXPECT_NE(report().find("(a radio button) cannot be unchecked"), std::string::npos) << report();
}

TEST_F(ButtonControl, AutoCheckBoxesToggleManualOnesAskTheDialog) {
    queue("dialog 300: check 1026", "dialog 300: click 1026", "dialog 300: click 1026", "dialog 300: check 1040",
          "dialog 300: click 1");
    EXPECT_EQ(runScripted(module, 300, procedure), IDOK);
    EXPECT_EQ(checkedAtEnd, (std::vector<int32_t>{1016, 1005, 1026, 1040}));
}

TEST_F(ButtonControl, ProgramChecksAndRanges) {
    HWND dialog = createModeless(module, 300, procedure);
    EXPECT_EQ(IsDlgButtonChecked(dialog, 1016), BST_CHECKED);
    CheckRadioButton(dialog, 1003, 1005, 1003);
    EXPECT_EQ(IsDlgButtonChecked(dialog, 1003), BST_CHECKED);
    EXPECT_EQ(IsDlgButtonChecked(dialog, 1005), BST_UNCHECKED);
    EXPECT_EQ(IsDlgButtonChecked(dialog, 1016), BST_CHECKED) << "outside the range: untouched";
    CheckDlgButton(dialog, 1026, BST_INDETERMINATE);
    EXPECT_EQ(IsDlgButtonChecked(dialog, 1026), BST_CHECKED) << "a two-state box has no third state";
    EXPECT_EQ(IsDlgButtonChecked(dialog, IDOK), BST_UNCHECKED);
    SendDlgItemMessageW(dialog, 1016, BM_CLICK, 0, 0);
    SendDlgItemMessageW(dialog, 1017, BM_CLICK, 0, 0);
    EXPECT_EQ(IsDlgButtonChecked(dialog, 1016), BST_UNCHECKED);
    EXPECT_EQ(IsDlgButtonChecked(dialog, 1017), BST_CHECKED);
    EXPECT_EQ(CheckDlgButton(dialog, 4711, BST_CHECKED), 0);
    EXPECT_EQ(clicked, (std::vector<SeenCommand>{{1016, BN_CLICKED}, {1017, BN_CLICKED}}));
    DestroyWindow(dialog);
}

TEST_F(ButtonControl, GroupBoxesCannotBeClicked) {
    queue("dialog 300: click 1050");
    runDialog(module, 300, procedure);
    EXPECT_NE(report().find("button 1050 cannot be clicked"), std::string::npos) << report();
}

} // namespace
