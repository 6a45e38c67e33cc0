/* Tabra: the administration dialogs. Each tool has its own block below. */
#ifndef TABRA_ADMIN_H
#define TABRA_ADMIN_H

#include "tabra_base.h"
#include "tabra_connection.h"

TABRA_BEGIN_DECLS

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

TABRA_END_DECLS

#endif
