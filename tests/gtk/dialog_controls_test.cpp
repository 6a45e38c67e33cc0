// Every control kind on the GTK renderer, kept in step with the engine both ways: what
// the dialog procedure puts into its controls shows in the widgets (texts, masks,
// read-only looks, checks, list entries and selections, columns, tabs and their pages,
// progress), and what the user does with the widgets reaches the engine with the
// notifications Win32 sends.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "ostrel_ui.h"
#include "window/window_test_support.h"

#include <algorithm>

using namespace tabra::test;
using tabra::platform::ControlKind;
namespace automation = tabra::gtk::automation;

namespace {

constexpr int32_t kDialog = 400, kGeneralPage = 401, kAdvancedPage = 402;
constexpr int32_t kName = 1002, kPassword = 1003, kServer = 1004, kRemember = 1005, kLocal = 1006, kRemote = 1007;
constexpr int32_t kTables = 1008, kDriver = 1009, kSchema = 1010, kColumns = 1011, kTabs = 1012, kProgress = 1013;
constexpr int32_t kTimeout = 1020, kCompress = 1021;

class GtkRendererControls : public GtkRendererTest {
protected:
    GtkRendererControls() {
        constexpr uint32_t tab = WS_TABSTOP;
        DialogBuilder main(kDialog, u"Connection Settings");
        main.size(280, 200)
            .label(u"&Name:").at(7, 9, 50, 8)
            .control(ControlKind::Edit, kName, u"", tab | ES_AUTOHSCROLL).at(60, 7, 100, 14)
            .label(u"&Password:").at(7, 27, 50, 8)
            .control(ControlKind::Edit, kPassword, u"", tab | ES_PASSWORD).at(60, 25, 100, 14)
            .label(u"Server:").at(7, 45, 50, 8)
            .control(ControlKind::Edit, kServer, u"", tab | ES_READONLY).at(60, 43, 100, 14)
            .control(ControlKind::GroupBox, -1, u"Options").at(168, 3, 105, 56)
            .control(ControlKind::CheckBox, kRemember, u"&Remember password", tab | BS_AUTOCHECKBOX).at(175, 15, 94, 10)
            .control(ControlKind::RadioButton, kLocal, u"&Local server", tab | WS_GROUP | BS_AUTORADIOBUTTON).at(175, 29, 94, 10)
            .control(ControlKind::RadioButton, kRemote, u"Re&mote server", BS_AUTORADIOBUTTON).at(175, 42, 94, 10)
            .label(u"&Tables:").at(7, 64, 60, 8)
            .control(ControlKind::ListBox, kTables, u"", tab | LBS_NOTIFY | WS_VSCROLL).at(7, 74, 80, 50)
            .label(u"&Driver:").at(95, 64, 60, 8)
            .control(ControlKind::ComboBox, kDriver, u"", tab | CBS_DROPDOWNLIST).at(95, 74, 80, 60)
            .label(u"S&chema:").at(95, 94, 60, 8)
            .control(ControlKind::ComboBox, kSchema, u"", tab | CBS_DROPDOWN).at(95, 104, 80, 60)
            .control(ControlKind::ListView, kColumns, u"", tab | LVS_REPORT | LVS_SINGLESEL,
                     LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT).at(183, 64, 90, 60)
            .control(ControlKind::TabControl, kTabs, u"", tab).at(7, 130, 266, 44)
            .control(ControlKind::Progress, kProgress).at(7, 182, 120, 10)
            .button(IDOK, u"OK", BS_DEFPUSHBUTTON).at(169, 179, 50, 14)
            .button(IDCANCEL, u"Cancel").at(223, 179, 50, 14);
        DialogBuilder general(kGeneralPage, u"General");
        general.page().size(260, 26).label(u"T&imeout (seconds):").at(4, 8, 70, 8)
            .control(ControlKind::Edit, kTimeout, u"", tab | ES_NUMBER).at(78, 6, 40, 14);
        DialogBuilder advanced(kAdvancedPage, u"Advanced");
        advanced.page().size(260, 26)
            .control(ControlKind::CheckBox, kCompress, u"Com&press the transfer", tab | BS_AUTOCHECKBOX).at(4, 8, 120, 10);
        module.add(main).add(general).add(advanced);
        module_ = module.handle();
    }

    TestModule module;
    HMODULE module_ = nullptr;
    std::vector<SeenCommand> commands_;
    std::vector<int32_t> notifications_;

    bool sawCommand(int32_t id, int32_t code) const {
        return std::find(commands_.begin(), commands_.end(), SeenCommand{id, code}) != commands_.end();
    }
};

int rows(GtkWidget *view) { return gtk_tree_model_iter_n_children(gtk_tree_view_get_model(GTK_TREE_VIEW(view)), nullptr); }

std::vector<int> selectedRows(GtkWidget *view) {
    std::vector<int> found;
    GList *paths = gtk_tree_selection_get_selected_rows(gtk_tree_view_get_selection(GTK_TREE_VIEW(view)), nullptr);
    for (GList *at = paths; at; at = at->next) found.push_back(gtk_tree_path_get_indices(static_cast<GtkTreePath *>(at->data))[0]);
    g_list_free_full(paths, reinterpret_cast<GDestroyNotify>(gtk_tree_path_free));
    return found;
}

void selectRow(GtkWidget *view, int row) {
    GtkTreePath *path = gtk_tree_path_new_from_indices(row, -1);
    GtkTreeSelection *selection = gtk_tree_view_get_selection(GTK_TREE_VIEW(view));
    gtk_tree_selection_unselect_all(selection);
    gtk_tree_selection_select_path(selection, path);
    gtk_tree_path_free(path);
}

bool active(GtkWidget *button) { return gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(button)); }

TEST_F(GtkRendererControls, EngineAndWidgetsStayInStepBothWays) {
    HWND pages[2] = {nullptr, nullptr};
    Procedure pageProcedure = [](HWND, uint32_t message, WPARAM, LPARAM) -> INT_PTR { return message == WM_INITDIALOG; };
    Procedure procedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        switch (message) {
        case WM_INITDIALOG: {
            SetDlgItemTextW(dialog, kName, u"ada");
            SetDlgItemTextW(dialog, kPassword, u"secret");
            SetDlgItemTextW(dialog, kServer, u"db.example.org");
            CheckRadioButton(dialog, kLocal, kRemote, kLocal);
            for (const char16_t *table : {u"Customers", u"Orders", u"Products"})
                SendDlgItemMessageW(dialog, kTables, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(table));
            SendDlgItemMessageW(dialog, kTables, LB_SETCURSEL, 1, 0);
            for (const char16_t *driver : {u"SQLite", u"PostgreSQL", u"MariaDB"})
                SendDlgItemMessageW(dialog, kDriver, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(driver));
            SendDlgItemMessageW(dialog, kDriver, CB_SETCURSEL, 0, 0);
            for (const char16_t *schema : {u"public", u"sales"})
                SendDlgItemMessageW(dialog, kSchema, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(schema));
            SetDlgItemTextW(dialog, kSchema, u"public");
            HWND columns = GetDlgItem(dialog, kColumns);
            Ostrel_ListView_CreateColumns(columns, u"Column|70|Type|60");
            Ostrel_ListView_InsertItem(columns, -1, u"id\tINTEGER", u'\t', 1);
            Ostrel_ListView_InsertItem(columns, -1, u"name\tVARCHAR(50)", u'\t', 2);
            HWND tabs = GetDlgItem(dialog, kTabs);
            Ostrel_AddTabControlItem(tabs, -1, module_, kGeneralPage, functionProcedure, reinterpret_cast<LPARAM>(&pageProcedure));
            Ostrel_AddTabControlItem(tabs, -1, module_, kAdvancedPage, functionProcedure, reinterpret_cast<LPARAM>(&pageProcedure));
            pages[0] = Ostrel_GetTabControlPage(tabs, 0);
            pages[1] = Ostrel_GetTabControlPage(tabs, 1);
            Ostrel_ShowTabControlItem(tabs, 0);
            SetDlgItemTextW(pages[0], kTimeout, u"30");
            SendDlgItemMessageW(dialog, kProgress, PBM_SETPOS, 40, 0);
            return TRUE;
        }
        case WM_COMMAND:
            commands_.push_back({LOWORD(wParam), HIWORD(wParam)});
            if (LOWORD(wParam) == IDOK) EndDialog(dialog, IDOK);
            if (LOWORD(wParam) == IDCANCEL) EndDialog(dialog, IDCANCEL);
            return TRUE;
        case WM_NOTIFY: {
            const auto *header = reinterpret_cast<const NMHDR *>(lParam);
            notifications_.push_back(static_cast<int32_t>(header->code));
            if (static_cast<int32_t>(header->code) == TCN_SELCHANGE)
                Ostrel_ShowTabControlItem(header->hwndFrom, static_cast<int32_t>(SendMessageW(header->hwndFrom, TCM_GETCURSEL, 0, 0)));
            return TRUE;
        }
        default:
            return FALSE;
        }
    };

    onShown({[&](const automation::Shown &shown) {
        HWND dialog = shown.handle;
        // ---- Engine -> widgets ----
        EXPECT_STREQ(gtk_entry_get_text(GTK_ENTRY(widgetOf(dialog, kName))), "ada");
        EXPECT_FALSE(gtk_entry_get_visibility(GTK_ENTRY(widgetOf(dialog, kPassword)))) << "password masked";
        EXPECT_FALSE(gtk_editable_get_editable(GTK_EDITABLE(widgetOf(dialog, kServer))));
        EXPECT_FALSE(active(widgetOf(dialog, kRemember)));
        EXPECT_TRUE(active(widgetOf(dialog, kLocal)));
        EXPECT_FALSE(active(widgetOf(dialog, kRemote)));
        EXPECT_EQ(rows(widgetOf(dialog, kTables)), 3);
        EXPECT_EQ(selectedRows(widgetOf(dialog, kTables)), std::vector<int>{1});
        EXPECT_EQ(gtk_combo_box_get_active(GTK_COMBO_BOX(widgetOf(dialog, kDriver))), 0);
        GtkWidget *schemaEntry = gtk_bin_get_child(GTK_BIN(widgetOf(dialog, kSchema)));
        EXPECT_STREQ(gtk_entry_get_text(GTK_ENTRY(schemaEntry)), "public");
        GtkWidget *columns = widgetOf(dialog, kColumns);
        ASSERT_EQ(gtk_tree_view_get_n_columns(GTK_TREE_VIEW(columns)), 2u);
        EXPECT_STREQ(gtk_tree_view_column_get_title(gtk_tree_view_get_column(GTK_TREE_VIEW(columns), 1)), "Type");
        EXPECT_TRUE(gtk_tree_view_get_headers_visible(GTK_TREE_VIEW(columns)));
        EXPECT_EQ(rows(columns), 2);
        GtkWidget *notebook = widgetOf(dialog, kTabs);
        EXPECT_EQ(gtk_notebook_get_n_pages(GTK_NOTEBOOK(notebook)), 2);
        EXPECT_EQ(gtk_notebook_get_current_page(GTK_NOTEBOOK(notebook)), 0);
        EXPECT_TRUE(gtk_widget_get_visible(automation::widgetOf(pages[0])));
        EXPECT_FALSE(gtk_widget_get_visible(automation::widgetOf(pages[1])));
        EXPECT_STREQ(gtk_entry_get_text(GTK_ENTRY(automation::widgetOf(GetDlgItem(pages[0], kTimeout)))), "30");
        EXPECT_DOUBLE_EQ(gtk_progress_bar_get_fraction(GTK_PROGRESS_BAR(widgetOf(dialog, kProgress))), 0.4);
        saveScreenshot(shown.window, "controls-dialog");

        // ---- Widgets -> engine, with the notifications ----
        commands_.clear();
        gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(widgetOf(dialog, kRemember)), TRUE);
        EXPECT_EQ(IsDlgButtonChecked(dialog, kRemember), static_cast<uint32_t>(BST_CHECKED));
        EXPECT_TRUE(sawCommand(kRemember, BN_CLICKED));

        gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(widgetOf(dialog, kRemote)), TRUE);
        EXPECT_EQ(IsDlgButtonChecked(dialog, kRemote), static_cast<uint32_t>(BST_CHECKED));
        EXPECT_EQ(IsDlgButtonChecked(dialog, kLocal), static_cast<uint32_t>(BST_UNCHECKED));
        EXPECT_TRUE(sawCommand(kRemote, BN_CLICKED));
        EXPECT_FALSE(sawCommand(kLocal, BN_CLICKED)) << "the radio that went off was not clicked";

        selectRow(widgetOf(dialog, kTables), 2);
        EXPECT_EQ(SendDlgItemMessageW(dialog, kTables, LB_GETCURSEL, 0, 0), 2);
        EXPECT_TRUE(sawCommand(kTables, LBN_SELCHANGE));

        gtk_entry_set_text(GTK_ENTRY(widgetOf(dialog, kName)), "Grace");
        EXPECT_EQ(windowText(GetDlgItem(dialog, kName)), u"Grace");
        EXPECT_TRUE(sawCommand(kName, EN_CHANGE));

        gtk_combo_box_set_active(GTK_COMBO_BOX(widgetOf(dialog, kDriver)), 2);
        EXPECT_EQ(SendDlgItemMessageW(dialog, kDriver, CB_GETCURSEL, 0, 0), 2);
        EXPECT_EQ(windowText(GetDlgItem(dialog, kDriver)), u"MariaDB");
        EXPECT_TRUE(sawCommand(kDriver, CBN_SELCHANGE));

        gtk_entry_set_text(GTK_ENTRY(schemaEntry), "archive");
        EXPECT_EQ(windowText(GetDlgItem(dialog, kSchema)), u"archive");
        EXPECT_TRUE(sawCommand(kSchema, CBN_EDITCHANGE));

        GtkWidget *timeout = automation::widgetOf(GetDlgItem(pages[0], kTimeout));
        gint position = 2;
        gtk_editable_insert_text(GTK_EDITABLE(timeout), "5", -1, &position);
        EXPECT_EQ(windowText(GetDlgItem(pages[0], kTimeout)), u"305") << "typing on a page reaches the engine";
        position = 3;
        gtk_editable_insert_text(GTK_EDITABLE(timeout), "s", -1, &position);
        EXPECT_STREQ(gtk_entry_get_text(GTK_ENTRY(timeout)), "305") << "ES_NUMBER takes digits only";

        selectRow(columns, 1);
        EXPECT_EQ(SendDlgItemMessageW(dialog, kColumns, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 1);
        EXPECT_NE(std::find(notifications_.begin(), notifications_.end(), LVN_ITEMCHANGED), notifications_.end());

        gtk_notebook_set_current_page(GTK_NOTEBOOK(notebook), 1);
        EXPECT_EQ(SendDlgItemMessageW(dialog, kTabs, TCM_GETCURSEL, 0, 0), 1);
        EXPECT_NE(std::find(notifications_.begin(), notifications_.end(), TCN_SELCHANGE), notifications_.end());
        EXPECT_FALSE(gtk_widget_get_visible(automation::widgetOf(pages[0])));
        EXPECT_TRUE(gtk_widget_get_visible(automation::widgetOf(pages[1]))) << "the dialog showed the page it was asked for";

        // ---- Engine -> widgets while the dialog is open ----
        EnableWindow(GetDlgItem(dialog, kPassword), FALSE);
        EXPECT_FALSE(gtk_widget_get_sensitive(widgetOf(dialog, kPassword)));
        SendDlgItemMessageW(dialog, kTables, LB_DELETESTRING, 0, 0);
        EXPECT_EQ(rows(widgetOf(dialog, kTables)), 2);
        EXPECT_EQ(selectedRows(widgetOf(dialog, kTables)), std::vector<int>{1}) << "the selection moved with its entry";
        SendDlgItemMessageW(dialog, kTables, LB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(u"Accounts"));
        EXPECT_EQ(rows(widgetOf(dialog, kTables)), 3);
        EXPECT_EQ(selectedRows(widgetOf(dialog, kTables)), std::vector<int>{2}) << "the selection moved with its entry";
        EXPECT_EQ(SendDlgItemMessageW(dialog, kTables, LB_GETCURSEL, 0, 0), 2);
        Ostrel_ListView_InsertItem(GetDlgItem(dialog, kColumns), 0, u"created\tTIMESTAMP", u'\t', 3);
        EXPECT_EQ(rows(columns), 3);
        EXPECT_EQ(selectedRows(columns), std::vector<int>{2});
        EXPECT_EQ(SendDlgItemMessageW(dialog, kColumns, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 2);
        SendDlgItemMessageW(dialog, kProgress, PBM_SETPOS, 90, 0);
        EXPECT_DOUBLE_EQ(gtk_progress_bar_get_fraction(GTK_PROGRESS_BAR(widgetOf(dialog, kProgress))), 0.9);
        saveScreenshot(shown.window, "controls-dialog-after-input");

        clickControl(dialog, IDOK);
    }});
    EXPECT_EQ(DialogBoxParamW(module_, kDialog, nullptr, functionProcedure, reinterpret_cast<LPARAM>(&procedure)), IDOK);
    EXPECT_EQ(shownCount(), 1u);
}

TEST_F(GtkRendererControls, RefusedInputPutsTheWidgetBack) {
    // A single-selection list cannot lose its selection by a click; a procedure that
    // keeps its tab (TCN_SELCHANGING answers nonzero) keeps the notebook on it; a check
    // box that is not automatic stays as the dialog keeps it.
    Procedure procedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        if (message == WM_INITDIALOG) {
            SendDlgItemMessageW(dialog, kTables, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(u"Customers"));
            SendDlgItemMessageW(dialog, kTables, LB_SETCURSEL, 0, 0);
            TCITEMW item{};
            item.mask = TCIF_TEXT;
            for (const char16_t *text : {u"First", u"Second"}) {
                item.pszText = const_cast<char16_t *>(text);
                SendDlgItemMessageW(dialog, kTabs, TCM_INSERTITEMW, 9, reinterpret_cast<LPARAM>(&item));
            }
            SendDlgItemMessageW(dialog, kTabs, TCM_SETCURSEL, 0, 0);
            return TRUE;
        }
        if (message == WM_NOTIFY && static_cast<int32_t>(reinterpret_cast<NMHDR *>(lParam)->code) == TCN_SELCHANGING) {
            SetWindowLongPtrW(dialog, DWLP_MSGRESULT, 1);
            return TRUE;
        }
        if (message == WM_COMMAND) commands_.push_back({LOWORD(wParam), HIWORD(wParam)});
        if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(dialog, IDCANCEL);
        return message == WM_COMMAND;
    };
    onShown({[&](const automation::Shown &shown) {
        HWND dialog = shown.handle;
        gtk_tree_selection_unselect_all(gtk_tree_view_get_selection(GTK_TREE_VIEW(widgetOf(dialog, kTables))));
        EXPECT_EQ(selectedRows(widgetOf(dialog, kTables)), std::vector<int>{0});
        EXPECT_EQ(SendDlgItemMessageW(dialog, kTables, LB_GETCURSEL, 0, 0), 0);

        GtkWidget *notebook = widgetOf(dialog, kTabs);
        gtk_notebook_set_current_page(GTK_NOTEBOOK(notebook), 1);
        EXPECT_EQ(SendDlgItemMessageW(dialog, kTabs, TCM_GETCURSEL, 0, 0), 0);
        EXPECT_EQ(gtk_notebook_get_current_page(GTK_NOTEBOOK(notebook)), 0);

        // A check box the dialog checks itself (BS_CHECKBOX): the click is told, the
        // check stays as the dialog keeps it.
        HWND rememberControl = GetDlgItem(dialog, kRemember);
        SetWindowLongPtrW(rememberControl, GWL_STYLE,
                          (GetWindowLongPtrW(rememberControl, GWL_STYLE) & ~static_cast<LONG_PTR>(BS_TYPEMASK)) | BS_CHECKBOX);
        commands_.clear();
        GtkWidget *remember = widgetOf(dialog, kRemember);
        gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(remember), TRUE);
        EXPECT_TRUE(sawCommand(kRemember, BN_CLICKED));
        EXPECT_EQ(IsDlgButtonChecked(dialog, kRemember), static_cast<uint32_t>(BST_UNCHECKED));
        EXPECT_FALSE(active(remember));
        automation::pressKey(shown.window, GDK_KEY_Escape);
    }});
    EXPECT_EQ(DialogBoxParamW(module_, kDialog, nullptr, functionProcedure, reinterpret_cast<LPARAM>(&procedure)), IDCANCEL);
}

} // namespace

#endif
