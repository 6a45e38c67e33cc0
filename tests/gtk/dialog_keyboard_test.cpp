// The keyboard of a dialog on the GTK renderer, driven by key events sent through the
// display server: the first tab stop has the focus, Tab and Shift+Tab follow the
// template's order (not the screen's) past disabled controls and into a radio group at
// its checked button, Enter presses the default button (or the push button with the
// focus), Escape cancels, Alt with a label's "&" letter goes to its control, and a
// double click in the list does what Enter does there. Each control's focus
// notifications tell the way the focus went.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "window/window_test_support.h"

using namespace tabra::test;
using tabra::platform::ControlKind;
namespace automation = tabra::gtk::automation;

namespace {

constexpr int32_t kDialog = 700;
constexpr int32_t kName = 1001, kTables = 1002, kRemember = 1003, kLocal = 1004, kRemote = 1005, kDetails = 1006,
                  kLocked = 1007;

struct Key {
    unsigned value;
    GdkModifierType modifiers = static_cast<GdkModifierType>(0);
};
const Key kTab{GDK_KEY_Tab}, kBackTab{GDK_KEY_Tab, GDK_SHIFT_MASK}, kEnter{GDK_KEY_Return}, kEscape{GDK_KEY_Escape};
Key alt(unsigned letter) { return {letter, GDK_MOD1_MASK}; }

class GtkRendererKeyboard : public GtkRendererTest {
protected:
    GtkRendererKeyboard() {
        constexpr uint32_t tab = WS_TABSTOP, notify = BS_NOTIFY;
        DialogBuilder dialog(kDialog, u"Keyboard");
        // Details lies top right on screen but comes last in the template.
        dialog.size(230, 110)
            .label(u"&Name:").at(7, 9, 40, 8)
            .control(ControlKind::Edit, kName, u"", tab | ES_AUTOHSCROLL).at(50, 7, 100, 14)
            .label(u"&Tables:").at(7, 27, 40, 8)
            .control(ControlKind::ListBox, kTables, u"", tab | LBS_NOTIFY | WS_VSCROLL).at(50, 27, 100, 36)
            .control(ControlKind::Edit, kLocked, u"", tab | WS_DISABLED).at(50, 66, 100, 14)
            .control(ControlKind::CheckBox, kRemember, u"&Remember", tab | notify | BS_AUTOCHECKBOX).at(7, 84, 60, 10)
            .control(ControlKind::RadioButton, kLocal, u"&Local", tab | notify | WS_GROUP | BS_AUTORADIOBUTTON).at(70, 84, 40, 10)
            .control(ControlKind::RadioButton, kRemote, u"Re&mote", notify | BS_AUTORADIOBUTTON).at(112, 84, 40, 10)
            .button(IDOK, u"OK", BS_DEFPUSHBUTTON | notify).at(120, 94, 50, 14)
            .button(IDCANCEL, u"Cancel", notify).at(174, 94, 50, 14)
            .button(kDetails, u"&Details...", notify).at(174, 7, 50, 14);
        module.add(dialog);
        procedure = [this](HWND dialogHandle, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
            if (message == WM_INITDIALOG) {
                for (const char16_t *table : {u"Customers", u"Orders"})
                    SendDlgItemMessageW(dialogHandle, kTables, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(table));
                CheckRadioButton(dialogHandle, kLocal, kRemote, kRemote);
                return TRUE;
            }
            if (message != WM_COMMAND) return FALSE;
            int32_t code = GetWmCommandNotif(wParam);
            int32_t id = GetWmCommandId(wParam);
            if (code == EN_SETFOCUS || code == LBN_SETFOCUS || code == BN_SETFOCUS) focusPath.push_back(id);
            if (id == kTables && code == LBN_DBLCLK) PostWmCommand(dialogHandle, IDOK, BN_CLICKED); // as OK
            if ((id == IDOK || id == IDCANCEL || id == kDetails) && code == BN_CLICKED) {
                remembered = IsDlgButtonChecked(dialogHandle, kRemember) == BST_CHECKED;
                chosenTable = static_cast<int32_t>(SendDlgItemMessageW(dialogHandle, kTables, LB_GETCURSEL, 0, 0));
                EndDialog(dialogHandle, id);
            }
            return TRUE;
        };
    }

    TestModule module;
    Procedure procedure;
    std::vector<int32_t> focusPath;
    bool remembered = false;
    int32_t chosenTable = -2;
};

// The GTK focus is where the engine has it.
void expectFocusShown(GtkWidget *window, const std::string &when) {
    GtkWidget *focused = gtk_window_get_focus(GTK_WINDOW(window));
    EXPECT_EQ(focused, automation::widgetOf(GetFocus())) << when << ": GTK shows the focus elsewhere";
}

TEST_F(GtkRendererKeyboard, KeysMoveTheFocusAndEndTheDialogAsOnTheDesktop) {
    struct Case {
        const char *what;
        std::vector<Key> keys;
        std::vector<int32_t> focusPath; // the first tab stop, then where each key took the focus
        INT_PTR result;
        bool remembered;
    };
    const Case cases[] = {
        {"Tab follows the template", {kTab, kTab, kTab, kTab, kTab, kTab, kEscape},
         {kName, kTables, kRemember, kRemote, IDOK, IDCANCEL, kDetails}, IDCANCEL, false},
        {"Shift+Tab goes back round the end", {kBackTab, kBackTab, kEscape}, {kName, kDetails, IDCANCEL}, IDCANCEL, false},
        {"a label's letter goes to its control; Enter in the list presses OK", {alt('t'), kEnter}, {kName, kTables}, IDOK, false},
        {"Enter presses the push button with the focus", {kBackTab, kEnter}, {kName, kDetails}, kDetails, false},
        {"a check box's letter checks it", {alt('r'), kEnter}, {kName, kRemember}, IDOK, true},
        {"Escape cancels", {kEscape}, {kName}, IDCANCEL, false},
    };
    for (const Case &test : cases) {
        SCOPED_TRACE(test.what);
        focusPath.clear();
        onShown({[&](const automation::Shown &shown) {
            EXPECT_EQ(GetFocus(), GetDlgItem(shown.handle, kName)) << "the first tab stop has the focus";
            expectFocusShown(shown.window, "at the start");
            for (std::size_t i = 0; i + 1 < test.keys.size(); ++i)
                EXPECT_TRUE(automation::pressKey(shown.window, test.keys[i].value, test.keys[i].modifiers));
            GtkWidget *window = shown.window;
            later(150, [window, &test] {
                expectFocusShown(window, "before the last key");
                automation::pressKey(window, test.keys.back().value, test.keys.back().modifiers);
            });
        }});
        EXPECT_EQ(runDialog(module, kDialog, procedure), test.result);
        EXPECT_EQ(focusPath, test.focusPath);
        EXPECT_EQ(remembered, test.remembered);
    }
}

TEST_F(GtkRendererKeyboard, DoubleClickInTheListActsAsEnter) {
    onShown({[&](const automation::Shown &shown) {
        saveScreenshot(shown.window, "keyboard-dialog");
        clickRow(widgetOf(shown.handle, kTables), 1, 1);
        clickRow(widgetOf(shown.handle, kTables), 1, 1);
    }});
    EXPECT_EQ(runDialog(module, kDialog, procedure), IDOK);
    EXPECT_EQ(chosenTable, 1);
}

} // namespace

#endif
