// The ODBC error dialog (the template of the shipped English resource library) on
// the GTK renderer: filled as the error display fills it, shown at the size its dialog
// units give, read-only fields that look read-only, the hidden button hidden, and the
// result of the button the user pressed.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "core/dialogs/dialog.h"
#include "core/resource_ids.h"
#include "platform/gtk/dialog_units.h"
#include "platform/gtk/label_text.h"
#include "support/backend_test.h"
#include "support/odbc_handles.h"
#include "support/private_data_sources.h"
#include "tabra_connection.h"

#include <vector>

using namespace tabra::test;
namespace automation = tabra::gtk::automation;

namespace {

using tabra::core::ids::kErrorDialog;

// What the error display puts in the dialog for a failed SELECT on SQLite: the
// bracketed parts of the diagnostic, its SQLSTATE, the rest of the text and the
// statement.
struct Diagnostic {};
void fill(HWND dialog, Diagnostic &) {
    SetDlgItemTextW(dialog, kErrorDialog.vendor, u"unixODBC");
    SetDlgItemTextW(dialog, kErrorDialog.component, u"SQLite");
    SetDlgItemTextW(dialog, kErrorDialog.dataSource, u"");
    SetDlgItemTextW(dialog, kErrorDialog.state, u"HY000");
    SetDlgItemTextW(dialog, kErrorDialog.message, u"no such table: missing_orders (1)");
    SetDlgItemTextW(dialog, kErrorDialog.statement,
                    u"SELECT \"order_id\", \"total\"\r\nFROM \"missing_orders\"\r\nWHERE \"total\" > 100");
    ShowWindow(GetDlgItem(dialog, kErrorDialog.furtherMessage), SW_HIDE);
}
constexpr tabra::dialogs::Dialog<Diagnostic> kFilled{.initialise = fill};

INT_PTR showFilled(HMODULE resources) {
    Diagnostic diagnostic;
    return DialogBoxParamW(
        resources, kErrorDialog.id, nullptr,
        [](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) { return kFilled.answer(dialog, message, wParam, lParam); },
        reinterpret_cast<LPARAM>(&diagnostic));
}

std::string entryText(GtkWidget *entry) { return entry && GTK_IS_ENTRY(entry) ? gtk_entry_get_text(GTK_ENTRY(entry)) : "?"; }

std::string viewText(GtkWidget *view) {
    if (!view || !GTK_IS_TEXT_VIEW(view)) return "?";
    GtkTextBuffer *buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(view));
    GtkTextIter start, end;
    gtk_text_buffer_get_bounds(buffer, &start, &end);
    gchar *text = gtk_text_buffer_get_text(buffer, &start, &end, FALSE);
    std::string copy = text;
    g_free(text);
    return copy;
}

class GtkRendererErrorDialog : public GtkRendererTest {};

TEST_F(GtkRendererErrorDialog, ShowsTheDiagnosticAndEndsWithOk) {
    HMODULE resources = englishResources();
    ASSERT_NE(resources, nullptr);
    onShown({[&](const automation::Shown &shown) {
        EXPECT_EQ(shown.kind, automation::ShownKind::Dialog);
        EXPECT_EQ(shown.id, kErrorDialog.id);
        HWND dialog = shown.handle;
        EXPECT_EQ(std::string(gtk_window_get_title(GTK_WINDOW(shown.window))), "ODBC Error");

        // The multi-line edits show "\r\n" as line breaks.
        EXPECT_EQ(entryText(widgetOf(dialog, kErrorDialog.state)), "HY000");
        EXPECT_EQ(viewText(widgetOf(dialog, kErrorDialog.message)), "no such table: missing_orders (1)");
        EXPECT_EQ(viewText(widgetOf(dialog, kErrorDialog.statement)),
                  "SELECT \"order_id\", \"total\"\nFROM \"missing_orders\"\nWHERE \"total\" > 100");

        // Read-only edits cannot be typed into and are marked so.
        GtkWidget *vendor = widgetOf(dialog, kErrorDialog.vendor);
        EXPECT_FALSE(gtk_editable_get_editable(GTK_EDITABLE(vendor)));
        EXPECT_TRUE(gtk_style_context_has_class(gtk_widget_get_style_context(vendor), "tabra-read-only"));
        EXPECT_FALSE(gtk_text_view_get_editable(GTK_TEXT_VIEW(widgetOf(dialog, kErrorDialog.message))));

        // The "More..." button is hidden; OK is the default button.
        EXPECT_FALSE(gtk_widget_get_visible(widgetOf(dialog, kErrorDialog.furtherMessage)));
        EXPECT_EQ(gtk_window_get_default_widget(GTK_WINDOW(shown.window)), widgetOf(dialog, IDOK));

        // The client area has the template's size in dialog units of its font.
        auto units = tabra::gtk::measureBaseUnits(tabra::gtk::fontDescription(u"Sans", 8));
        GtkWidget *area = gtk_bin_get_child(GTK_BIN(shown.window));
        EXPECT_EQ(gtk_widget_get_allocated_width(area), tabra::gtk::horizontalPixels(320, units));
        EXPECT_EQ(gtk_widget_get_allocated_height(area), tabra::gtk::verticalPixels(232, units));
        // Controls lie where the template puts them and keep their size: the OK button
        // at (209, 211), 50 x 14 units, does not grow into its neighbour.
        GtkAllocation ok;
        gtk_widget_get_allocation(widgetOf(dialog, IDOK), &ok);
        auto expected = tabra::gtk::toPixels({209, 211, 50, 14}, units);
        EXPECT_EQ(std::vector<int>({ok.x, ok.y, ok.width, ok.height}),
                  std::vector<int>({expected.x, expected.y, expected.width, expected.height}));
        GtkAllocation statement;
        gtk_widget_get_allocation(gtk_widget_get_parent(widgetOf(dialog, kErrorDialog.statement)), &statement);
        EXPECT_LE(statement.y + statement.height, ok.y) << "the statement field overlaps the buttons";

        saveScreenshot(shown.window, "odbc-error-dialog");
        clickControl(dialog, IDOK);
    }});
    EXPECT_EQ(showFilled(resources), IDOK);
    EXPECT_EQ(shownCount(), 1u);
    EXPECT_EQ(GetActiveWindow(), nullptr);
}

TEST_F(GtkRendererErrorDialog, CancelAndEscapeEndWithTwo) {
    HMODULE resources = englishResources();
    ASSERT_NE(resources, nullptr);
    onShown({[&](const automation::Shown &shown) { clickControl(shown.handle, IDCANCEL); },
             [&](const automation::Shown &shown) { EXPECT_TRUE(automation::pressKey(shown.window, GDK_KEY_Escape)); }});
    EXPECT_EQ(showFilled(resources), IDCANCEL) << "Cancel button";
    EXPECT_EQ(showFilled(resources), IDCANCEL) << "Escape key";
    EXPECT_EQ(shownCount(), 2u);
}

// A real failure of each backend's driver, shown through the error display: vendor,
// component and message each in their own field, as the driver's message has them.
class GtkRendererErrorDialogOnBackends : public GtkRendererTest, public ::testing::WithParamInterface<Backend> {};

TEST_P(GtkRendererErrorDialogOnBackends, ARealFailureShowsItsPartsInTheirFields) {
    std::optional<DataSource> source = configuredDataSource(GetParam());
    if (!source) GTEST_SKIP() << backendName(GetParam()) << " not configured";
    if (GetParam() == Backend::SQLite) PrivateDataSources::instance().freshSqliteDatabase();
    OdbcConnection connection(*source);
    OdbcStatement statement(connection);
    const char16_t *sql = u"SELECT * FROM no_such_table_here";
    ASSERT_EQ(SQLExecDirectW(statement.handle(), reinterpret_cast<SQLWCHAR *>(const_cast<char16_t *>(sql)), SQL_NTS),
              SQL_ERROR);
    auto records = diagnosticRecords(SQL_HANDLE_STMT, statement.handle());
    ASSERT_FALSE(records.empty());
    const std::string state = tabra::gtk::utf8(records.front().state);
    onShown({[&](const automation::Shown &shown) {
        EXPECT_EQ(shown.id, kErrorDialog.id);
        HWND dialog = shown.handle;
        // How each driver's message splits is tested headlessly; here it is on screen.
        const std::string message = viewText(widgetOf(dialog, kErrorDialog.message));
        EXPECT_EQ(entryText(widgetOf(dialog, kErrorDialog.state)), state);
        EXPECT_EQ(entryText(widgetOf(dialog, kErrorDialog.vendor)).find('['), std::string::npos);
        EXPECT_TRUE(message.find("no such table") == 0 || message.find("exist") != std::string::npos) << message;
        EXPECT_EQ(viewText(widgetOf(dialog, kErrorDialog.statement)), "SELECT * FROM no_such_table_here");
        EXPECT_FALSE(gtk_widget_get_visible(widgetOf(dialog, kErrorDialog.furtherMessage)))
            << "no further message for " << state;
        saveScreenshot(shown.window, std::string("odbc-error-dialog-") + backendName(GetParam()));
        clickControl(dialog, IDCANCEL);
    }});
    EXPECT_EQ(Tabra_DisplayErrorHstmt(statement.handle(), sql), 2) << "Cancel";
    EXPECT_EQ(shownCount(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Backends, GtkRendererErrorDialogOnBackends, ::testing::ValuesIn(allBackends()),
                         backendTestName);

} // namespace

#endif
