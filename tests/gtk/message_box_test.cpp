// Message boxes on the GTK renderer: the question of the shipped string table with
// its insert, Yes/No buttons with No as default, and the answer of the button the
// user pressed; closing a box that has a Cancel button answers Cancel, and a box
// without a way out cannot be closed.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "catalog/resource_ids.h"
#include "core/resource_ids.h"
#include "ostrel_ui.h"

using namespace tabra::test;
namespace automation = tabra::gtk::automation;

namespace {

class GtkRendererMessageBox : public GtkRendererTest {};

std::string messageText(GtkWidget *box) {
    gchar *text = nullptr;
    g_object_get(box, "text", &text, nullptr);
    std::string copy = text ? text : "";
    g_free(text);
    return copy;
}

// The name of the icon a message box shows beside its text ("" for none).
std::string iconName(GtkWidget *box) {
    GtkWidget *image = nullptr;
    g_object_get(box, "image", &image, nullptr);
    const gchar *name = nullptr;
    if (image && GTK_IS_IMAGE(image) && gtk_widget_get_visible(image)) gtk_image_get_icon_name(GTK_IMAGE(image), &name, nullptr);
    std::string copy = name ? name : "";
    if (image) g_object_unref(image);
    return copy;
}

TEST_F(GtkRendererMessageBox, QuestionFromTheStringTableAnswersTheButtonPressed) {
    HMODULE resources = englishResources();
    ASSERT_NE(resources, nullptr);
    onShown({[&](const automation::Shown &shown) {
        EXPECT_EQ(shown.kind, automation::ShownKind::MessageBox);
        EXPECT_EQ(shown.id, tabra::catalog::ids::kMessage.confirmDropTable);
        EXPECT_EQ(std::string(gtk_window_get_title(GTK_WINDOW(shown.window))), "Tabra");
        EXPECT_EQ(messageText(shown.window), "Do you really want to delete the table \"Orders\" with all its data?");
        EXPECT_EQ(iconName(shown.window), "dialog-question") << "the string table's entry asks a question";
        GtkWidget *yes = automation::messageBoxButton(shown.window, IDYES);
        GtkWidget *no = automation::messageBoxButton(shown.window, IDNO);
        ASSERT_NE(yes, nullptr);
        ASSERT_NE(no, nullptr);
        EXPECT_EQ(automation::messageBoxButton(shown.window, IDCANCEL), nullptr);
        EXPECT_TRUE(gtk_widget_has_default(no)) << "MB_DEFBUTTON2 makes No the default";
        EXPECT_FALSE(gtk_window_get_deletable(GTK_WINDOW(shown.window))) << "Yes/No offers no way out";
        saveScreenshot(shown.window, "message-box-yes-no");
        EXPECT_TRUE(automation::click(yes));
    }});
    OstrelMessageBoxRequest request{};
    request.module = resources;
    request.captionId = tabra::core::ids::kString.caption;
    request.textId = tabra::catalog::ids::kMessage.confirmDropTable;
    request.insert1 = u"\"Orders\"";
    request.flag = 1;
    EXPECT_EQ(Ostrel_Message_Box(&request), IDYES);
    EXPECT_EQ(shownCount(), 1u);
}

TEST_F(GtkRendererMessageBox, TheIconFollowsTheStyleAndEnterAnswersTheDefault) {
    struct Case {
        uint32_t style;
        const char *icon;
        const char *screenshot;
        int32_t answer; // of the default button, which Enter presses
    };
    const Case cases[] = {
        {MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2, "dialog-question", "message-box-question", IDNO},
        {MB_OKCANCEL | MB_ICONWARNING, "dialog-warning", "message-box-warning", IDOK},
        {MB_OK | MB_ICONERROR, "dialog-error", "message-box-error", IDOK},
        {MB_OK | MB_ICONINFORMATION, "dialog-information", "message-box-information", IDOK},
        {MB_OK, "", "message-box-plain", IDOK},
    };
    for (const Case &test : cases) {
        SCOPED_TRACE(test.screenshot);
        onShown({[&](const automation::Shown &shown) {
            EXPECT_EQ(iconName(shown.window), test.icon);
            saveScreenshot(shown.window, test.screenshot);
            EXPECT_TRUE(automation::pressKey(shown.window, GDK_KEY_Return));
        }});
        EXPECT_EQ(MessageBoxW(nullptr, u"The table \"Orders\" has 830 records.", u"Tables", test.style), test.answer);
    }
}

TEST_F(GtkRendererMessageBox, EachButtonAnswersItsOwnValue) {
    onShown({[](const automation::Shown &shown) { automation::click(automation::messageBoxButton(shown.window, IDNO)); },
             [](const automation::Shown &shown) { automation::click(automation::messageBoxButton(shown.window, IDRETRY)); },
             [](const automation::Shown &shown) { automation::click(automation::messageBoxButton(shown.window, IDOK)); }});
    EXPECT_EQ(MessageBoxW(nullptr, u"Save the changes?", u"Editor", MB_YESNOCANCEL | MB_ICONQUESTION), IDNO);
    EXPECT_EQ(MessageBoxW(nullptr, u"The file is locked.", u"Editor", MB_RETRYCANCEL | MB_ICONWARNING), IDRETRY);
    EXPECT_EQ(MessageBoxW(nullptr, u"Done.", nullptr, MB_OK), IDOK);
    EXPECT_EQ(shownCount(), 3u);
}

TEST_F(GtkRendererMessageBox, EscapeAnswersCancelWhereThereIsOne) {
    onShown({[](const automation::Shown &shown) {
                 EXPECT_TRUE(gtk_window_get_deletable(GTK_WINDOW(shown.window)));
                 automation::pressKey(shown.window, GDK_KEY_Escape);
             },
             [](const automation::Shown &shown) {
                 // Without Cancel the box stays: Escape does nothing, then the user answers.
                 automation::pressKey(shown.window, GDK_KEY_Escape);
                 GtkWidget *no = automation::messageBoxButton(shown.window, IDNO);
                 g_timeout_add(100, [](gpointer button) -> gboolean {
                     automation::click(static_cast<GtkWidget *>(button));
                     return G_SOURCE_REMOVE;
                 }, no);
             }});
    EXPECT_EQ(MessageBoxW(nullptr, u"Stop the export?", u"Export", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(MessageBoxW(nullptr, u"Delete the column?", u"Columns", MB_YESNO), IDNO);
}

} // namespace

#endif
