// The window object model through the Win32-style calls: identifiers, texts with
// bounded buffers, numbers, enabled and visible states, the user-data slots, the walk
// over a dialog's children, and stale handles that fail quietly.
#include "window_test_support.h"

using namespace tabra::test;

namespace {

class WindowApi : public ScriptedTest {
protected:
    void SetUp() override {
        ScriptedTest::SetUp();
        module.add(DialogBuilder(900, u"Window").label(u"Label").edit(1002).button(1003, u"Press").okCancel());
        dialog = createModeless(module, 900, plainProcedure());
        ASSERT_NE(dialog, nullptr);
    }
    void TearDown() override {
        DestroyWindow(dialog);
        ScriptedTest::TearDown();
    }
    TestModule module;
    HWND dialog = nullptr;
};

TEST_F(WindowApi, IdentifiersTextsAndBoundedBuffers) {
    HWND edit = GetDlgItem(dialog, 1002);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(GetDlgCtrlID(edit), 1002);
    EXPECT_EQ(GetParent(edit), dialog);
    EXPECT_EQ(GetDlgItem(dialog, 4711), nullptr);
    EXPECT_EQ(windowText(dialog), u"Window");
    EXPECT_EQ(SetWindowTextW(dialog, u"Renamed"), 1);
    EXPECT_EQ(windowText(dialog), u"Renamed");

    EXPECT_EQ(SetDlgItemTextW(dialog, 1002, u"a😀b"), 1);
    EXPECT_EQ(GetWindowTextLengthW(edit), 4);
    char16_t buffer[4] = {u'x', u'x', u'x', u'x'};
    EXPECT_EQ(GetDlgItemTextW(dialog, 1002, buffer, 3), 1) << "a surrogate pair is never cut in half";
    EXPECT_EQ(std::u16string(buffer), u"a");
    EXPECT_EQ(GetDlgItemTextW(dialog, 1002, buffer, 1), 0);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(GetDlgItemTextW(dialog, 1002, buffer, 0), 0);
    EXPECT_EQ(SetWindowTextW(edit, nullptr), 1);
    EXPECT_EQ(GetWindowTextLengthW(edit), 0);
}

TEST_F(WindowApi, NumbersInControls) {
    int32_t translated = -1;
    SetDlgItemInt(dialog, 1002, static_cast<uint32_t>(-42), TRUE);
    EXPECT_EQ(windowText(GetDlgItem(dialog, 1002)), u"-42");
    EXPECT_EQ(static_cast<int32_t>(GetDlgItemInt(dialog, 1002, &translated, TRUE)), -42);
    EXPECT_EQ(translated, 1);
    EXPECT_EQ(GetDlgItemInt(dialog, 1002, &translated, FALSE), 0u) << "unsigned takes no sign";
    EXPECT_EQ(translated, 0);
    SetDlgItemTextW(dialog, 1002, u"  80 ");
    EXPECT_EQ(GetDlgItemInt(dialog, 1002, &translated, FALSE), 80u);
    EXPECT_EQ(translated, 1);
    for (const char16_t *bad : {u"", u"12a", u"4294967296", u"1 2", u"٣"}) {
        SetDlgItemTextW(dialog, 1002, bad);
        EXPECT_EQ(GetDlgItemInt(dialog, 1002, &translated, FALSE), 0u);
        EXPECT_EQ(translated, 0) << tabra::test::toUtf8(bad);
    }
    SetDlgItemInt(dialog, 1002, 4294967295u, FALSE);
    EXPECT_EQ(GetDlgItemInt(dialog, 1002, nullptr, FALSE), 4294967295u);
}

TEST_F(WindowApi, EnabledAndVisibleStates) {
    HWND button = GetDlgItem(dialog, 1003);
    EXPECT_EQ(EnableWindow(button, FALSE), 0) << "was enabled";
    EXPECT_EQ(EnableWindow(button, FALSE), 1) << "was disabled";
    EXPECT_EQ(IsWindowEnabled(button), 0);
    EXPECT_EQ(EnableWindow(button, TRUE), 1);
    EXPECT_EQ(IsWindowVisible(button), 0) << "its dialog is hidden (no WS_VISIBLE)";
    EXPECT_EQ(ShowWindow(dialog, SW_SHOW), 0);
    EXPECT_EQ(IsWindowVisible(button), 1);
    EXPECT_EQ(ShowWindow(button, SW_HIDE), 1);
    EXPECT_EQ(IsWindowVisible(button), 0);
}

TEST_F(WindowApi, UserSlotsHoldPointers) {
    int value = 0;
    auto pointer = reinterpret_cast<LONG_PTR>(&value);
    EXPECT_EQ(SetWindowLongW(dialog, DWLP_USER, pointer), 0);
    EXPECT_EQ(GetWindowLongPtrW(dialog, DWLP_USER), pointer) << "index 8 is one slot for both families";
    EXPECT_EQ(GetWindowLongW(dialog, 8), pointer);
    HWND edit = GetDlgItem(dialog, 1002);
    EXPECT_EQ(SetWindowLongPtrW(edit, DWLP_USER, pointer), 0) << "a control has no dialog slots";
    EXPECT_EQ(SetWindowLongPtrW(edit, GWLP_USERDATA, pointer), 0);
    EXPECT_EQ(GetWindowLongPtrW(edit, GWLP_USERDATA), pointer);
    EXPECT_EQ(GetWindowLongPtrW(edit, GWLP_ID), 1002);
    EXPECT_EQ(GetWindowLongPtrW(edit, GWLP_HWNDPARENT), reinterpret_cast<LONG_PTR>(dialog));
    EXPECT_EQ(GetWindowLongPtrW(dialog, 12345), 0);
}

TEST_F(WindowApi, WalkingTheChildren) {
    std::vector<int32_t> walked;
    EnumChildWindows(dialog, [](HWND child, LPARAM list) -> int32_t {
        reinterpret_cast<std::vector<int32_t> *>(list)->push_back(GetDlgCtrlID(child));
        return 1;
    }, reinterpret_cast<LPARAM>(&walked));
    EXPECT_EQ(walked, (std::vector<int32_t>{-1, 1002, 1003, IDOK, IDCANCEL}));

    walked.clear();
    EnumChildWindows(dialog, [](HWND child, LPARAM list) -> int32_t {
        reinterpret_cast<std::vector<int32_t> *>(list)->push_back(GetDlgCtrlID(child));
        return GetDlgCtrlID(child) != 1002;
    }, reinterpret_cast<LPARAM>(&walked));
    EXPECT_EQ(walked, (std::vector<int32_t>{-1, 1002})) << "a zero answer stops the walk";

    std::vector<int32_t> chain;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        chain.push_back(GetDlgCtrlID(child));
    EXPECT_EQ(chain, (std::vector<int32_t>{-1, 1002, 1003, IDOK, IDCANCEL}));
    HWND last = GetWindow(GetDlgItem(dialog, 1002), GW_HWNDLAST);
    EXPECT_EQ(GetDlgCtrlID(last), IDCANCEL);
    EXPECT_EQ(GetWindow(GetWindow(dialog, GW_CHILD), GW_HWNDPREV), nullptr);
    EXPECT_EQ(EnumChildWindows(dialog, nullptr, 0), 0);
}

TEST_F(WindowApi, StaleHandlesFailQuietly) {
    HWND edit = GetDlgItem(dialog, 1002);
    HWND other = createModeless(module, 900, plainProcedure());
    HWND otherEdit = GetDlgItem(other, 1002);
    EXPECT_EQ(DestroyWindow(other), 1);
    EXPECT_EQ(DestroyWindow(other), 0);
    for (HWND stale : {other, otherEdit}) {
        EXPECT_EQ(IsWindow(stale), 0);
        EXPECT_EQ(SendMessageW(stale, WM_GETTEXTLENGTH, 0, 0), 0);
        EXPECT_EQ(PostMessageW(stale, WM_USER, 0, 0), 0);
        EXPECT_EQ(SetWindowTextW(stale, u"x"), 0);
        char16_t buffer[8] = {u'x'};
        EXPECT_EQ(GetWindowTextW(stale, buffer, 8), 0);
        EXPECT_EQ(buffer[0], 0);
        EXPECT_EQ(EnableWindow(stale, TRUE), 0);
        EXPECT_EQ(SetFocus(stale), nullptr);
        EXPECT_EQ(GetParent(stale), nullptr);
        EXPECT_EQ(SetWindowLongPtrW(stale, GWLP_USERDATA, 1), 0);
        EXPECT_EQ(EndDialog(stale, 1), 0);
    }
    int notAWindow = 0;
    EXPECT_EQ(IsWindow(&notAWindow), 0);
    EXPECT_EQ(IsWindow(reinterpret_cast<HWND>(static_cast<uintptr_t>(1))), 0);
    EXPECT_EQ(IsWindow(nullptr), 0);
    EXPECT_EQ(IsWindow(edit), 1) << "the other dialog is unaffected";
    EXPECT_NE(edit, otherEdit);
}

} // namespace
