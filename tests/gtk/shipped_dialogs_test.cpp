// Every dialog of the shipped resource libraries (English and German) on the GTK
// renderer: texts fit their controls (expectTextsFit). A screenshot of each is saved
// for a person to look at; wizard pages are looked at inside their frames.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "core/dialogs/dialog.h"

using namespace tabra::test;
namespace automation = tabra::gtk::automation;

namespace {

// A dialog that only closes.
struct Closing {};
constexpr tabra::dialogs::Dialog<Closing> kClosing{};
INT_PTR closingProcedure(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kClosing.answer(dialog, message, wParam, lParam);
}

class GtkRendererShippedDialogs : public GtkRendererLanguageTest {};

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

TABRA_INSTANTIATE_LANGUAGE_TEST(GtkRendererShippedDialogs);

} // namespace

#endif
