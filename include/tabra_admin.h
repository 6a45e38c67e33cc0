/* Tabra: the administration dialogs. Each tool has its own block below. */
#ifndef TABRA_ADMIN_H
#define TABRA_ADMIN_H

#include "tabra_base.h"
#include "tabra_connection.h"

TABRA_BEGIN_DECLS

/* ---- Table administration ----
 *
 * One table's structure in a modal dialog (10009): its columns with type, null
 * values, default and remarks, its primary key and its auto-increment column. The user
 * adds a column of a chosen type (dialog 10010), adds an auto-increment column (10057),
 * deletes columns (asked column by column: Yes drops it, No skips it, Cancel stops),
 * adds a primary key over chosen NOT NULL columns (10059) and drops the primary key;
 * the right mouse button on the column list offers adding and deleting columns (menu
 * 113). What the database allows, and the statements for it, come from the library's
 * table of databases: where a database cannot do something the user is told so before
 * anything runs. Every change statement passes the statement hook
 * (Ostrel_DumpSqlStatement); only SQL_SUCCESS counts, anything else opens the ODBC
 * error dialog with the statement, and the dialog stays open.
 *
 * On SQLite, whose ALTER TABLE cannot add or drop a primary key or add a key column,
 * those changes rebuild the table in one transaction (a new table with the changed
 * definition, every row copied, the old table replaced, its indexes and triggers made
 * again); a failure, or a statement the hook declines, leaves the table as it was. The
 * connection must then commit each statement itself (autocommit, the ODBC default).
 *
 * Closing the dialog deletes the key ".Default\Software\Ostrel Software\Order By
 * Clauses" below HKEY_USERS (stored sort clauses that may name deleted columns). */

/* Shows the dialog for table (up to 49 characters are used) on the caller's
 * connection; callerValue is kept and not used. Returns 0 after the dialog closed, -1
 * when its working record could not be had (message 1600). */
TABRA_API int32_t Tabra_TableAdmin(SQLHDBC connection, const char16_t *table, int32_t callerValue);
/* The dialog procedures of the main dialog and of the sub-dialogs for a new column, a
 * new auto-increment column and a new primary key. */
TABRA_API INT_PTR TableAdmin_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR AddColumn_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR AddAutoInc_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR AddPk_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);

/* ---- end of the table administration ---- */

TABRA_END_DECLS

#endif
