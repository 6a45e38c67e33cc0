// Modal dialogs: creation from templates, WM_INITDIALOG with its parameter and the
// focus rule, results, nesting (dialog -> message box -> dialog), the order of posted
// messages, and the failures for missing templates and modules.
#include "window_test_support.h"

using namespace tabra::test;

namespace {

class ModalDialog : public ScriptedTest {
protected:
    ModalDialog() {
        module.add(DialogBuilder(100, u"First").label(u"Name:").edit(1002).edit(1003).okCancel());
        module.add(DialogBuilder(101, u"Second").edit(1002).okCancel());
        module.addString(1702, u"Delete %1?", MB_YESNO | MB_ICONQUESTION);
    }
    TestModule module;
};

TEST_F(ModalDialog, MissingTemplateOrModuleFailsWithMinusOne) {
    EXPECT_EQ(runDialog(module, 999, plainProcedure()), -1);
    EXPECT_EQ(DialogBoxParamW(nullptr, 100, nullptr, functionProcedure, 0), -1);
    int notAModule = 0;
    EXPECT_EQ(DialogBoxParamW(&notAModule, 100, nullptr, functionProcedure, 0), -1);
    EXPECT_EQ(CreateDialogParamW(module.handle(), 999, nullptr, functionProcedure, 0), nullptr);
    EXPECT_FALSE(TabraScript_Failed()) << "nothing was shown, so nothing could fail";
    EXPECT_EQ(TabraScript_RecordCount(), 0);
}

TEST_F(ModalDialog, InitDialogGetsTheParameterAndTheResultComesFromEndDialog) {
    LPARAM seenParameter = 0;
    HWND seenFirstFocus = nullptr;
    Procedure procedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        if (message == WM_INITDIALOG) {
            seenParameter = lParam;
            seenFirstFocus = reinterpret_cast<HWND>(wParam);
            return TRUE;
        }
        if (message == WM_COMMAND && LOWORD(wParam) == IDOK) EndDialog(dialog, 42);
        return message == WM_COMMAND;
    };
    queue("dialog 100: click 1");
    EXPECT_EQ(runDialog(module, 100, procedure), 42);
    EXPECT_EQ(seenParameter, reinterpret_cast<LPARAM>(&procedure));
    EXPECT_NE(seenFirstFocus, nullptr) << "the first tab-stop control is offered the focus";
    EXPECT_FALSE(TabraScript_Failed()) << report();
    EXPECT_EQ(TabraScript_PendingCount(), 0);
}

TEST_F(ModalDialog, FocusFollowsTheInitDialogAnswer) {
    // TRUE gives the focus to the first tab stop; FALSE keeps it where the procedure put it.
    for (bool takesDefault : {true, false}) {
        HWND focusWhileOpen = nullptr, expected = nullptr;
        Procedure procedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
            if (message == WM_INITDIALOG) {
                expected = GetDlgItem(dialog, takesDefault ? 1002 : 1003);
                if (!takesDefault) SetFocus(expected);
                return takesDefault;
            }
            if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(dialog, IDCANCEL);
            return 0;
        };
        TabraScript_QueueCallback(100, [](HWND, void *focus) { *static_cast<HWND *>(focus) = GetFocus(); }, &focusWhileOpen);
        queue("dialog 100: close");
        EXPECT_EQ(runDialog(module, 100, procedure), IDCANCEL);
        EXPECT_EQ(focusWhileOpen, expected) << takesDefault;
    }
    EXPECT_FALSE(TabraScript_Failed()) << report();
    EXPECT_EQ(GetFocus(), nullptr) << "no dialog is active any more";
}

TEST_F(ModalDialog, TheCloseBoxActsAsCancelAndDefaultButtonIsReported) {
    LRESULT defaultId = 0;
    Procedure procedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) defaultId = SendMessageW(dialog, DM_GETDEFID, 0, 0);
        if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(dialog, IDCANCEL);
        return message == WM_COMMAND;
    };
    queue("dialog 100: close");
    EXPECT_EQ(runDialog(module, 100, procedure), IDCANCEL);
    EXPECT_EQ(LOWORD(defaultId), IDOK);
    EXPECT_EQ(HIWORD(defaultId), DC_HASDEFID);
}

TEST_F(ModalDialog, NestedDialogMessageBoxDialog) {
    // The outer dialog asks a question; on Yes it opens a second dialog, owned by it,
    // whose edit the script fills; the outer dialog ends with the inner one's result.
    std::u16string innerText;
    Procedure inner = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_COMMAND && LOWORD(wParam) == IDOK) {
            innerText = windowText(GetDlgItem(dialog, 1002));
            EndDialog(dialog, 7);
        }
        return message == WM_COMMAND;
    };
    HWND outerHandle = nullptr;
    Procedure outer = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) outerHandle = dialog;
        if (message == WM_COMMAND && LOWORD(wParam) == IDOK) {
            OstrelMessageBoxRequest request{};
            request.module = module.handle();
            request.textId = 1702;
            request.insert1 = u"Orders";
            if (Ostrel_Message_Box(&request) == IDYES) EndDialog(dialog, runDialog(module, 101, inner, dialog));
        }
        return message == WM_COMMAND;
    };
    struct Seen {
        HWND active = nullptr, owner = nullptr;
    } seen;
    queue("dialog 100: click 1", "message 1702: answer yes");
    TabraScript_QueueCallback(101, [](HWND dialog, void *context) {
        auto *out = static_cast<Seen *>(context);
        out->active = GetActiveWindow();
        out->owner = GetParent(dialog);
    }, &seen);
    queue("dialog 101: set 1002 \"Müller\"", "dialog 101: click 1");
    EXPECT_EQ(runDialog(module, 100, outer), 7);
    EXPECT_EQ(innerText, u"Müller");
    EXPECT_EQ(seen.owner, outerHandle);
    EXPECT_NE(seen.active, outerHandle) << "the inner dialog is the active one";
    EXPECT_NE(seen.active, nullptr);
    EXPECT_FALSE(TabraScript_Failed()) << report();
    auto messages = recordsOf(TABRA_RECORD_MESSAGE);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(std::u16string(messages[0].text), u"Delete Orders?");
    EXPECT_EQ(messages[0].value, IDYES);
    auto opened = recordsOf(TABRA_RECORD_DIALOG_OPENED);
    ASSERT_EQ(opened.size(), 2u);
    EXPECT_EQ(opened[0].id, 100);
    EXPECT_EQ(opened[1].id, 101);
}

TEST_F(ModalDialog, PostedCommandsAreDeliveredInOrderBeforeInput) {
    std::vector<SeenCommand> seen;
    Procedure procedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) {
            PostWmCommand(dialog, 1002, EN_CHANGE);
            PostMessageW(dialog, WM_USER + 1, 0, 0);
            PostWmCommand(dialog, 1003, 0);
            EXPECT_TRUE(seen.empty()) << "posting does not deliver";
            return TRUE;
        }
        if (message == WM_USER + 1) seen.push_back({-1, -1});
        if (message == WM_COMMAND) {
            seen.push_back({GetWmCommandId(wParam), GetWmCommandNotif(wParam)});
            if (LOWORD(wParam) == IDOK) EndDialog(dialog, 1);
        }
        return 1;
    };
    queue("dialog 100: click 1");
    EXPECT_EQ(runDialog(module, 100, procedure), 1);
    // The first focus is given (and told) while the dialog is made, before anything posted.
    std::vector<SeenCommand> expected{{1002, EN_SETFOCUS}, {1002, EN_CHANGE}, {-1, -1}, {1003, 0}};
    ASSERT_GE(seen.size(), expected.size());
    EXPECT_EQ(std::vector<SeenCommand>(seen.begin(), seen.begin() + 4), expected);
    EXPECT_EQ(seen.back(), (SeenCommand{IDOK, BN_CLICKED}));
}

TEST_F(ModalDialog, EndDialogDuringInitNeverShowsTheDialog) {
    Procedure procedure = [](HWND dialog, uint32_t message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) EndDialog(dialog, 5);
        return 0;
    };
    EXPECT_EQ(runDialog(module, 100, procedure), 5);
    EXPECT_EQ(TabraScript_RecordCount(), 0) << "nothing was shown: " << report();
    EXPECT_FALSE(TabraScript_Failed());
}

TEST_F(ModalDialog, DestroyingTheRunningDialogEndsItsLoop) {
    bool destroyedSeen = false;
    HWND saved = nullptr;
    Procedure procedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) saved = dialog;
        if (message == WM_DESTROY) destroyedSeen = true;
        if (message == WM_COMMAND && LOWORD(wParam) == IDOK) DestroyWindow(dialog);
        return 0;
    };
    queue("dialog 100: click 1");
    EXPECT_EQ(runDialog(module, 100, procedure), 0);
    EXPECT_TRUE(destroyedSeen);
    EXPECT_FALSE(IsWindow(saved));
}

} // namespace
