// The prompts of the GTK renderer that are modal on their own, and the notice: a popup
// menu answers the command chosen (greyed items cannot be chosen, dismissing answers
// 0), the file chooser answers the file chosen (or nothing when cancelled), and a
// notice shows its text until the engine destroys it.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "ostrel_ui.h"
#include "platform/gtk/label_text.h"
#include "window/window_test_support.h"

#include <fstream>

using namespace tabra::test;
namespace automation = tabra::gtk::automation;

namespace {

constexpr int32_t kMenu = 500;
constexpr int32_t kOpen = 501, kRename = 502, kDelete = 503, kExport = 504;
constexpr int32_t kNoticeText = 600;

class GtkRendererPrompts : public GtkRendererTest {
protected:
    GtkRendererPrompts() {
        tabra::platform::MenuTemplate menu;
        menu.id = kMenu;
        tabra::platform::MenuItemTemplate popup;
        popup.text = u"Table";
        auto item = [](std::u16string text, int32_t id) {
            tabra::platform::MenuItemTemplate made;
            made.text = std::move(text);
            made.id = id;
            return made;
        };
        popup.children = {item(u"&Open", kOpen), item(u"&Rename...", kRename), {}, item(u"&Delete", kDelete)};
        popup.children[2].separator = true;
        tabra::platform::MenuItemTemplate more;
        more.text = u"&More";
        more.children = {item(u"&Export...", kExport)};
        popup.children.push_back(more);
        menu.items = {popup};
        module.addMenu(menu);
        module.addString(kNoticeText, u"The table was copied.");
    }

    // The menu item of a shown menu with this label (mnemonics as GTK writes them).
    static GtkWidget *menuItem(GtkWidget *menu, const std::string &label) {
        GtkWidget *found = nullptr;
        GList *items = gtk_container_get_children(GTK_CONTAINER(menu));
        for (GList *at = items; at && !found; at = at->next)
            if (GTK_IS_MENU_ITEM(at->data) && gtk_menu_item_get_label(GTK_MENU_ITEM(at->data)) &&
                label == gtk_menu_item_get_label(GTK_MENU_ITEM(at->data)))
                found = GTK_WIDGET(at->data);
        g_list_free(items);
        return found;
    }

    TestModule module;
};

TEST_F(GtkRendererPrompts, PopupMenuAnswersTheChosenCommand) {
    HMENU menu = LoadMenuW(module.handle(), kMenu);
    ASSERT_NE(menu, nullptr);
    HMENU popup = GetSubMenu(menu, 0);
    EnableMenuItem(popup, kDelete, MF_BYCOMMAND | MF_GRAYED);
    onShown({[&](const automation::Shown &shown) {
                 EXPECT_EQ(shown.kind, automation::ShownKind::PopupMenu);
                 EXPECT_EQ(shown.id, kMenu);
                 GtkWidget *remove = menuItem(shown.window, "_Delete");
                 ASSERT_NE(remove, nullptr);
                 EXPECT_FALSE(gtk_widget_get_sensitive(remove)) << "greyed";
                 GtkWidget *more = menuItem(shown.window, "_More");
                 ASSERT_NE(more, nullptr);
                 EXPECT_NE(gtk_menu_item_get_submenu(GTK_MENU_ITEM(more)), nullptr);
                 EXPECT_TRUE(automation::saveScreenImage(screenshotPath("popup-menu")));
                 // A click on the item, as GTK carries it out (synthetic button events do
                 // not activate menu items: GTK checks their timing).
                 gtk_menu_shell_activate_item(GTK_MENU_SHELL(shown.window), menuItem(shown.window, "_Rename..."), TRUE);
             },
             [&](const automation::Shown &shown) { gtk_menu_shell_cancel(GTK_MENU_SHELL(shown.window)); }});
    EXPECT_EQ(TrackPopupMenu(popup, TPM_RETURNCMD | TPM_RIGHTBUTTON, 100, 100, 0, nullptr, nullptr), kRename);
    EXPECT_EQ(TrackPopupMenu(popup, TPM_RETURNCMD, 100, 100, 0, nullptr, nullptr), 0) << "dismissed";
    EXPECT_EQ(shownCount(), 2u);
    DestroyMenu(menu);
}

TEST_F(GtkRendererPrompts, FileChooserAnswersTheFileChosen) {
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "tabra-gtk-chooser";
    std::filesystem::create_directories(folder);
    std::filesystem::path existing = folder / "orders.csv";
    std::ofstream(existing) << "id;total\n";
    module.addString(700, u"Text files|*.txt;*.csv|All files|*.*");
    module.addString(701, u"Export to");

    onShown({[&](const automation::Shown &shown) {
                 EXPECT_EQ(shown.kind, automation::ShownKind::FileChooser);
                 auto *chooser = GTK_FILE_CHOOSER(shown.window);
                 EXPECT_EQ(gtk_file_chooser_get_action(chooser), GTK_FILE_CHOOSER_ACTION_SAVE);
                 EXPECT_STREQ(gtk_window_get_title(GTK_WINDOW(shown.window)), "Export to");
                 GSList *filters = gtk_file_chooser_list_filters(chooser);
                 EXPECT_EQ(g_slist_length(filters), 2u);
                 g_slist_free(filters);
                 gchar *proposed = gtk_file_chooser_get_current_name(chooser);
                 EXPECT_STREQ(proposed, "report.csv");
                 g_free(proposed);
                 saveScreenshot(shown.window, "file-chooser-save");
                 gtk_file_chooser_set_current_name(chooser, "summary.csv");
                 gtk_dialog_response(GTK_DIALOG(shown.window), GTK_RESPONSE_ACCEPT);
             },
             [&](const automation::Shown &shown) {
                 // The chooser selects a file once its folder is read: the user presses
                 // Open when the file shows as selected.
                 gtk_file_chooser_set_filename(GTK_FILE_CHOOSER(shown.window), existing.c_str());
                 g_timeout_add(50, [](gpointer chooser) -> gboolean {
                     gchar *selected = gtk_file_chooser_get_filename(GTK_FILE_CHOOSER(chooser));
                     if (!selected) return G_SOURCE_CONTINUE;
                     g_free(selected);
                     gtk_dialog_response(GTK_DIALOG(chooser), GTK_RESPONSE_ACCEPT);
                     return G_SOURCE_REMOVE;
                 }, shown.window);
             },
             [&](const automation::Shown &shown) { gtk_dialog_response(GTK_DIALOG(shown.window), GTK_RESPONSE_CANCEL); }});

    std::u16string proposed = tabra::gtk::utf16((folder / "report.csv").c_str());
    char16_t name[512] = {};
    std::copy(proposed.begin(), proposed.end(), name);
    EXPECT_EQ(Ostrel_ExtendedFileNameDialog(nullptr, OSTREL_FILE_SAVE, module.handle(), 700, 701, nullptr, nullptr,
                                            nullptr, nullptr, name, 512),
              1);
    EXPECT_EQ(std::u16string(name), tabra::gtk::utf16((folder / "summary.csv").c_str()));

    name[0] = u'\0';
    EXPECT_EQ(Ostrel_ExtendedFileNameDialog(nullptr, OSTREL_FILE_OPEN, module.handle(), 700, 0, nullptr, nullptr,
                                            nullptr, nullptr, name, 512),
              1);
    EXPECT_EQ(std::u16string(name), tabra::gtk::utf16(existing.c_str()));

    EXPECT_EQ(Ostrel_ExtendedFileNameDialog(nullptr, OSTREL_FILE_OPEN, module.handle(), 0, 0, nullptr, nullptr, nullptr,
                                            nullptr, name, 512),
              0);
    EXPECT_EQ(std::u16string(name), tabra::gtk::utf16(existing.c_str())) << "cancel leaves the name as it was";
    std::filesystem::remove_all(folder);
}

TEST_F(GtkRendererPrompts, NoticeShowsItsTextUntilDestroyed) {
    onShown({[&](const automation::Shown &shown) {
                 EXPECT_EQ(shown.kind, automation::ShownKind::Notice);
                 EXPECT_EQ(shown.id, kNoticeText);
                 saveScreenshot(shown.window, "notice");
             },
             [&](const automation::Shown &shown) { EXPECT_EQ(shown.kind, automation::ShownKind::Progress); }});
    HWND notice = Ostrel_DisplayTempWind(module.handle(), kNoticeText, 0, 0xD2E6FA);
    ASSERT_NE(notice, nullptr);
    GtkWidget *window = automation::widgetOf(notice);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(gtk_widget_get_mapped(window)) << "on screen when the call returns";
    EXPECT_STREQ(gtk_label_get_text(GTK_LABEL(gtk_bin_get_child(GTK_BIN(window)))), "The table was copied.");
    // The report comes once the loop is idle: a progress step lets it run.
    HWND progress = Ostrel_CreateProgressIndicatorExtended(nullptr, u"Copy", u"", 0, 1, OSTREL_PROGRESS_NO_ABORT);
    Ostrel_DestroyProgressIndicator(progress);
    EXPECT_EQ(shownCount(), 2u);
    EXPECT_EQ(DestroyWindow(notice), 1);
    EXPECT_EQ(automation::widgetOf(notice), nullptr);
}

TEST_F(GtkRendererPrompts, TimedNoticeGoesAwayWhileADialogWaits) {
    DialogBuilder dialog(510, u"Waiting");
    dialog.okCancel();
    module.add(dialog);
    struct Watch {
        HWND notice = nullptr;
        bool goneWhileWaiting = false;
    } watch;
    onShown({[&](const automation::Shown &shown) { EXPECT_EQ(shown.kind, automation::ShownKind::Notice); },
             [&](const automation::Shown &shown) {
                 // The dialog waits; its loop wakes by itself when the notice's second is up.
                 g_timeout_add(1500, [](gpointer data) -> gboolean {
                     auto *seen = static_cast<Watch *>(data);
                     seen->goneWhileWaiting = !IsWindow(seen->notice);
                     return G_SOURCE_REMOVE;
                 }, &watch);
                 g_timeout_add(1600, [](gpointer dialogHandle) -> gboolean {
                     PostWmCommand(static_cast<HWND>(dialogHandle), IDCANCEL, BN_CLICKED);
                     return G_SOURCE_REMOVE;
                 }, shown.handle);
             }});
    watch.notice = Ostrel_DisplayTempWind(module.handle(), kNoticeText, 1, 0xFFFFFF);
    ASSERT_NE(watch.notice, nullptr);
    Procedure procedure = [](HWND dialogHandle, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(dialogHandle, IDCANCEL);
        return message == WM_INITDIALOG || message == WM_COMMAND;
    };
    EXPECT_EQ(runDialog(module, 510, procedure), IDCANCEL);
    EXPECT_TRUE(watch.goneWhileWaiting) << "the notice stayed while the dialog waited";
    EXPECT_EQ(automation::widgetOf(watch.notice), nullptr);
}

} // namespace

#endif
