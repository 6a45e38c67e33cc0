// Edit controls: text from the program and from the user, the user's text limit,
// read-only edits, change notifications, and the backspace rule (a backspace sent to
// an edit removes the character before the caret; the alias dialog's filter relies on
// it while the user types, tests/query/clause_lists_test.cpp).
#include "window_test_support.h"

using namespace tabra::test;

namespace {

class EditControl : public ScriptedTest {
protected:
    EditControl() {
        module.add(DialogBuilder(200, u"Edits")
                       .edit(1033)
                       .edit(1034, ES_MULTILINE | ES_WANTRETURN)
                       .edit(1035, ES_READONLY)
                       .edit(1036, ES_NUMBER)
                       .edit(1037, ES_UPPERCASE)
                       .okCancel());
        procedure = recordingProcedure(commands, {}, {}, [this](HWND dialog, int32_t id, int32_t notification) {
            if (onCommand) onCommand(dialog, id, notification);
        });
    }

    int countOf(int32_t id, int32_t notification) const {
        return static_cast<int>(std::count(commands.begin(), commands.end(), SeenCommand{id, notification}));
    }

    TestModule module;
    Procedure procedure;
    std::vector<SeenCommand> commands;
    std::function<void(HWND, int32_t, int32_t)> onCommand;
};

TEST_F(EditControl, ProgramTextIgnoresTheLimitButTypingStopsAtIt) {
    HWND dialog = createModeless(module, 200, procedure);
    HWND edit = GetDlgItem(dialog, 1033);
    SendMessageW(edit, EM_LIMITTEXT, 3, 0);
    EXPECT_EQ(SendMessageW(edit, EM_GETLIMITTEXT, 0, 0), 3);
    SetWindowTextW(edit, u"abcdef");
    EXPECT_EQ(windowText(edit), u"abcdef") << "the limit binds the user only, as in Win32";
    DestroyWindow(dialog);
    commands.clear();

    Procedure limited = [this](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        if (message == WM_INITDIALOG) SendDlgItemMessageW(dialog, 1033, EM_LIMITTEXT, 3, 0);
        return procedure(dialog, message, wParam, lParam);
    };
    queue("dialog 200: type 1033 \"abcdef\"", "dialog 200: set 1034 \"line 1\\r\\nline 2\"", "dialog 200: click 1");
    EXPECT_EQ(runScripted(module, 200, limited), IDOK);
    int32_t closed = TabraScript_FindRecord(TABRA_RECORD_DIALOG_CLOSED, 200, 0);
    char16_t text[32];
    TabraScript_GetRecordControlText(closed, 1033, text, 32);
    EXPECT_EQ(std::u16string(text), u"abc");
    EXPECT_EQ(countOf(1033, EN_CHANGE), 3) << "one EN_CHANGE per accepted character";
    EXPECT_EQ(countOf(1033, EN_MAXTEXT), 3) << "each refused character reports the full edit";
    TabraScript_GetRecordControlText(closed, 1034, text, 32);
    EXPECT_EQ(std::u16string(text), u"line 1\r\nline 2");
}

TEST_F(EditControl, ReadOnlyEditsRefuseTheUserNotTheProgram) {
    queue("dialog 200: set 1035 \"typed\"");
    EXPECT_EQ(runDialog(module, 200, procedure), IDCANCEL);
    EXPECT_NE(report().find("edit 1035 is read-only"), std::string::npos) << report();

    TabraScript_Begin();
    onCommand = [](HWND dialog, int32_t id, int32_t) {
        if (id == 9) {
            SetDlgItemTextW(dialog, 1035, u"from the program");
            SendDlgItemMessageW(dialog, 1035, EM_SETREADONLY, FALSE, 0);
        }
    };
    Procedure withButton = [this](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        if (message == WM_INITDIALOG) PostWmCommand(dialog, 9, 0);
        return procedure(dialog, message, wParam, lParam);
    };
    queue("dialog 200: expect 1035 \"from the program\"", "dialog 200: type 1035 \"!\"",
          "dialog 200: expect 1035 \"from the program!\"", "dialog 200: click 1");
    EXPECT_EQ(runScripted(module, 200, withButton), IDOK);
}

TEST_F(EditControl, SettingTextNotifiesSingleLineEditsOnly) {
    HWND dialog = createModeless(module, 200, procedure);
    commands.clear();
    SetDlgItemTextW(dialog, 1033, u"x");
    SetDlgItemTextW(dialog, 1034, u"y");
    EXPECT_EQ(countOf(1033, EN_CHANGE), 1);
    EXPECT_EQ(countOf(1034, EN_CHANGE), 0) << "as in Win32, WM_SETTEXT on a multi-line edit sends no EN_CHANGE";
    DestroyWindow(dialog);
}

TEST_F(EditControl, BackspaceTakesTheSelectionOrOneWholeCharacter) {
    HWND dialog = createModeless(module, 200, procedure);
    HWND edit = GetDlgItem(dialog, 1033);
    SetWindowTextW(edit, u"abcdef");
    SendMessageW(edit, EM_SETSEL, 3, 3);
    SendMessageW(edit, WM_CHAR, 8, 0);
    EXPECT_EQ(windowText(edit), u"abdef");
    SendMessageW(edit, EM_SETSEL, 1, 3);
    SendMessageW(edit, WM_CHAR, 8, 0);
    EXPECT_EQ(windowText(edit), u"aef");
    SendMessageW(edit, EM_SETSEL, 0, 0);
    SendMessageW(edit, WM_CHAR, 8, 0);
    EXPECT_EQ(windowText(edit), u"aef") << "nothing before the caret";
    SetWindowTextW(edit, u"x😀");
    SendMessageW(edit, EM_SETSEL, 0, -1);
    uint32_t start = 9, end = 9;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, 0u);
    EXPECT_EQ(end, 3u);
    SendMessageW(edit, EM_SETSEL, 3, 3);
    SendMessageW(edit, WM_CHAR, 8, 0);
    EXPECT_EQ(windowText(edit), u"x") << "a surrogate pair goes as one character";
    SendMessageW(edit, EM_SETSEL, 0, 1);
    SendMessageW(edit, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(u"yz"));
    EXPECT_EQ(windowText(edit), u"yz");
    DestroyWindow(dialog);
}

TEST_F(EditControl, DigitsOnlyAndUpperCaseFilterTyping) {
    queue("dialog 200: type 1036 \"1a2\"", "dialog 200: type 1037 \"abc\"", "dialog 200: expect 1036 \"12\"",
          "dialog 200: expect 1037 \"ABC\"", "dialog 200: click 1");
    EXPECT_EQ(runScripted(module, 200, procedure), IDOK);
    EXPECT_EQ(recordsOf(TABRA_RECORD_BEEP).size(), 1u) << "the letter was refused with a beep";
}

TEST_F(EditControl, EnterInASingleLineEditPressesTheDefaultButton) {
    queue("dialog 200: type 1033 \"done\\n\"");
    EXPECT_EQ(runScripted(module, 200, procedure), IDOK);
    EXPECT_EQ(countOf(IDOK, BN_CLICKED), 1);
}

} // namespace
