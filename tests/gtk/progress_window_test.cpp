// The progress window of the GTK renderer: it is on screen as soon as it is created,
// follows the caller's updates, and its Abort button answers while the caller's work
// loop runs (the library handles events between the work steps).
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "ostrel_ui.h"

using namespace tabra::test;
namespace automation = tabra::gtk::automation;

namespace {

class GtkRendererProgress : public GtkRendererTest {};

double fractionOf(HWND indicator) {
    GtkWidget *window = automation::widgetOf(indicator);
    GtkWidget *column = window ? gtk_bin_get_child(GTK_BIN(window)) : nullptr;
    GList *children = column ? gtk_container_get_children(GTK_CONTAINER(column)) : nullptr;
    double fraction = -1;
    for (GList *at = children; at; at = at->next)
        if (GTK_IS_PROGRESS_BAR(at->data)) fraction = gtk_progress_bar_get_fraction(GTK_PROGRESS_BAR(at->data));
    g_list_free(children);
    return fraction;
}

TEST_F(GtkRendererProgress, AbortIsSeenWhileTheCallerLoops) {
    constexpr int kSteps = 20000;
    int abortAsked = -1;
    int step = 0;
    onShown({[&](const automation::Shown &shown) {
        EXPECT_EQ(shown.kind, automation::ShownKind::Progress);
        saveScreenshot(shown.window, "progress-window");
        abortAsked = step;
        EXPECT_TRUE(automation::click(automation::abortButtonOf(shown.handle)));
    }});
    HWND indicator = Ostrel_CreateProgressIndicatorExtended(nullptr, u"Export", u"Writing rows", 0, kSteps, 0);
    ASSERT_NE(indicator, nullptr);
    GtkWidget *window = automation::widgetOf(indicator);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(gtk_widget_get_mapped(window)) << "on screen before the caller's first step";
    EXPECT_EQ(shownCount(), 1u) << "drawn before the caller's first step";
    // The caller's work: a step every 0.2 ms, checking for Abort after each.
    bool aborted = false;
    for (step = 0; step <= kSteps && !aborted; ++step) {
        Ostrel_UpdateProgressIndicator(indicator, step);
        if (step % 500 == 0) {
            std::string line = "Rows written: " + std::to_string(step);
            Ostrel_SetProgressIndicatorText(indicator, std::u16string(line.begin(), line.end()).c_str());
        }
        aborted = Ostrel_CheckProgressIndicatorAborted(indicator) == 1;
        g_usleep(200);
    }
    EXPECT_TRUE(aborted) << "Abort was not seen in " << kSteps << " steps";
    EXPECT_GE(abortAsked, 0);
    EXPECT_LT(step - abortAsked, 1000) << "Abort took too many steps to arrive";
    EXPECT_EQ(Ostrel_CheckProgressIndicatorAborted(indicator), 1) << "Abort stays pressed";
    EXPECT_NEAR(fractionOf(indicator), static_cast<double>(step - 1) / kSteps, 0.001);
    EXPECT_FALSE(gtk_widget_get_sensitive(automation::abortButtonOf(indicator)));
    EXPECT_EQ(Ostrel_DestroyProgressIndicator(indicator), 1);
    EXPECT_EQ(automation::widgetOf(indicator), nullptr);
}

TEST_F(GtkRendererProgress, WithoutAbortButtonTheWindowCannotBeAborted) {
    HWND indicator = Ostrel_CreateProgressIndicatorExtended(nullptr, u"Import", u"Reading", 0, 10, OSTREL_PROGRESS_NO_ABORT);
    ASSERT_NE(indicator, nullptr);
    EXPECT_EQ(automation::abortButtonOf(indicator), nullptr);
    EXPECT_FALSE(gtk_window_get_deletable(GTK_WINDOW(automation::widgetOf(indicator))));
    for (int step = 0; step <= 10; ++step) {
        Ostrel_UpdateProgressIndicator(indicator, step);
        EXPECT_EQ(Ostrel_CheckProgressIndicatorAborted(indicator), 0);
    }
    EXPECT_DOUBLE_EQ(fractionOf(indicator), 1.0);
    Ostrel_DestroyProgressIndicator(indicator);
}

} // namespace

#endif
