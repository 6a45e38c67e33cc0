/* Tabra: the data wizards.
 *
 * Each wizard runs modally in the wizard frame (ostrel_wizard.h) over the active
 * window, on the caller's open connection: its pages ask what to do, and only after
 * the last page does it change anything. Wizards spell "Wizzard" with a double z.
 * Every wizard's entry point returns 1 when the user finished it and the work was
 * done, 2 otherwise (cancelled, failed: failures are shown where they happen, or no
 * memory: message 1600). The page procedures are exported under their own names; the
 * frame calls them, a host does not. One section per wizard. */
#ifndef TABRA_WIZARDS_H
#define TABRA_WIZARDS_H

#include "tabra_base.h"
#include "ostrel_wizard.h"
#include "tabra_connection.h"

TABRA_BEGIN_DECLS

/* ---- Update and delete records ----
 *
 * Change or remove many records of one table at once without writing SQL: choose the
 * table (the tables of the record's DbObjectType, the record's DbObjectName chosen),
 * state which records (up to five conditions that all hold: column, operator, value),
 * for an update which columns get which values (up to three: set empty, to a value, to
 * a column, to an expression), and see how many records that are. The wizard then runs
 * one statement, "DELETE from <table> [WHERE (<condition>)]" or "UPDATE <table> SET
 * <assignments> [WHERE (<condition>)]", with the names quoted for the database: an
 * empty condition changes EVERY record. The statement passes the statement hook
 * (Ostrel_DumpSqlStatement; any answer but 1 cancels it quietly) and counts as done
 * only when the driver answers SQL_SUCCESS: anything else, an informational answer
 * and SQL_NO_DATA included, shows the statement's diagnostics with its text.
 *
 * The delete wizard deletes after Finish; 1 only when the statement succeeded. The
 * update wizard updates when its confirmation page is left (a failure keeps the user
 * there, to go back and change his input) and ends on a result page; 1 after Finish.
 * On 1 the object record, when given, receives the wizard's copy of it whole (144
 * bytes: the chosen table in DbObjectName); on 2 it is untouched. Without a record the
 * wizard lists the tables (TABRA_OBJECT_TABLE), the first one chosen. callerValue is kept
 * and not used. */
TABRA_API int32_t Tabra_DeleteRecordsWizzard(SQLHDBC connection, DbObjectInfo *objectRecord, int32_t callerValue);
TABRA_API int32_t Tabra_UpdateRecordsWizzard(SQLHDBC connection, DbObjectInfo *objectRecord, int32_t callerValue);
TABRA_API INT_PTR DelRecsWizzCallback(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                                      LPARAM lParam);
TABRA_API INT_PTR UpdRecsWizzCallback(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                                      LPARAM lParam);

/* ---- Export ----
 *
 * Copy the records of one table into a delimited text file. The pages: the table (the
 * tables of the record's DbObjectType, the record's DbObjectName chosen), the columns
 * to write and the heading of each (a list with a context menu and a dialog per
 * column), which records (up to five conditions that all hold; at least one record
 * must match), the file and its format (separator: tab, blank, none or a character of
 * the user's; decimal character: comma, point or the user's; a character put before
 * and after every value; a header line of the headings), and a summary. After Finish
 * the wizard runs one SELECT of the chosen columns (no ORDER BY: rows come in the
 * database's order) and writes at most as many rows as it counted.
 *
 * The file is UTF-16 little-endian text without a byte-order mark; lines end with CR
 * LF (0D 00 0A 00). Values are written as the database gives them as text, numbers
 * with the chosen decimal character and dates (ODBC 2 date, time and timestamp
 * columns) in the user's date format; delimiters inside values are neither doubled
 * nor escaped, and a NULL writes nothing, not even the delimiters, only its
 * separator. The user may abort under the progress indicator: the rows written so far
 * stay, the last one without its line end. A failing read ends the rows the same way
 * after showing the error; both still answer 1. The file replaces an existing one only
 * when it has been written; a file that cannot be written is left as it was (message
 * 1637 access denied, 1638 any other failure, 1639 exists, 1640 too many open files).
 * The last file name is kept per user ("FileName" in the key "Export").
 *
 * The parameter block must be given (2 otherwise). On 1 it receives the wizard's copy
 * of the record whole (144 bytes: the chosen table in DbObjectName); on 2 it is
 * untouched. callerValue is kept and not used. */
TABRA_API int32_t Tabra_ExportWizzard(SQLHDBC connection, DbObjectInfo *parameterBlock, int32_t callerValue);
TABRA_API INT_PTR ExportWizzCallback(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                                     LPARAM lParam);
/* The field dialog (template 10055): its creation parameter is the wizard's field. */
TABRA_API INT_PTR EditExportFieldDialogCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);

/* ---- end of Export ---- */

TABRA_END_DECLS

#endif
