// Every dialog of the shipped resource libraries (English and German) on the GTK
// renderer: texts fit their controls (a label that needs a second line it has no room
// for, or a button too narrow for its caption, is a layout fault of the template or of
// the renderer's sizes). A screenshot of each is saved for a person to look at.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "core/dialogs/dialog.h"
#include "platform/gtk/label_text.h"
#include "platform/window/window_registry.h"

using namespace tabra::test;
namespace automation = tabra::gtk::automation;

namespace {

// A label may be a few pixels taller than its rectangle (GTK's line height exceeds the
// font height the dialog units come from), not a line taller.
constexpr int kHeightSlack = 5;

// A dialog that only closes.
struct Closing {};
constexpr tabra::dialogs::Dialog<Closing> kClosing{};
INT_PTR closingProcedure(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kClosing.answer(dialog, message, wParam, lParam);
}

// Checks the texts of the dialog's visible controls against their rectangles.
void expectTextsFit(HWND dialog, const std::string &where) {
    auto window = tabra::window::findWindow(dialog);
    ASSERT_NE(window, nullptr);
    for (HWND child : window->children) {
        auto control = tabra::window::findWindow(child);
        GtkWidget *widget = control ? automation::widgetOf(child) : nullptr;
        if (!widget || !control->visible || control->text.empty()) continue;
        std::string name = where + " control " + std::to_string(control->id) + " \"" + tabra::gtk::utf8(control->text) + "\"";
        GtkAllocation area;
        gtk_widget_get_allocation(widget, &area);
        if (GTK_IS_LABEL(widget)) {
            int needed = 0;
            gtk_widget_get_preferred_height_for_width(widget, area.width, &needed, nullptr);
            int given = gtk_widget_get_allocated_height(widget);
            GtkRequisition requested;
            gtk_widget_get_size_request(widget, &requested.width, &requested.height);
            EXPECT_LE(needed, requested.height + kHeightSlack) << name << " needs " << needed << " pixels, has " << given;
        } else if (GTK_IS_BUTTON(widget) && !GTK_IS_FRAME(widget)) {
            int natural = 0;
            gtk_widget_get_preferred_width(widget, nullptr, &natural);
            EXPECT_LE(natural, area.width) << name << " wants " << natural << " pixels across, has " << area.width;
        }
    }
}

class GtkRendererShippedDialogs : public GtkRendererTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(GtkRendererShippedDialogs, TextsFitTheirControls) {
    HMODULE library = loadShippedResources(GetParam());
    ASSERT_NE(library, nullptr);
    const auto *tables = tabra::platform::resourceTablesOf(library);
    ASSERT_NE(tables, nullptr);
    for (const auto &[id, dialog] : tables->dialogs) {
        if (dialog.childPage) continue; // pages are shown inside their dialogs
        std::string where = GetParam() + " dialog " + std::to_string(id);
        onShown({[&](const automation::Shown &shown) {
            expectTextsFit(shown.handle, where);
            saveScreenshot(shown.window, "shipped-" + GetParam() + "-" + std::to_string(id));
            automation::pressKey(shown.window, GDK_KEY_Escape);
        }});
        Closing closing;
        EXPECT_EQ(DialogBoxParamW(library, id, nullptr, closingProcedure, reinterpret_cast<LPARAM>(&closing)), IDCANCEL)
            << where;
        EXPECT_EQ(shownCount(), 1u) << where;
    }
    tabra::platform::releaseResourceModule(library);
}

INSTANTIATE_TEST_SUITE_P(Languages, GtkRendererShippedDialogs, ::testing::Values("en", "de"),
                         [](const ::testing::TestParamInfo<std::string> &info) { return info.param; });

} // namespace

#endif
