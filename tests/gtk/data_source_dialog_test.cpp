// The data source dialog as a user sees it: the library's own dialog procedure over
// the shipped template, filled from the driver manager's data sources.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "core/resource_ids.h"
#include "support/private_data_sources.h"
#include "tabra_connection.h"

namespace tabra::test {
namespace {

class GtkRendererDataSourceDialog : public GtkRendererTest {};

TEST_F(GtkRendererDataSourceDialog, ShowsTheDataSourcesAndTheRecordsLogin) {
    PrivateDataSources::instance(); // the private odbc.ini with the test data sources
    DataSourceInfo record{};
    std::u16string(dsn::TestDriver).copy(record.DataSourceName, 99);
    std::u16string(u"jürgen").copy(record.UserId, 49);
    onShown({[&](const gtk::automation::Shown &shown) {
        using core::ids::kDataSourceDialog;
        ASSERT_EQ(shown.id, kDataSourceDialog.id);
        HWND dialog = shown.handle;
        GtkWidget *list = widgetOf(dialog, kDataSourceDialog.dataSources);
        ASSERT_TRUE(list != nullptr && GTK_IS_TREE_VIEW(list));
        GtkTreeModel *model = gtk_tree_view_get_model(GTK_TREE_VIEW(list));
        EXPECT_GE(gtk_tree_model_iter_n_children(model, nullptr), 10);
        GtkTreeIter selected;
        EXPECT_TRUE(gtk_tree_selection_get_selected(gtk_tree_view_get_selection(GTK_TREE_VIEW(list)), nullptr, &selected));
        GtkWidget *user = widgetOf(dialog, kDataSourceDialog.user);
        EXPECT_STREQ(gtk_entry_get_text(GTK_ENTRY(user)), "jürgen");
        EXPECT_FALSE(gtk_entry_get_visibility(GTK_ENTRY(widgetOf(dialog, kDataSourceDialog.password)))); // masked
        saveScreenshot(shown.window, "data-source-dialog");
        clickControl(dialog, IDCANCEL);
    }});
    EXPECT_EQ(Tabra_DataSourceDialog(&record), 2);
    EXPECT_EQ(shownCount(), 1u);
}

} // namespace
} // namespace tabra::test

#endif
