/* Tabra: the administration dialogs. Each tool has its own block below. */
#ifndef TABRA_ADMIN_H
#define TABRA_ADMIN_H

#include "tabra_base.h"
#include "tabra_connection.h"

TABRA_BEGIN_DECLS

/* ---- SQL performer ----
 *
 * A small modal console: the user types one SQL statement (up to 999 characters) and
 * runs it for its effect (CREATE, DROP, ALTER, INSERT, UPDATE, DELETE, ...); no rows
 * are shown. Only SQL_SUCCESS counts as success and is confirmed by a short-lived
 * notice; any other result, a warning or SQL_NO_DATA included, opens the ODBC error
 * dialog with the statement, and the performer stays open for a correction. Every
 * statement passes the statement hook (Ostrel_DumpSqlStatement) first.
 *
 * The performer keeps the last 20 statements run, newest first, for the user to take
 * again; both variants share one history, below HKEY_CURRENT_USER in
 * "Software\Ostrel Software\Tabra\SqlPerformer\Recent" ("Total" and "E001", "E002",
 * ..., each a statement in the one-line form of Ostrel_EncodeString). Its SQL help
 * offers example statements to take into the statement field.
 *
 * A host may send the performer command 99 (WM_COMMAND) to fill the statement field
 * from the setting "Sql" of the key "Parameters" below the library's registry root. */

/* The performer on a data source record: it connects for each statement run and
 * disconnects after it; a button runs the data source dialog on the record, which is
 * then changed in place. Dialog 101. Returns 2 when the dialog was shown and closed
 * (there is nothing to hand back), also for a null record. */
TABRA_API int32_t Tabra_DialogSqlPerformer(DataSourceInfo *record);
/* The performer on the caller's connection, which it never opens or closes. Dialog
 * 10058. Returns 2 as Tabra_DialogSqlPerformer does, also for a null handle. */
TABRA_API int32_t Tabra_SqlPerformer(SQLHDBC connection);
/* Their dialog procedures; the dialog parameter is the record and the connection
 * handle. */
TABRA_API INT_PTR SqlPerformerDs_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR SqlPerformerHdbc_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
/* The SQL help (dialog 10037); its parameter is the window handle of the performer
 * whose statement field (control 1003) takes the chosen example on OK or a double
 * click (result 1); Cancel gives 2. */
TABRA_API INT_PTR SqlHelpCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);

/* ---- end of the SQL performer ---- */

/* ---- Driver information ----
 *
 * A modal dialog (10061) of what the ODBC driver reports about the open connection:
 * the database product's name and version, the ODBC version the driver supports, the
 * driver's version, the data source's name, the identifier quote character (shown with
 * its code, in decimal and hexadecimal) and the database's name. Each text is what the
 * driver answers (SQLGetInfoW, the texts asked with 100 bytes of room, at most 49
 * characters; the quote character with 10 bytes); an answer the driver does not give
 * leaves its field empty. Nothing can be changed; OK and Cancel close it. The dialog is
 * owned by parent (none when null). */
TABRA_API void Tabra_DisplayDriverInformation(SQLHDBC connection, HWND parent);
/* Its dialog procedure; the dialog parameter points at the connection handle. */
TABRA_API INT_PTR OdbcInfoCtlDialogCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
/* ---- end of driver information ---- */

/* ---- Table name ----
 *
 * A modal dialog that asks for the name of a new table and refuses names that are
 * empty (message 1610) or that a table or view of the connection already has, in any
 * letter case (message 1616; also when the catalog cannot be read): the user stays in
 * the dialog. Its name field is 1003; a template may add two radio buttons (1005, 1006)
 * whose meaning is the caller's. The database object dialog opens it with template
 * 10002, which has none.
 *
 * The dialog's record, in this order: the connection whose catalog is searched; the
 * name buffer, which holds the proposed name and receives the accepted one; its
 * capacity in characters (the copy is cut there: a name of capacity characters or more
 * is not terminated, so pass a buffer larger than any name you accept); and a pointer
 * to the radio button to check on opening (1005 or 1006), which receives the one
 * checked on OK (left alone when the template has neither), or null. A record
 * without a name buffer or with a capacity below 1 closes the dialog at once with 2.
 * A name of blanks only counts as empty. */
typedef struct TableNameCtx {
    SQLHDBC hdbc;
    char16_t *name;
    int32_t capacity;
    int32_t *option;
} TableNameCtx;
/* Its dialog procedure; the dialog parameter points at the record. OK ends the dialog
 * with 1 once the name is accepted, Cancel with 2. */
TABRA_API INT_PTR TableNameDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
/* ---- end of table name ---- */
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
