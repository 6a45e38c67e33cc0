// The selection dialog as a user sees it: rows of column, operator and value boxes
// filled from a descriptor over the shipped template.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "query/resource_ids.h"
#include "tabra_query.h"

namespace tabra::test {
namespace {

class GtkRendererSelectionDialog : public GtkRendererTest {};

std::string activeText(GtkWidget *combo) {
    gchar *text = gtk_combo_box_text_get_active_text(GTK_COMBO_BOX_TEXT(combo));
    std::string result = text ? text : "";
    g_free(text);
    return result;
}

TEST_F(GtkRendererSelectionDialog, ShowsTheDescriptorInItsRows) {
    char16_t selection[200] = u"Country\tBW\tGer\t12\nCreditLimit\tGE\t1.000,50\t3\n\vPhone\tIN\t\t12\n";
    constexpr ConditionRow rows[] = TABRA_SELECTION_DIALOG_ROWS; // the second group starts at row 6
    onShown({[&](const gtk::automation::Shown &shown) {
        ASSERT_EQ(shown.id, query::ids::kSelectionDialog.id);
        HWND dialog = shown.handle;
        GtkWidget *column = widgetOf(dialog, rows[0].column);
        ASSERT_TRUE(column != nullptr && GTK_IS_COMBO_BOX_TEXT(column));
        EXPECT_EQ(activeText(column), "Country");
        EXPECT_EQ(gtk_tree_model_iter_n_children(gtk_combo_box_get_model(GTK_COMBO_BOX(column)), nullptr), 4);
        EXPECT_EQ(activeText(widgetOf(dialog, rows[1].operation)), "is greater than or equal to");
        EXPECT_EQ(activeText(widgetOf(dialog, rows[6].operation)), "is empty");
        EXPECT_STREQ(gtk_entry_get_text(GTK_ENTRY(gtk_bin_get_child(GTK_BIN(widgetOf(dialog, rows[1].value))))), "1.000,50");
        saveScreenshot(shown.window, "selection-dialog");
        clickControl(dialog, IDCANCEL);
    }});
    EXPECT_EQ(Tabra_Edit_SelDesc(selection, 200, u"Country\t12\tCreditLimit\t3\tPhone\t12\tCustomerSince\t9", 0, 0), 2);
    EXPECT_EQ(shownCount(), 1u);
}

} // namespace
} // namespace tabra::test

#endif
