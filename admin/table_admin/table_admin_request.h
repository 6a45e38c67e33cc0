// The working record of one table administration dialog and what its actions share:
// the change statements, the displays that are read again after each change, and the
// list of columns.
#pragma once

#include "core/odbc/statement_runner.h"
#include "tabra_window.h"

#include <sql.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tabra::admin::table_admin {

inline constexpr int32_t kTableNameCapacity = 50;

struct TableAdminRequest {
    SQLHDBC connection = SQL_NULL_HDBC;
    char16_t table[kTableNameCapacity] = {}; // copied from the caller
    int32_t callerValue = 0;                 // kept, not used by the dialog
    HWND dialog = nullptr;                   // while the dialog exists
    HWND columns = nullptr;                  // its column list
};

// Runs a statement that changes the table: it passes the statement hook, and only
// SQL_SUCCESS counts; any other answer is shown with the statement. Done, Refused
// (the hook declined it, nothing shown) or Failed.
odbc::RunResult runChangeStatement(SQLHDBC connection, const std::u16string &text);

// ---- The column list (column_list.cpp) ----

// Fills the list with the table's columns from the catalog: name, type, null values,
// default and remarks.
void fillColumnList(const TableAdminRequest &request);
// The names of the selected rows and their positions, in list order.
struct SelectedColumn {
    int32_t row;
    std::u16string name;
};
std::vector<SelectedColumn> selectedColumns(HWND list);
int32_t selectedCount(HWND list);
// Selects and focuses one row alone and scrolls it into view; -1 selects nothing.
void selectRow(HWND list, int32_t row);
// The row of a column by its name (any case), or -1.
int32_t findColumnRow(HWND list, const std::u16string &name);

// ---- The main dialog (table_admin_dialog.cpp) ----

// Shows the key's columns and the auto-increment column again.
void refreshKeyDisplays(const TableAdminRequest &request);
// Fills the list again and selects the column of that name (none: nothing).
void refreshAfterNewColumn(const TableAdminRequest &request, const std::u16string &column);
// Enables "delete columns" while a row is selected.
void updateDeleteButton(const TableAdminRequest &request);

// ---- The actions, each with its sub-dialog where it has one ----

void addColumn(TableAdminRequest &request);              // add_column_dialog.cpp
void addAutoIncrementColumn(TableAdminRequest &request); // add_auto_increment_dialog.cpp
void addPrimaryKey(TableAdminRequest &request);          // primary_key_changes.cpp
void dropPrimaryKey(TableAdminRequest &request);         // primary_key_changes.cpp
void deleteColumns(TableAdminRequest &request);          // table_admin_dialog.cpp

} // namespace tabra::admin::table_admin
