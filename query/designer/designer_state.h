// The designer dialog's working record and what its parts ask of each other. The
// dialog (template 10064, designer_dialog.cpp) holds a tab page per list: tables
// (tables_page.cpp), result columns (columns_page.cpp), selection (selection_page.cpp)
// and sort order (sort_page.cpp), with the statement below them; the join dialog
// (join_dialog.cpp) and the column dialog (column_dialog.cpp) edit one entry. Every
// part changes the design in place and then calls designChanged.
#pragma once

#include "query/designer/designer_catalog.h"
#include "query/designer/query_design.h"

#include <array>
#include <cstdint>
#include <string>

namespace tabra::query::designer {

enum class Page { Tables, Columns, Selection, SortOrder };
inline constexpr size_t kPageCount = 4;

struct DesignerState {
    explicit DesignerState(QueryDesign &design) : design(design), catalog(design.connection) {}

    QueryDesign &design; // the copy Tabra_SelFact_Edit hands the dialog
    DesignerCatalog catalog;
    HWND dialog = nullptr;
    std::array<HWND, kPageCount> pages{}; // in the order of Page
};

// What a change touched: the statement alone; the tables, whose columns every page
// offers (and which a removal or a new alias changes in the other lists too); or the
// schema, which every list is offered from.
enum class Changed { Statement, Tables, Schema };

// Shows the statement again, and after a change of the tables or the schema every
// page too.
void designChanged(DesignerState &state, Changed what);

// Fills a page from the design (what it offers and the design's list), keeping the
// chosen entry where it can.
void showPage(DesignerState &state, Page page);

// Fills the selection page from the design (its rows show the selection).
void showSelectionPage(HWND page, DesignerState &state);

// The join dialog on table `index`; true when the user changed the table.
bool editTable(HWND owner, DesignerState &state, size_t index);
// The column dialog on a result column; true when the user confirmed it.
bool editColumn(HWND owner, DesignerState &state, ColumnEntry &column);

// An editable combo box shows the text, with the entry of that text chosen when it
// has one.
void showInBox(HWND dialog, int32_t id, const std::u16string &text);

// A text of the resource library, translated.
std::u16string designerText(int32_t stringId);

// The text of a dialog's control, up to an item's length (kItemLength).
std::u16string controlText(HWND dialog, int32_t id);

// The longest alias the join and column dialogs take.
inline constexpr int32_t kAliasLength = 99;

// Runs the designer dialog over parent on the design: 1 after OK, 2 after Cancel (or
// when the dialog cannot be shown).
int32_t runDesignerDialog(HWND parent, QueryDesign &design);

} // namespace tabra::query::designer
