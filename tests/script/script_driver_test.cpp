// The scripted driver: actions meet their prompts, a run that meets the wrong prompt
// or runs dry fails at once and cleanly (never hangs), everything shown is recorded,
// and the script text is checked line by line.
#include "platform/script/script_parser.h"
#include "window/window_test_support.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>

using namespace tabra::test;
using tabra::window::parseScript;
using tabra::window::parseScriptLine;
using tabra::window::PromptKind;
using tabra::window::Verb;

namespace {

// A dialog that ends on OK and Cancel and keeps what its edits held.
class ScriptDriver : public ScriptedTest {
protected:
    ScriptDriver() {
        module.add(DialogBuilder(103, u"Data Source").listBox(1004).edit(1002).edit(1003, ES_PASSWORD).okCancel());
        module.add(DialogBuilder(104, u"Other").okCancel());
        module.addString(1702, u"Really?", MB_YESNOCANCEL | MB_ICONQUESTION);
        procedure = [this](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
            if (message == WM_INITDIALOG) Ostrel_FillBox(GetDlgItem(dialog, 1004), u'\t', u"Demo\tOrders\tStock");
            if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
                if (LOWORD(wParam) == IDOK && askFirst) {
                    OstrelMessageBoxRequest request{};
                    request.module = module.handle();
                    request.textId = 1702;
                    answer = Ostrel_Message_Box(&request);
                }
                EndDialog(dialog, LOWORD(wParam));
            }
            return message == WM_COMMAND;
        };
    }
    TestModule module;
    Procedure procedure;
    bool askFirst = false;
    int32_t answer = 0;
};

TEST_F(ScriptDriver, ActionsFillTheDialogAndTheClosingTextsAreRecorded) {
    queue("dialog 103: select 1004 \"orders\"", "dialog 103: set 1002 \"scott\"", "dialog 103: type 1003 \"tiger\"",
          "dialog 103: expect 1002 \"scott\"", "dialog 103: click 1");
    EXPECT_EQ(runScripted(module, 103, procedure), IDOK);
    int32_t closed = TabraScript_FindRecord(TABRA_RECORD_DIALOG_CLOSED, 103, 0);
    ASSERT_GE(closed, 0);
    TabraScriptRecord record{};
    ASSERT_EQ(TabraScript_GetRecord(closed, &record), 1);
    EXPECT_EQ(record.value, IDOK);
    EXPECT_EQ(std::u16string(record.text), u"Data Source");
    char16_t text[16];
    EXPECT_EQ(TabraScript_GetRecordControlText(closed, 1002, text, 16), 5);
    EXPECT_EQ(std::u16string(text), u"scott");
    EXPECT_EQ(TabraScript_GetRecordControlText(closed, 1003, text, 3), 2) << "cut like GetWindowTextW";
    EXPECT_EQ(std::u16string(text), u"ti");
    EXPECT_EQ(TabraScript_GetRecordControlText(closed, 4711, text, 16), -1);
    EXPECT_EQ(TabraScript_GetRecordControlText(0, 1002, text, 16), -1) << "record 0 is the opening, not a closing";
}

TEST_F(ScriptDriver, WrongPromptFailsAtOnceAndCancelsCleanly) {
    askFirst = true;
    queue("dialog 103: click 1");
    queue("dialog 104: click 1"); // the library shows message 1702 instead
    queue("message 1702: answer yes");
    EXPECT_EQ(runDialog(module, 103, procedure), IDOK);
    EXPECT_EQ(answer, IDCANCEL) << "a failed message box answers its cancel-like button";
    EXPECT_TRUE(TabraScript_Failed());
    EXPECT_EQ(TabraScript_PendingCount(), 2);
    std::string text = report();
    EXPECT_NE(text.find("FAILED"), std::string::npos) << text;
    EXPECT_NE(text.find("message 1702 \"Really?\" waits for the user, but the next action is \"dialog 104: click 1\""),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("Actions not used (2)"), std::string::npos) << text;
}

TEST_F(ScriptDriver, RunningDryEndsEveryLaterPromptWithItsCancelAnswer) {
    EXPECT_EQ(runDialog(module, 103, procedure), IDCANCEL) << "no action: the dialog ends with IDCANCEL";
    EXPECT_TRUE(TabraScript_Failed());
    OstrelMessageBoxRequest request{};
    request.module = module.handle();
    request.textId = 1702;
    EXPECT_EQ(Ostrel_Message_Box(&request), IDCANCEL);
    EXPECT_EQ(MessageBoxW(nullptr, u"x", nullptr, MB_YESNO), IDNO) << "no Cancel button: No";
    EXPECT_EQ(MessageBoxW(nullptr, u"x", nullptr, MB_OK), IDOK);
    auto failures = recordsOf(TABRA_RECORD_FAILURE);
    ASSERT_EQ(failures.size(), 4u);
    EXPECT_EQ(std::u16string(failures[0].text), u"dialog 103 \"Data Source\" waits for the user, but no action is left");
}

TEST_F(ScriptDriver, ActionsThatNoUserCouldDoFailTheRun) {
    Procedure disabling = [this](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        if (message == WM_INITDIALOG) EnableWindow(GetDlgItem(dialog, IDOK), FALSE);
        return procedure(dialog, message, wParam, lParam);
    };
    queue("dialog 103: click 1");
    EXPECT_EQ(runDialog(module, 103, disabling), IDCANCEL);
    auto failures = recordsOf(TABRA_RECORD_FAILURE);
    ASSERT_FALSE(failures.empty());
    EXPECT_EQ(std::u16string(failures[0].text), u"\"dialog 103: click 1\": button 1 is disabled");

    const struct {
        const char *line, *failure;
    } cases[] = {{"dialog 103: select 1004 \"Nowhere\"", "list box 1004 has no entry \"Nowhere\""},
                 {"dialog 103: click 4711", "has no control 4711"},
                 {"dialog 103: expect 1002 \"scott\"", "edit 1002 shows \"\", not \"scott\""}};
    for (const auto &c : cases) {
        TabraScript_Begin();
        queue(c.line);
        EXPECT_EQ(runDialog(module, 103, procedure), IDCANCEL) << c.line;
        EXPECT_NE(report().find(c.failure), std::string::npos) << report();
    }
}

TEST_F(ScriptDriver, CallbacksSeeTheDialogInTheMiddleOfTheRun) {
    struct Observed {
        int32_t entries = 0;
        std::u16string user;
    } observed;
    queue("dialog 103: set 1002 \"scott\"");
    TabraScript_QueueCallback(103, [](HWND dialog, void *context) {
        auto *seen = static_cast<Observed *>(context);
        seen->entries = Ostrel_GetBoxCount(GetDlgItem(dialog, 1004));
        seen->user = windowText(GetDlgItem(dialog, 1002));
        SetDlgItemTextW(dialog, 1003, u"set by the callback");
    }, &observed);
    queue("dialog 103: expect 1003 \"set by the callback\"", "dialog 103: click 2");
    EXPECT_EQ(runScripted(module, 103, procedure), IDCANCEL);
    EXPECT_EQ(observed.entries, 3);
    EXPECT_EQ(observed.user, u"scott");
}

TEST_F(ScriptDriver, ScriptFilesAreLoadedWholeOrNotAtAll) {
    const char *dir = std::getenv("TMPDIR");
    std::string path = std::string(dir ? dir : "/tmp") + "/tabra-script-" + std::to_string(getpid()) + ".txt";
    {
        std::ofstream file(path);
        file << "# a comment\n\ndialog 103: set 1002 \"a\\\"b\"\n  dialog 103: click 1\n";
    }
    EXPECT_EQ(TabraScript_LoadFile(path.c_str()), 2);
    EXPECT_EQ(runScripted(module, 103, procedure), IDOK);
    {
        std::ofstream file(path);
        file << "dialog 103: click 1\nmessage 1702: answer perhaps\n";
    }
    EXPECT_EQ(TabraScript_LoadFile(path.c_str()), -1);
    EXPECT_EQ(TabraScript_PendingCount(), 0) << "nothing of a faulty script is queued";
    char error[256];
    TabraScript_LastError(error, sizeof error);
    EXPECT_EQ(std::string(error), path + ":2: unknown answer \"perhaps\"");
    EXPECT_EQ(TabraScript_LoadFile("/nonexistent/script"), -1);
    std::remove(path.c_str());
}

// Every kind of action is read on its way through the tests that queue them; what
// those do not use: keywords in any case, the escapes, index and text entries mixed.
TEST(ScriptParser, ReadsKeywordsInAnyCaseAndEscapes) {
    auto set = parseScriptLine("Dialog 103: SET 1002 \"Ünïcode \\\"q\\\" \\\\ \\n\"");
    ASSERT_TRUE(set.action) << set.error;
    EXPECT_EQ(set.action->prompt, PromptKind::Dialog);
    EXPECT_EQ(set.action->promptId, 103);
    EXPECT_EQ(set.action->verb, Verb::Set);
    EXPECT_EQ(set.action->control, 1002);
    EXPECT_EQ(set.action->text, u"Ünïcode \"q\" \\ \n");
    auto select = parseScriptLine("dialog 7: select 1004 #0 \"b\" #12");
    ASSERT_TRUE(select.action) << select.error;
    ASSERT_EQ(select.action->entries.size(), 3u);
    EXPECT_TRUE(select.action->entries[0].byIndex);
    EXPECT_EQ(select.action->entries[1].text, u"b");
    EXPECT_EQ(select.action->entries[2].index, 12);
    EXPECT_EQ(parseScriptLine("message: answer No").action->answer, IDNO);
    EXPECT_TRUE(parseScriptLine("file: choose \"/tmp/a:b.txt\"").action) << "only the first colon ends the prompt";
    EXPECT_FALSE(parseScriptLine("   # comment").action);
    EXPECT_TRUE(parseScriptLine("   # comment").error.empty());
}

TEST(ScriptParser, RejectsMalformedLinesWithAReason) {
    struct Case {
        const char *line;
        const char *error;
    };
    const Case cases[] = {
        {"dialog: click 1", "a dialog prompt needs its template id"},
        {"window 3: click 1", "unknown prompt \"window\""},
        {"dialog 3 click 1", "expected \"prompt: action\""},
        {"dialog 3: push 1", "unknown dialog action \"push\""},
        {"dialog 3: set 1002", "expected a text in double quotes"},
        {"dialog 3: set 1002 \"open", "unterminated text"},
        {"dialog 3: click 1 2", "unexpected words at the end"},
        {"dialog 3: select 1004", "expected an entry (\"text\" or #index)"},
        {"dialog 3: select 1004 #x", "bad entry index #x"},
        {"file 3: cancel", "unexpected words in the prompt"},
        {"menu: choose", "expected a command id"},
        {"progress: abort soon", "expected \"at\""},
        {"dialog 3: set 1 \"\\q\"", "unknown escape \\q"},
        {"dialog 99999999999: close", "unexpected words in the prompt"},
        {"dialog 3: press space", "expected a key (tab, backtab, enter, escape)"},
        {"dialog 3: check 1002 #1 #2", "unexpected words at the end"},
    };
    for (const auto &c : cases) {
        auto parsed = parseScriptLine(c.line);
        EXPECT_FALSE(parsed.action) << c.line;
        EXPECT_EQ(parsed.error, c.error) << c.line;
    }
    auto script = parseScript("dialog 1: click 1\n\ndialog 1: clack 1\n", "s.txt");
    EXPECT_TRUE(script.actions.empty());
    EXPECT_EQ(script.error, "s.txt:3: unknown dialog action \"clack\"");
}

} // namespace
