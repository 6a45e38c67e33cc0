// The keys of a dialog, played by the scripted driver ("press tab"): Tab and Shift+Tab
// walk the tab stops in template order into the shown page and past the hidden one,
// wrapping round; Enter goes to a multi-line edit that wants it, else to the default
// button unless that is disabled; Escape cancels unless Cancel is disabled.
#include "window_test_support.h"

using namespace tabra::test;

namespace {

constexpr int32_t kName = 1001, kNote = 1002, kPageEdit = 1011;

TEST(DialogKeys, KeysActAsTheDialogManagerDoes) {
    TestModule module;
    module.add(DialogBuilder(610).edit(kName).edit(kNote, ES_MULTILINE | ES_WANTRETURN)
                   .button(IDOK, u"OK", BS_DEFPUSHBUTTON | BS_NOTIFY).button(IDCANCEL, u"Cancel", BS_NOTIFY));
    module.add(DialogBuilder(611).page().edit(kPageEdit)).add(DialogBuilder(612).page().edit(1021));
    struct Case {
        std::vector<const char *> keys;
        int32_t disabled;               // a button made disabled
        std::vector<int32_t> focusPath; // the first tab stop, then where the keys went
        INT_PTR result;
        std::u16string note;
    };
    const Case cases[] = {
        {{"tab", "tab", "tab", "tab", "tab", "backtab", "escape"}, 0,
         {kName, kNote, IDOK, IDCANCEL, kPageEdit, kName, kPageEdit}, IDCANCEL, u""},
        {{"tab", "enter", "enter", "escape"}, 0, {kName, kNote}, IDCANCEL, u"\r\n\r\n"},
        {{"enter", "escape"}, IDOK, {kName}, IDCANCEL, u""},
        {{"escape", "enter"}, IDCANCEL, {kName}, IDOK, u""},
    };
    for (const Case &test : cases) {
        ScriptedRun run;
        for (const char *key : test.keys) run.queue(std::string("dialog 610: press ") + key);
        std::vector<int32_t> focusPath;
        std::u16string note;
        Procedure procedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
            if (message == WM_INITDIALOG && !GetParent(dialog)) {
                ShowWindow(CreateDialogParamW(module.handle(), 611, dialog, functionProcedure,
                                              reinterpret_cast<LPARAM>(&procedure)), SW_SHOW);
                CreateDialogParamW(module.handle(), 612, dialog, functionProcedure, reinterpret_cast<LPARAM>(&procedure));
                if (test.disabled) EnableWindow(GetDlgItem(dialog, test.disabled), FALSE);
            }
            int32_t code = GetWmCommandNotif(wParam);
            if (message == WM_COMMAND && (code == EN_SETFOCUS || code == BN_SETFOCUS)) focusPath.push_back(LOWORD(wParam));
            if (message == WM_COMMAND && code == BN_CLICKED) {
                note = windowText(GetDlgItem(dialog, kNote));
                EndDialog(dialog, LOWORD(wParam));
            }
            return message == WM_INITDIALOG || message == WM_COMMAND;
        };
        EXPECT_EQ(runDialog(module, 610, procedure), test.result) << test.keys.size();
        EXPECT_EQ(TabraScript_PendingCount(), 0) << run.report();
        EXPECT_EQ(focusPath, test.focusPath);
        EXPECT_EQ(note, test.note);
    }
}

} // namespace
