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

TABRA_END_DECLS

#endif
