// The prompts besides dialogs: progress indicators with their abort button, popup
// menus, the file name dialog with its remembered name, notices, help, the wait
// cursor and beeps; all recorded by the scripted driver.
#include "ostrel_registry.h"
#include "support/scoped_environment.h"
#include "window_test_support.h"

#include <string>

using namespace tabra::test;

namespace {

class Prompts : public ScriptedTest {
protected:
    Prompts() {
        module.addString(2912, u"Text files|*.txt;*.csv|All files|*.*");
        module.addString(1804, u"Export to");
        module.addString(436, u"The statement ran.");
        module.add(DialogBuilder(700, u"Fields").listView(1002).okCancel());
        tabra::platform::MenuTemplate menu;
        menu.id = 115;
        tabra::platform::MenuItemTemplate popup;
        popup.text = u"Fields";
        popup.children = {{u"&Edit", 40004, false, {}}, {u"", 0, true, {}}, {u"Export", 40005, false, {}},
                          {u"Skip", 40006, false, {}}};
        menu.items.push_back(popup);
        module.addMenu(menu);
    }
    TestModule module;
};

TEST_F(Prompts, ProgressIsRecordedAndAbortedWhereTheScriptSays) {
    queue("progress: abort at 3");
    HWND progress = Ostrel_CreateProgressIndicatorExtended(nullptr, u"Export", u"Rows", 0, 5, 0);
    ASSERT_NE(progress, nullptr);
    int32_t rows = 0;
    for (int32_t r = 1; r <= 5; ++r) {
        Ostrel_UpdateProgressIndicator(progress, r);
        Ostrel_SetProgressIndicatorText(progress, (u"Row " + std::u16string(1, static_cast<char16_t>(u'0' + r))).c_str());
        ++rows;
        if (Ostrel_CheckProgressIndicatorAborted(progress)) break;
    }
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(Ostrel_CheckProgressIndicatorAborted(progress), 1) << "abort stays pressed";
    EXPECT_EQ(Ostrel_UpdateProgressIndicator(progress, 99), 1) << "positions are clamped, not refused";
    EXPECT_EQ(Ostrel_DestroyProgressIndicator(progress), 1);
    EXPECT_EQ(Ostrel_DestroyProgressIndicator(progress), 0);
    EXPECT_EQ(Ostrel_CheckProgressIndicatorAborted(progress), 0);
    EXPECT_FALSE(TabraScript_Failed()) << report();
    auto records = recordsOf(TABRA_RECORD_PROGRESS);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(std::u16string(records[0].caption), u"Export");
    EXPECT_EQ(records[0].minimum, 0);
    EXPECT_EQ(records[0].maximum, 5);
    EXPECT_EQ(records[0].value, 5) << "99 clamped to the maximum";
    EXPECT_EQ(records[0].count, 4);
    EXPECT_EQ(records[0].code, 1u) << "aborted";
    EXPECT_EQ(std::u16string(records[0].text), u"Row 3");
}

TEST_F(Prompts, AProgressIndicatorIsNoPromptButCanRefuseAnAbort) {
    HWND quiet = Ostrel_CreateProgressIndicator(nullptr, u"Counting", 0, 10);
    Ostrel_UpdateProgressIndicator(quiet, 10);
    EXPECT_EQ(Ostrel_CheckProgressIndicatorAborted(quiet), 0);
    EXPECT_FALSE(TabraScript_Failed()) << "running to the end needs no action";
    Ostrel_DestroyProgressIndicator(quiet);

    queue("progress: abort");
    HWND fixed = Ostrel_CreateProgressIndicatorExtended(nullptr, u"Fixed", nullptr, 0, 10, OSTREL_PROGRESS_NO_ABORT);
    Ostrel_UpdateProgressIndicator(fixed, 1);
    EXPECT_EQ(Ostrel_CheckProgressIndicatorAborted(fixed), 0);
    EXPECT_NE(report().find("has no abort button"), std::string::npos) << report();
    Ostrel_DestroyProgressIndicator(fixed);
    EXPECT_EQ(Ostrel_CreateProgressIndicator(nullptr, nullptr, 5, 1) != nullptr, true) << "a reversed range is one point";
}

TEST_F(Prompts, PopupMenusReturnTheChosenCommand) {
    HMENU menu = LoadMenuW(module.handle(), 115);
    ASSERT_NE(menu, nullptr);
    HMENU popup = GetSubMenu(menu, 0);
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(GetMenuItemCount(popup), 4);
    EXPECT_EQ(GetMenuItemID(popup, 2), 40005u);
    EXPECT_EQ(EnableMenuItem(popup, 40004, MF_BYCOMMAND | MF_GRAYED), MF_ENABLED);
    EXPECT_EQ(GetMenuState(menu, 40004, MF_BYCOMMAND) & MF_GRAYED, MF_GRAYED) << "found through the popup";
    EXPECT_EQ(EnableMenuItem(popup, 4711, MF_BYCOMMAND), 0xFFFFFFFFu);

    queue("menu 115: choose 40005", "menu: cancel");
    queue("menu: choose 40004"); // greyed: no user can choose it
    EXPECT_EQ(TrackPopupMenu(popup, TPM_RIGHTBUTTON | TPM_RETURNCMD, 10, 10, 0, nullptr, nullptr), 40005);
    EXPECT_EQ(TrackPopupMenu(popup, TPM_RETURNCMD, 0, 0, 0, nullptr, nullptr), 0);
    EXPECT_FALSE(TabraScript_Failed()) << report();
    EXPECT_EQ(TrackPopupMenu(popup, TPM_RETURNCMD, 0, 0, 0, nullptr, nullptr), 0);
    EXPECT_NE(report().find("menu 115 offers no enabled command 40004"), std::string::npos) << report();
    auto menus = recordsOf(TABRA_RECORD_MENU);
    ASSERT_EQ(menus.size(), 3u);
    EXPECT_EQ(menus[0].value, 40005);
    EXPECT_EQ(DestroyMenu(menu), 1);
    EXPECT_EQ(GetMenuItemCount(popup), -1) << "the popup went with its menu";
    EXPECT_EQ(LoadMenuW(module.handle(), 999), nullptr);
}

TEST_F(Prompts, AMenuWithoutReturnCommandPostsItToTheOwner) {
    std::vector<int32_t> commands;
    Procedure procedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        if (message == WM_NOTIFY && static_cast<int32_t>(reinterpret_cast<NMHDR *>(lParam)->code) == NM_RCLICK) {
            HMENU menu = LoadMenuW(module.handle(), 115);
            POINT at{};
            GetCursorPos(&at);
            TrackPopupMenu(GetSubMenu(menu, 0), TPM_RIGHTBUTTON, at.x, at.y, 0, dialog, nullptr);
            DestroyMenu(menu);
            return TRUE;
        }
        if (message == WM_COMMAND) {
            commands.push_back(LOWORD(wParam));
            if (LOWORD(wParam) == 40006) EndDialog(dialog, 40006);
        }
        return message == WM_COMMAND;
    };
    queue("dialog 700: rightclick 1002", "menu 115: choose 40006");
    EXPECT_EQ(runScripted(module, 700, procedure), 40006);
    EXPECT_EQ(commands, (std::vector<int32_t>{40006}));
}

class FileNameDialog : public Prompts {
protected:
    FileNameDialog() { writeWholeFile(existing, "x"); }
    int32_t ask(int32_t mode, char16_t *name, int32_t capacity) {
        return Ostrel_ExtendedFileNameDialog(nullptr, mode, module.handle(), 2912, 1804, HKEY_CURRENT_USER,
                                             u"Software\\Ostrel Software\\Tabra", u"Export", u"FileName", name, capacity);
    }
    ScopedRegistryRoot registry;
    std::string root = registry.path().string(), existing = root + "/orders.txt";
};

TEST_F(FileNameDialog, RemembersTheLastNameChosen) {
    queue("file: choose \"" + existing + "\"", "file: cancel");
    char16_t name[300] = u"";
    EXPECT_EQ(ask(OSTREL_FILE_SAVE, name, 300), 1);
    EXPECT_EQ(std::u16string(name), u16(existing));
    char16_t stored[300];
    Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, u"Software\\Ostrel Software\\Tabra", 0, u"Export", u"FileName", u"",
                                  stored, 300, 299);
    EXPECT_EQ(std::u16string(stored), u16(existing));

    char16_t again[300] = u"";
    EXPECT_EQ(ask(OSTREL_FILE_OPEN, again, 300), 0) << "cancelled";
    EXPECT_EQ(std::u16string(again), u"") << "a cancel leaves the buffer";
    EXPECT_FALSE(TabraScript_Failed()) << report();
    auto dialogs = recordsOf(TABRA_RECORD_FILE_DIALOG);
    ASSERT_EQ(dialogs.size(), 2u);
    EXPECT_EQ(dialogs[0].id, OSTREL_FILE_SAVE);
    EXPECT_EQ(std::u16string(dialogs[0].caption), u"Export to");
    EXPECT_EQ(std::u16string(dialogs[0].detail), u"Text files|*.txt;*.csv|All files|*.*");
    EXPECT_EQ(std::u16string(dialogs[1].text), u16(existing)) << "the remembered name is proposed";
    EXPECT_EQ(dialogs[1].value, 0);
}

TEST_F(FileNameDialog, OpenTakesOnlyExistingFilesAndNamesAreCut) {
    queue("file: choose \"" + root + "/missing.txt\"");
    char16_t name[300] = u"proposed.txt";
    EXPECT_EQ(ask(OSTREL_FILE_OPEN, name, 300), 0);
    EXPECT_EQ(std::u16string(name), u"proposed.txt");
    EXPECT_NE(report().find("the file does not exist"), std::string::npos) << report();

    TabraScript_Begin();
    queue("file: choose \"/a/long/name.txt\"");
    char16_t small[6] = u"";
    EXPECT_EQ(ask(OSTREL_FILE_SAVE, small, 6), 1);
    EXPECT_EQ(std::u16string(small), u"/a/lo");
    EXPECT_EQ(ask(3, small, 6), -1);
    EXPECT_EQ(ask(OSTREL_FILE_SAVE, nullptr, 6), -1);
}

TEST_F(Prompts, NoticesHelpCursorAndBeepsAreRecorded) {
    HWND notice = Ostrel_DisplayTempWind(module.handle(), 436, 10, 0xD2E6FA);
    ASSERT_NE(notice, nullptr);
    EXPECT_EQ(windowText(notice), u"The statement ran.");
    EXPECT_EQ(DestroyWindow(notice), 1);
    EXPECT_EQ(Ostrel_DisplayTempWind(module.handle(), 4711, 10, 0), nullptr) << "no such string";
    EXPECT_EQ(Ostrel_PerformHelp(nullptr, 10042, 0), 1);
    HCURSOR wait = LoadCursorW(nullptr, IDC_WAIT);
    ASSERT_NE(wait, nullptr);
    EXPECT_EQ(LoadCursorW(module.handle(), IDC_WAIT), nullptr) << "only the standard cursors";
    HCURSOR previous = SetCursor(wait);
    SetCursor(previous);
    MessageBeep(MB_SIMPLEBEEP);
    auto notices = recordsOf(TABRA_RECORD_NOTICE);
    ASSERT_EQ(notices.size(), 1u);
    EXPECT_EQ(notices[0].id, 436);
    EXPECT_EQ(notices[0].value, 10);
    EXPECT_EQ(notices[0].style, 0xD2E6FAu);
    EXPECT_EQ(recordsOf(TABRA_RECORD_HELP).at(0).id, 10042);
    auto cursors = recordsOf(TABRA_RECORD_CURSOR);
    ASSERT_GE(cursors.size(), 1u);
    EXPECT_EQ(cursors[0].id, IDC_WAIT);
    EXPECT_EQ(recordsOf(TABRA_RECORD_BEEP).size(), 1u);
    EXPECT_FALSE(TabraScript_Failed());
}

} // namespace
