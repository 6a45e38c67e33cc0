// The view editor as a user sees it, in English and German, on a view with a
// statement of several lines.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "query/resource_ids.h"
#include "query/view_editor/view_editor.h"

namespace tabra::test {
namespace {

namespace ids = query::ids;

class GtkRendererViewEditor : public GtkRendererLanguageTest {};

TEST_P(GtkRendererViewEditor, Dialog) {
    const std::string language = GetParam();
    ScopedLanguage scoped(language);
    query::view_editor::ViewEditState state;
    state.name = u"LargeOrders";
    state.statement = u"SELECT o.OrderID, c.CompanyName AS Customer, o.Freight\r\nFROM Orders AS o\r\n"
                      u"LEFT JOIN Customers AS c ON o.CustomerID = c.CustomerID\r\nWHERE (o.Freight > 100)";
    onShown({[&](const gtk::automation::Shown &shown) {
        ASSERT_EQ(shown.id, ids::kViewEditorDialog.id);
        expectTextsFit(shown.handle, "view editor " + language);
        saveScreenshot(shown.window, "view-editor-" + language);
        clickControl(shown.handle, IDCANCEL);
    }});
    EXPECT_EQ(query::view_editor::runViewEditor(state, 0, nullptr), 2);
    EXPECT_EQ(shownCount(), 1u);
}

TABRA_INSTANTIATE_LANGUAGE_TEST(GtkRendererViewEditor);

} // namespace
} // namespace tabra::test

#endif
