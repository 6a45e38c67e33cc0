// The contract between the engine and a renderer, as the GTK renderer relies on it:
// a window tree is announced once it is complete, every later change is reported with
// what changed and where, modal loops are bracketed, destruction is announced while
// the handle still works, and a renderer that can give no input ends the dialog.
#include "platform/window/renderer_selection.h"
#include "platform/window/user_input.h"
#include "platform/window/window_registry.h"
#include "window_test_support.h"

#include <deque>

using namespace tabra::test;
using tabra::window::Change;

namespace {

struct Event {
    std::string what;
    HWND window;
    int32_t index = -1;
    bool operator==(const Event &) const = default;
};

// Records what the engine tells it and plays queued inputs.
class RecordingRenderer : public tabra::window::Renderer {
public:
    std::vector<Event> events;
    std::deque<std::function<void(HWND)>> inputs;
    std::vector<int32_t> controlsAtCreation; // ids of the tree at windowCreated, pages included

    const char *name() const override { return "recording"; }
    void windowCreated(HWND root) override {
        events.push_back({"created", root});
        collect(root);
    }
    void windowChanged(HWND window, Change change, int32_t index) override {
        events.push_back({tabra::window::changeName(change), window, index});
    }
    void windowDestroying(HWND root) override {
        events.push_back({IsWindow(root) ? "destroying" : "destroying a stale handle", root});
    }
    void modalLoopStarted(HWND dialog) override { events.push_back({"loop started", dialog}); }
    bool waitForInput(HWND dialog) override {
        if (inputs.empty()) return false;
        auto input = std::move(inputs.front());
        inputs.pop_front();
        input(dialog);
        return true;
    }
    void modalLoopEnded(HWND dialog) override { events.push_back({"loop ended", dialog}); }
    void pumpPendingInput(HWND) override {}
    int32_t messageBox(const tabra::window::MessageBoxPrompt &) override { return IDOK; }
    int32_t popupMenu(const tabra::window::MenuPrompt &) override { return 0; }
    std::optional<std::u16string> fileName(const tabra::window::FileNamePrompt &) override { return std::nullopt; }
    void beep(uint32_t) override {}
    void cursorChanged(int32_t) override {}
    void helpRequested(HMODULE, int32_t) override {}
    void engineProblem(const std::string &) override {}

    std::vector<Event> named(const std::string &what) const {
        std::vector<Event> found;
        for (const auto &event : events)
            if (event.what == what) found.push_back(event);
        return found;
    }

private:
    void collect(HWND window) {
        for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            auto object = tabra::window::findWindow(child);
            EXPECT_TRUE(object && object->announced) << "every descendant is announced with its root";
            controlsAtCreation.push_back(GetDlgCtrlID(child));
            collect(child);
        }
    }
};

class RendererContract : public ::testing::Test {
protected:
    RendererContract() {
        module.add(DialogBuilder(104, u"Objects").tabControl(1004).listBox(1005).edit(1006).okCancel());
        module.add(DialogBuilder(105, u"Page").page().checkBox(1026));
        tabra::window::overrideRenderer(&renderer);
    }
    ~RendererContract() override { tabra::window::overrideRenderer(nullptr); }
    TestModule module;
    RecordingRenderer renderer;
};

TEST_F(RendererContract, TheTreeIsAnnouncedCompleteAndChangesFollow) {
    HWND dialogSeen = nullptr, list = nullptr, edit = nullptr, page = nullptr, ok = nullptr;
    Procedure procedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) {
            dialogSeen = dialog;
            list = GetDlgItem(dialog, 1005);
            edit = GetDlgItem(dialog, 1006);
            ok = GetDlgItem(dialog, IDOK);
            SetWindowTextW(edit, u"during init"); // not yet announced: no change event
            Ostrel_AddTabControlItem(GetDlgItem(dialog, 1004), -1, module.handle(), 105, nullptr, 0);
            page = Ostrel_GetTabControlPage(GetDlgItem(dialog, 1004), 0);
        }
        if (message == WM_COMMAND && LOWORD(wParam) == IDOK) EndDialog(dialog, IDOK);
        return message == WM_COMMAND;
    };
    renderer.inputs.push_back([&](HWND) {
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(u"Orders"));
        EnableWindow(edit, FALSE);
        Ostrel_ShowTabControlItem(GetDlgItem(dialogSeen, 1004), 0);
    });
    renderer.inputs.push_back([&](HWND) { EXPECT_EQ(tabra::window::input::replaceText(edit, u"typed"), "edit 1006 is disabled"); });
    renderer.inputs.push_back([&](HWND dialog) {
        auto refused = tabra::window::input::click(GetDlgItem(dialog, IDOK));
        EXPECT_FALSE(refused) << *refused;
    });
    // The handles are compared after the dialog is gone: they are never reused.
    EXPECT_EQ(runDialog(module, 104, procedure), IDOK);

    std::vector<Event> expected{
        {"created", dialogSeen},  {"loop started", dialogSeen}, {"entry inserted", list, 0},
        {"enabled", edit},        {"visible", page},            {"focus", ok},
        {"loop ended", dialogSeen}, {"destroying", dialogSeen},
    };
    EXPECT_EQ(renderer.events, expected);
    EXPECT_EQ(renderer.named("loop ended").size(), 1u);
    auto destroying = renderer.named("destroying");
    ASSERT_EQ(destroying.size(), 1u) << "once, for the topmost window";
    EXPECT_EQ(destroying[0].window, dialogSeen);
    EXPECT_EQ(renderer.controlsAtCreation, (std::vector<int32_t>{1004, 0, 1026, 1005, 1006, IDOK, IDCANCEL}))
        << "the page created during WM_INITDIALOG came with the tree";
    EXPECT_EQ(renderer.named("text").size(), 0u) << "changes before the announcement are part of the tree";
}

TEST_F(RendererContract, ARendererWithoutInputEndsTheDialogWithCancel) {
    Procedure procedure = [](HWND, uint32_t, WPARAM, LPARAM) -> INT_PTR { return 0; };
    EXPECT_EQ(runDialog(module, 104, procedure), IDCANCEL);
    EXPECT_EQ(renderer.named("loop ended").size(), 1u);
}

TEST_F(RendererContract, PagesAddedLaterAreAnnouncedOnTheirOwn) {
    HWND tab = nullptr, page = nullptr;
    Procedure procedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) tab = GetDlgItem(dialog, 1004);
        if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(dialog, IDCANCEL);
        return 0;
    };
    renderer.inputs.push_back([&](HWND) {
        Ostrel_AddTabControlItem(tab, -1, module.handle(), 105, nullptr, 0);
        page = Ostrel_GetTabControlPage(tab, 0);
        DestroyWindow(page);
    });
    renderer.inputs.push_back([&](HWND dialog) { tabra::window::input::closeDialog(dialog); });
    runDialog(module, 104, procedure);
    auto created = renderer.named("created");
    ASSERT_EQ(created.size(), 2u);
    EXPECT_EQ(created[1].window, page);
    auto destroying = renderer.named("destroying");
    ASSERT_EQ(destroying.size(), 2u);
    EXPECT_EQ(destroying[0].window, page) << "announced while the handle still works";
}

} // namespace
