// The dialog base: one description answers a modal dialog (state from the creation
// parameter, translation, commands and notifications by control and code, OK with its
// acceptance, Cancel, a double click standing for a command) and a wizard page (state
// from the caller, the frame's entered and left messages, no OK/Cancel of its own).
#include "core/dialogs/dialog.h"
#include "resources/resource_test_support.h"
#include "window/window_test_support.h"

#include <string>
#include <vector>

namespace tabra::test {
namespace {

constexpr int32_t kDialog = 800, kPage = 801;
constexpr int32_t kList = 1005, kEdit = 1002, kOpen = 1043, kView = 1006, kOther = 1044;

struct Seen {
    bool accepts = true;
    std::vector<std::string> calls;
};

void initialise(HWND, Seen &seen) { seen.calls.push_back("initialise"); }
HWND focusEdit(HWND dialog, Seen &) { return GetDlgItem(dialog, kEdit); }
bool accept(HWND, Seen &seen) {
    seen.calls.push_back("accept");
    return seen.accepts;
}
void command(HWND, Seen &seen, int32_t control) { seen.calls.push_back("command " + std::to_string(control)); }
void notify(HWND, Seen &seen, const NMHDR &header) {
    seen.calls.push_back("notify " + std::to_string(header.idFrom) + " " + std::to_string(static_cast<int32_t>(header.code)));
}
void entered(HWND, Seen &seen) { seen.calls.push_back("entered"); }
dialogs::PageAnswer left(HWND, Seen &seen, dialogs::Leaving direction) {
    seen.calls.push_back(direction == dialogs::Leaving::Back ? "left back" : "left forward");
    return seen.accepts ? dialogs::PageAnswer::GoOn : dialogs::PageAnswer::Stay;
}
// Commands no row takes (focus changes aside: every control reports them); every other
// message keeps its default handling.
bool isFocusChange(WPARAM wParam) {
    const uint32_t code = GetWmCommandNotif(wParam);
    return code == EN_SETFOCUS || code == EN_KILLFOCUS || code == LBN_SETFOCUS || code == LBN_KILLFOCUS;
}
INT_PTR other(HWND, Seen &seen, uint32_t message, WPARAM wParam, LPARAM) {
    if (message != WM_COMMAND || isFocusChange(wParam)) return 0;
    seen.calls.push_back("other " + std::to_string(GetWmCommandId(wParam)));
    return 1;
}

constexpr dialogs::Command<Seen> kCommands[] = {
    {kList, LBN_SELCHANGE, command},
    {kEdit, EN_CHANGE, command},
    {kOpen, dialogs::kAnyNotification, command},
};
constexpr dialogs::Notification<Seen> kNotifications[] = {{kView, NM_RCLICK, notify}};
constexpr dialogs::Dialog<Seen> kSeen{.initialise = initialise,
                                      .initialFocus = focusEdit,
                                      .accept = accept,
                                      .commands = kCommands,
                                      .notifications = kNotifications,
                                      .doubleClick = {kView, kOpen},
                                      .entered = entered,
                                      .left = left,
                                      .otherMessage = other};

INT_PTR seenProcedure(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kSeen.answer(dialog, message, wParam, lParam);
}

class DialogBase : public ScriptedTest {
protected:
    DialogBase() {
        module.add(DialogBuilder(kDialog, u"Chooser")
                       .listBox(kList)
                       .edit(kEdit)
                       .button(kOpen, u"Open")
                       .button(kOther, u"Other")
                       .listView(kView)
                       .okCancel());
        module.add(DialogBuilder(kPage, u"Page").page().listBox(kList).button(kOpen, u"Open").okCancel());
    }
    TestModule module;
};

// What the dialog showed when it first waited for the user.
struct Opened {
    std::u16string caption;
    int32_t focus = 0;
    bool stateKept = false;
};

TEST_F(DialogBase, ModalDialogsAnswerTheirRowsThenOkAndCancel) {
    struct Case {
        std::vector<std::string> script;
        bool accepts;
        INT_PTR result;
        std::vector<std::string> calls; // after "initialise"
    };
    const Case cases[] = {
        {{"click 1043", "type 1002 \"a\"", "click 1"}, true, IDOK, {"command 1043", "other 1002", "command 1002", "accept"}},
        {{"click 1", "click 1044", "close"}, false, IDCANCEL, {"accept", "other 1044"}}, // typing sends EN_UPDATE first
        {{"select 1005 #1", "rightclick 1006 #0", "doubleclick 1006 #1", "click 2"}, true, IDCANCEL,
         {"command 1005", "notify 1006 " + std::to_string(NM_RCLICK), "command 1043"}},
    };
    ScopedTranslation translation(tabra::module::kTranslationModuleName, "\"Chooser\" = \"Auswahl\"\n");
    ASSERT_TRUE(translation.registered());
    for (const Case &c : cases) {
        Seen seen{c.accepts, {}};
        Opened opened;
        TabraScript_QueueCallback(kDialog, [](HWND dialog, void *context) {
            auto *seen = static_cast<Opened *>(context);
            *seen = {windowText(dialog), GetDlgCtrlID(GetFocus()), dialogs::stateOf<Seen>(dialog) != nullptr};
            Ostrel_FillBox(GetDlgItem(dialog, kList), u'\t', u"a\tb");
            for (const char16_t *item : {u"x", u"y"}) Ostrel_ListView_InsertItem(GetDlgItem(dialog, kView), -1, item, u'\t', 0);
        }, &opened);
        for (const std::string &action : c.script) queue("dialog " + std::to_string(kDialog) + ": " + action);
        EXPECT_EQ(DialogBoxParamW(module.handle(), kDialog, nullptr, seenProcedure, reinterpret_cast<LPARAM>(&seen)),
                  c.result) << report();
        std::vector<std::string> expected{"initialise"};
        expected.insert(expected.end(), c.calls.begin(), c.calls.end());
        EXPECT_EQ(seen.calls, expected);
        EXPECT_EQ(opened.caption, u"Auswahl") << "translated with the library's module name";
        EXPECT_EQ(opened.focus, kEdit) << "initialFocus chose the edit";
        EXPECT_TRUE(opened.stateKept);
        EXPECT_FALSE(TabraScript_Failed()) << report();
        TabraScript_Begin();
    }
    // Without a state nothing of the dialog runs, not even its translation.
    HWND stateless = CreateDialogParamW(module.handle(), kDialog, nullptr, seenProcedure, 0);
    EXPECT_EQ(windowText(stateless), u"Chooser");
    EXPECT_EQ(SendMessageW(stateless, WM_COMMAND, kOpen, 0), 0);
    DestroyWindow(stateless);
}

// A wizard page: the frame calls the wizard's page procedure, which finds the page's
// dialog by page id and hands it the wizard's state.
Seen *wizardState = nullptr;
constexpr dialogs::Page<Seen> kPages[] = {{kPage, &kSeen}};
INT_PTR pageProcedure(HWND page, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return dialogs::answerPage<Seen>(kPages, kPage, page, *wizardState, message, wParam, lParam);
}

TEST_F(DialogBase, WizardPagesAnswerTheFramesMessages) {
    Seen seen;
    wizardState = &seen;
    HWND page = CreateDialogParamW(module.handle(), kPage, nullptr, pageProcedure, 0);
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(dialogs::stateOf<Seen>(page), nullptr) << "the state is the wizard's, not the page's";
    struct Step {
        uint32_t message;
        WPARAM wParam;
        bool accepts;
        int32_t answer; // -1: no answer slot
        std::string call;
    };
    const Step steps[] = {
        {dialogs::kPageEntered, 0, true, -1, "entered"},
        {dialogs::kPageLeft, 2, true, 1, "left back"},
        {dialogs::kPageLeft, 1, false, 2, "left forward"},
        {WM_COMMAND, IDOK, false, -1, "other 1"}, // a page has no OK of its own
        {WM_COMMAND, kOpen, false, -1, "command 1043"},
    };
    for (const Step &step : steps) {
        seen.accepts = step.accepts;
        seen.calls.clear();
        int32_t answer = 1;
        LPARAM slot = step.answer >= 0 ? reinterpret_cast<LPARAM>(&answer) : 0;
        SendMessageW(page, step.message, step.wParam, slot);
        EXPECT_EQ(seen.calls, std::vector<std::string>{step.call});
        if (step.answer >= 0) {
            EXPECT_EQ(answer, step.answer) << step.call;
        }
    }
    EXPECT_TRUE(IsWindow(page));
    EXPECT_EQ(dialogs::answerPage<Seen>(kPages, kDialog, page, seen, dialogs::kPageEntered, 0, 0), 0) << "not a page";
    DestroyWindow(page);
    wizardState = nullptr;
}

} // namespace
} // namespace tabra::test
