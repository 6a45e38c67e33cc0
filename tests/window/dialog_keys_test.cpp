// The keys of a dialog, played by the scripted driver ("press tab"): Tab and Shift+Tab
// walk the tab stops in template order through the visible page and past the hidden
// one, wrapping round; Enter goes to a multi-line edit that wants it, else to the
// default button unless that is disabled; Escape cancels unless Cancel is disabled.
#include "window_test_support.h"

using namespace tabra::test;
using tabra::platform::ControlKind;

namespace {

constexpr int32_t kDialog = 610, kShownPage = 611, kHiddenPage = 612;
constexpr int32_t kName = 1001, kNote = 1002, kPageEdit = 1011, kHiddenEdit = 1021;

class DialogKeys : public ScriptedTest {
protected:
    DialogKeys() {
        uint32_t notify = BS_NOTIFY;
        module.add(DialogBuilder(kDialog, u"Keys")
                       .edit(kName)
                       .edit(kNote, ES_MULTILINE | ES_WANTRETURN)
                       .button(IDOK, u"OK", BS_DEFPUSHBUTTON | notify)
                       .button(IDCANCEL, u"Cancel", notify));
        module.add(DialogBuilder(kShownPage).page().edit(kPageEdit));
        module.add(DialogBuilder(kHiddenPage).page().edit(kHiddenEdit));
        procedure = [this](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
            if (message == WM_INITDIALOG && !GetParent(dialog)) {
                HWND shown = CreateDialogParamW(module.handle(), kShownPage, dialog, functionProcedure,
                                                reinterpret_cast<LPARAM>(&procedure));
                CreateDialogParamW(module.handle(), kHiddenPage, dialog, functionProcedure, reinterpret_cast<LPARAM>(&procedure));
                ShowWindow(shown, SW_SHOW);
                if (disabledButton) EnableWindow(GetDlgItem(dialog, disabledButton), FALSE);
            }
            if (message != WM_COMMAND) return message == WM_INITDIALOG;
            int32_t code = GetWmCommandNotif(wParam);
            if (code == EN_SETFOCUS || code == BN_SETFOCUS) focusPath.push_back(GetWmCommandId(wParam));
            if ((LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) && code == BN_CLICKED) {
                note = windowText(GetDlgItem(dialog, kNote));
                EndDialog(dialog, LOWORD(wParam));
            }
            return TRUE;
        };
    }

    TestModule module;
    Procedure procedure;
    int32_t disabledButton = 0;
    std::vector<int32_t> focusPath;
    std::u16string note;
};

TEST_F(DialogKeys, KeysActAsTheDialogManagerDoes) {
    struct Case {
        const char *what;
        std::vector<const char *> keys;
        int32_t disabledButton;
        std::vector<int32_t> focusPath; // the first tab stop, then where the keys went
        INT_PTR result;
        std::u16string note;
    };
    const Case cases[] = {
        {"Tab into the shown page and round", {"tab", "tab", "tab", "tab", "tab", "backtab", "escape"}, 0,
         {kName, kNote, IDOK, IDCANCEL, kPageEdit, kName, kPageEdit}, IDCANCEL, u""},
        {"Enter in a multi-line edit that wants it", {"tab", "enter", "enter", "escape"}, 0, {kName, kNote}, IDCANCEL,
         u"\r\n\r\n"},
        {"a disabled default button takes no Enter", {"enter", "escape"}, IDOK, {kName}, IDCANCEL, u""},
        {"a disabled Cancel takes no Escape", {"escape", "enter"}, IDCANCEL, {kName}, IDOK, u""},
    };
    for (const Case &test : cases) {
        SCOPED_TRACE(test.what);
        TabraScript_Begin();
        focusPath.clear();
        note = u"(not ended)";
        disabledButton = test.disabledButton;
        for (const char *key : test.keys) queue(std::string("dialog 610: press ") + key);
        EXPECT_EQ(runDialog(module, kDialog, procedure), test.result);
        EXPECT_FALSE(TabraScript_Failed()) << report();
        EXPECT_EQ(TabraScript_PendingCount(), 0) << "the last key ended the dialog";
        EXPECT_EQ(focusPath, test.focusPath);
        EXPECT_EQ(note, test.note);
    }
}

} // namespace
