// Modal loops of the GTK renderer: a dialog opened from a dialog procedure runs its
// own loop nested inside the outer one; input reaches the inner dialog only, the outer
// one answers again once the inner one ended, and both end with the results of the
// buttons the user pressed. Messages posted, and dialogs ended or destroyed, from
// outside any input (a host's timer) wake the loop.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "window/window_test_support.h"


using namespace tabra::test;
namespace automation = tabra::gtk::automation;

namespace {

constexpr int32_t kOuter = 300;
constexpr int32_t kInner = 301;
constexpr int32_t kOpenInner = 1001;
constexpr int32_t kNameEdit = 1002;

class GtkRendererModalLoop : public GtkRendererTest {
protected:
    GtkRendererModalLoop() {
        DialogBuilder outer(kOuter, u"Outer");
        outer.size(217, 101).label(u"The outer dialog opens the inner one.").at(7, 7, 200, 8)
            .button(kOpenInner, u"&Details...").at(7, 20, 60, 14)
            .okCancel(106, 80);
        DialogBuilder inner(kInner, u"Inner");
        inner.size(157, 51).label(u"&Name:").at(7, 9, 40, 8).edit(kNameEdit).at(50, 7, 100, 14).okCancel(46, 30);
        module.add(outer).add(inner);
    }

    TestModule module;
};

TEST_F(GtkRendererModalLoop, InnerDialogRunsNestedInsideTheOuterOne) {
    HWND outerDialog = nullptr, innerDialog = nullptr;
    HWND activeWhileInner = nullptr, activeAfterInner = nullptr;
    INT_PTR innerResult = 0;
    std::u16string typedName;
    int outerClicksWhileInner = 0;

    Procedure innerProcedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) innerDialog = dialog;
        if (message == WM_COMMAND && LOWORD(wParam) == IDOK) {
            activeWhileInner = GetActiveWindow();
            typedName = windowText(GetDlgItem(dialog, kNameEdit));
            EndDialog(dialog, 5);
        }
        return message == WM_INITDIALOG;
    };
    Procedure outerProcedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) outerDialog = dialog;
        if (message != WM_COMMAND) return message == WM_INITDIALOG;
        switch (LOWORD(wParam)) {
        case kOpenInner:
            if (innerDialog) { // the inner dialog is open: the outer one must not hear clicks
                ++outerClicksWhileInner;
                return TRUE;
            }
            innerResult = runDialog(module, kInner, innerProcedure, dialog);
            activeAfterInner = GetActiveWindow();
            innerDialog = nullptr;
            // The user goes on in the outer dialog once the inner one is gone.
            g_timeout_add(50, [](gpointer outer) -> gboolean {
                GtkWidget *ok = automation::widgetOf(GetDlgItem(static_cast<HWND>(outer), IDOK));
                automation::click(ok);
                return G_SOURCE_REMOVE;
            }, dialog);
            return TRUE;
        case IDOK: EndDialog(dialog, 1); return TRUE;
        case IDCANCEL: EndDialog(dialog, 2); return TRUE;
        default: return FALSE;
        }
    };

    onShown({[&](const automation::Shown &shown) {
                 EXPECT_EQ(shown.id, kOuter);
                 clickControl(shown.handle, kOpenInner);
             },
             [&](const automation::Shown &shown) {
                 EXPECT_EQ(shown.id, kInner);
                 GtkWindow *inner = GTK_WINDOW(shown.window);
                 EXPECT_TRUE(gtk_window_get_modal(inner));
                 EXPECT_EQ(GTK_WIDGET(gtk_window_get_transient_for(inner)), automation::widgetOf(outerDialog));
                 EXPECT_EQ(GetActiveWindow(), shown.handle);
                 // A click that reaches the outer dialog now must not be delivered.
                 clickControl(outerDialog, kOpenInner);
                 // Typing into the inner dialog's edit goes to the engine.
                 gtk_entry_set_text(GTK_ENTRY(widgetOf(shown.handle, kNameEdit)), "Ada Lovelace");
                 EXPECT_EQ(windowText(GetDlgItem(shown.handle, kNameEdit)), u"Ada Lovelace");
                 // Centred on its owner, with the owner's title: frame on frame, to a pixel.
                 GdkRectangle innerFrame{}, outerFrame{};
                 gdk_window_get_frame_extents(gtk_widget_get_window(shown.window), &innerFrame);
                 gdk_window_get_frame_extents(gtk_widget_get_window(automation::widgetOf(outerDialog)), &outerFrame);
                 EXPECT_NEAR(innerFrame.x + innerFrame.width / 2.0, outerFrame.x + outerFrame.width / 2.0, 1.0);
                 EXPECT_NEAR(innerFrame.y + innerFrame.height / 2.0, outerFrame.y + outerFrame.height / 2.0, 1.0);
                 EXPECT_STREQ(gtk_window_get_title(inner), "Inner");
                 saveScreenshot(automation::widgetOf(outerDialog), "nested-modal-dialogs"); // the inner one over it
                 clickControl(shown.handle, IDOK);
             }});
    INT_PTR outerResult = runDialog(module, kOuter, outerProcedure);

    EXPECT_EQ(outerResult, 1);
    EXPECT_EQ(innerResult, 5);
    EXPECT_EQ(typedName, u"Ada Lovelace");
    EXPECT_EQ(outerClicksWhileInner, 0);
    EXPECT_NE(activeWhileInner, nullptr);
    EXPECT_NE(activeWhileInner, outerDialog);
    EXPECT_EQ(activeAfterInner, outerDialog);
    EXPECT_EQ(GetActiveWindow(), nullptr);
    EXPECT_FALSE(IsWindow(outerDialog));
}

TEST_F(GtkRendererModalLoop, PostedMessageWakesTheLoopWithoutInput) {
    // A timer of the host posts a command while the dialog waits: the loop delivers it
    // and the dialog ends without any user input.
    Procedure procedure = [](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(dialog, 77);
        return message == WM_INITDIALOG || message == WM_COMMAND;
    };
    onShown({[](const automation::Shown &shown) {
        g_timeout_add(20, [](gpointer dialog) -> gboolean {
            PostWmCommand(static_cast<HWND>(dialog), IDCANCEL, BN_CLICKED);
            return G_SOURCE_REMOVE;
        }, shown.handle);
    }});
    EXPECT_EQ(runDialog(module, kInner, procedure), 77);
}

TEST_F(GtkRendererModalLoop, DialogEndedByAHostTimerStopsWaiting) {
    // A host whose own GLib timer ends the dialog (EndDialog, no message, no input) gets
    // DialogBoxParamW back at once, and one that destroys it gets 0.
    onShown({[](const automation::Shown &shown) {
                 g_timeout_add(20, [](gpointer dialog) -> gboolean {
                     EndDialog(static_cast<HWND>(dialog), 9);
                     return G_SOURCE_REMOVE;
                 }, shown.handle);
             },
             [](const automation::Shown &shown) {
                 g_timeout_add(20, [](gpointer dialog) -> gboolean {
                     DestroyWindow(static_cast<HWND>(dialog));
                     return G_SOURCE_REMOVE;
                 }, shown.handle);
             }});
    EXPECT_EQ(runDialog(module, kInner, plainProcedure()), 9);
    EXPECT_EQ(runDialog(module, kInner, plainProcedure()), 0);
    EXPECT_EQ(shownCount(), 2u);
}

} // namespace

#endif
