// The wizard frame on the GTK renderer: the picture on the left, the page beside it
// with its controls on screen, the button row below; Next and Back switch the pages
// (what the user typed stays), Finish takes Next's place and the default on the last
// page, and a real click on Finish ends the wizard. Screenshots of the first and the
// last page are saved for a person to look at.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "ostrel_ui.h"
#include "ostrel_wizard.h"
#include "platform/resources/translation_table.h"

#include <map>

using namespace tabra::test;
namespace automation = tabra::gtk::automation;

namespace {

constexpr int32_t kPages[] = {10901, 10902, 10903, 10904, 0};

class GtkRendererWizardFrame : public GtkRendererTest {
protected:
    void SetUp() override {
        GtkRendererTest::SetUp();
        if (IsSkipped()) return;
        std::string error;
        auto loaded = tabra::platform::readResourceScriptFile(TABRA_TEST_SOURCE_DIR "/window/wizard_pages.rc", error);
        ASSERT_TRUE(loaded) << error;
        module_ = tabra::platform::adoptResourceModule(std::move(loaded));
    }
    void TearDown() override {
        tabra::platform::releaseResourceModule(module_);
        GtkRendererTest::TearDown();
    }

    static INT_PTR pageProcedure(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM, LPARAM) {
        auto &pages = *reinterpret_cast<std::map<int32_t, HWND> *>(Wizzard_GetParam(wizard));
        if (message == WM_INITDIALOG) {
            pages[pageId] = page;
            if (pageId == 10901) Ostrel_FillBox(GetDlgItem(page, 1005), u'\t', u"Orders\tCustomers\tProducts");
        }
        return 0;
    }

    // The page whose widgets GTK shows, by the visibility of every page's widget.
    int32_t pageOnScreen() const {
        int32_t found = 0;
        for (const auto &[id, page] : pages_)
            if (gtk_widget_is_visible(automation::widgetOf(page))) found = found ? -1 : id;
        return found;
    }

    static void press(HWND frame, int32_t id) { gtk_button_clicked(GTK_BUTTON(widgetOf(frame, id))); }

    HMODULE module_ = nullptr;
    std::map<int32_t, HWND> pages_;
};

TEST_F(GtkRendererWizardFrame, ShowsPictureAndPageAndSwitchesWithTheButtons) {
    onShown({[&](const automation::Shown &shown) {
        HWND frame = shown.handle;
        EXPECT_EQ(shown.id, 10020) << "the frame is dialog <picture id>";
        EXPECT_STREQ(gtk_window_get_title(GTK_WINDOW(shown.window)), "Delete Records");
        ASSERT_EQ(pageOnScreen(), 10901);

        // The picture fills the left side from the top; the page's controls lie right of it.
        GtkWidget *picture = nullptr;
        for (HWND child = GetWindow(frame, GW_CHILD); child && !picture; child = GetWindow(child, GW_HWNDNEXT))
            if (GtkWidget *widget = automation::widgetOf(child); widget && GTK_IS_DRAWING_AREA(widget)) picture = widget;
        ASSERT_NE(picture, nullptr);
        GtkAllocation pictureArea, listArea;
        gtk_widget_get_allocation(picture, &pictureArea);
        GtkWidget *list = automation::widgetOf(GetDlgItem(pages_[10901], 1005));
        ASSERT_TRUE(gtk_widget_is_visible(list));
        gtk_widget_translate_coordinates(list, shown.window, 0, 0, &listArea.x, &listArea.y);
        EXPECT_EQ(pictureArea.x, 0);
        EXPECT_EQ(pictureArea.y, 0);
        EXPECT_GT(pictureArea.width, 100);
        EXPECT_GT(2 * pictureArea.height, 3 * pictureArea.width) << "a tall side picture";
        EXPECT_GT(listArea.x, pictureArea.width);
        EXPECT_FALSE(gtk_widget_get_sensitive(widgetOf(frame, WIZZARD_ID_BACK)));
        EXPECT_TRUE(gtk_widget_is_visible(widgetOf(frame, WIZZARD_ID_NEXT)));
        EXPECT_FALSE(gtk_widget_is_visible(widgetOf(frame, WIZZARD_ID_FINISH)));
        EXPECT_STREQ(gtk_label_get_text(GTK_LABEL(widgetOf(frame, WIZZARD_ID_STEP))), "Step 1 of 4");
        gtk_entry_set_text(GTK_ENTRY(automation::widgetOf(GetDlgItem(pages_[10901], 1003))), "only old orders");
        saveScreenshot(shown.window, "wizard-frame-first-page");

        for (int32_t expected : {10902, 10903, 10904}) {
            press(frame, WIZZARD_ID_NEXT);
            EXPECT_EQ(pageOnScreen(), expected);
        }
        GtkWidget *finish = widgetOf(frame, WIZZARD_ID_FINISH);
        EXPECT_FALSE(gtk_widget_is_visible(widgetOf(frame, WIZZARD_ID_NEXT)));
        EXPECT_TRUE(gtk_widget_is_visible(finish));
        EXPECT_TRUE(gtk_widget_has_default(finish)) << "Finish is the default button on the last page";
        saveScreenshot(shown.window, "wizard-frame-last-page");

        for (int32_t expected : {10903, 10902, 10901}) {
            press(frame, WIZZARD_ID_BACK);
            EXPECT_EQ(pageOnScreen(), expected);
        }
        EXPECT_STREQ(gtk_entry_get_text(GTK_ENTRY(automation::widgetOf(GetDlgItem(pages_[10901], 1003)))),
                     "only old orders");
        for (int i = 0; i < 3; ++i) press(frame, WIZZARD_ID_NEXT);
        clickControl(frame, WIZZARD_ID_FINISH);
    }});
    EXPECT_EQ(Wizzard_Perform(kPages, pageProcedure, 1025, 1026, reinterpret_cast<LPARAM>(&pages_), 10020, 2909, module_,
                              u"TABRADLL", WIZZARD_BUTTONS_STANDARD | WIZZARD_BUTTON_HELP, WIZZARD_SHOW_STEP),
              1);
    EXPECT_EQ(shownCount(), 1u);
}

// In German (the frame's texts come from the translation table) the buttons still
// hold their captions; Escape closes the frame as Cancel does.
TEST_F(GtkRendererWizardFrame, GermanButtonsFitAndEscapeCancels) {
    std::filesystem::path resources = std::getenv("TABRA_RESOURCE_DIR");
    tabra::platform::registerTranslationModule(u"TABRADLL", (resources / "de").string() + "/");
    onShown({[&](const automation::Shown &shown) {
        for (int32_t id : {WIZZARD_ID_BACK, WIZZARD_ID_NEXT, IDCANCEL, IDHELP}) {
            GtkWidget *button = widgetOf(shown.handle, id);
            int natural = 0;
            gtk_widget_get_preferred_width(button, nullptr, &natural);
            EXPECT_LE(natural, gtk_widget_get_allocated_width(button)) << gtk_button_get_label(GTK_BUTTON(button));
        }
        EXPECT_STREQ(gtk_button_get_label(GTK_BUTTON(widgetOf(shown.handle, WIZZARD_ID_NEXT))), "_Weiter >");
        press(shown.handle, WIZZARD_ID_NEXT);
        press(shown.handle, WIZZARD_ID_NEXT);
        press(shown.handle, WIZZARD_ID_NEXT);
        saveScreenshot(shown.window, "wizard-frame-de-last-page");
        GtkWidget *finish = widgetOf(shown.handle, WIZZARD_ID_FINISH);
        int natural = 0;
        gtk_widget_get_preferred_width(finish, nullptr, &natural);
        EXPECT_LE(natural, gtk_widget_get_allocated_width(finish));
        automation::pressKey(shown.window, GDK_KEY_Escape);
    }});
    EXPECT_EQ(Wizzard_Perform(kPages, pageProcedure, 1025, 1026, reinterpret_cast<LPARAM>(&pages_), 10020, 2909, module_,
                              u"TABRADLL", WIZZARD_BUTTONS_STANDARD | WIZZARD_BUTTON_HELP, WIZZARD_SHOW_STEP),
              2);
    tabra::platform::registerTranslationModule(u"TABRADLL", (resources / "en").string() + "/");
}

} // namespace

#endif
