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

/* ---- Create table ----
 *
 * Creates a new, empty table in one of three ways, chosen on the wizard's first page:
 * - a table of one auto-increment key column named Id ("CREATE TABLE <name> (Id
 *   <the database's auto-increment type>)"); offered only where the database has an
 *   auto-increment column type;
 * - an empty copy of another table's structure (its column names and types, no rows,
 *   no keys); offered only where the database can copy tables;
 * - the default column definition of the resource library (string 2161, translated)
 *   with an Id key column where the database has an auto-increment type, added by
 *   ALTER TABLE or, where ALTER TABLE cannot add a key column (SQLite), declared last in
 *   the CREATE TABLE itself. Where the key column cannot be added after the table was
 *   made, the table stays and the wizard answers 2.
 * The next pages ask for the source table (copies only) and the new name, proposed
 * from string 1965 and made unique; an empty name gives message 1625, a name a table or
 * view has message 1616, and the user stays on the page. The chosen way ("Type") and
 * source ("Copy") are remembered under the library's registry key "Create Table" as
 * soon as their pages are left, even when the wizard is cancelled afterwards. Every
 * statement passes the statement hook (any answer but 1 ends the wizard with 2
 * quietly) and counts as done only with SQL_SUCCESS; failures show the statement's
 * diagnostics. A way the database cannot do gives message 1642.
 *
 * Returns 1 when the table was created: nameBuffer (nameSize characters, cut to fit)
 * then holds its name. 2 otherwise, also for a null connection; nameBuffer is then
 * untouched. */
TABRA_API int32_t Tabra_CreateTableWizzard(SQLHDBC connection, char16_t *nameBuffer, int32_t nameSize);
TABRA_API INT_PTR CreateTableWizzCallback(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                                          LPARAM lParam);
/* ---- end of create table ---- */
/* ---- Import ----
 *
 * Load the records of an outside source into a new table of the connection, which the
 * import creates. The sources: a delimited text file, an SDI file, a selection file,
 * or a table of another data source (the wizard opens its own connection to it, closed
 * whatever way the wizard ends). The pages: the kind of source ("Step n of m" counts
 * the pages of that kind), the file and its format or the data source and table, the
 * fields (each source field becomes a column: name, type, length, imported or not, the
 * auto-increment column, values that name files whose contents are imported; the
 * columns' order), the new table's name (proposed from the source, unique), and a
 * closing page. After Finish the wizard creates the table with one CREATE TABLE and
 * inserts every row; each statement passes the statement hook (Ostrel_DumpSqlStatement;
 * any answer but 1 stops quietly). A file that cannot be opened gives message 1615 and
 * creates no table; a failing CREATE TABLE gives 2.
 *
 * Rows go in transactions committed every few thousand rows and at the end (the
 * connection's autocommit state is restored), several rows per INSERT where the
 * database takes that; with the statement display switched on (Ostrel_GetDumpState) one
 * row per statement. A failing INSERT stops the import: the rows before it are in the
 * table, its diagnostics are shown with its statement and the record's number is told
 * (message 1651). The user may abort under the progress indicator: the rows so far are
 * kept. A value that cannot be converted (a date that cannot be read, a number that is
 * none) stays NULL and stops the import after its row (message 1652). The result is 1
 * also after such a stop.
 *
 * Files are read, never changed: UTF-16 (as the export writes them) or UTF-8, by their
 * byte-order mark or their first bytes, other 8-bit lines as Latin-1. The last choices
 * are kept per user in the key "Import" ("Type", "TextFile", "SdiFile", "SelFile",
 * "Table" and the data source); the telephone/fax converter of SDI files takes its
 * settings from the key "Software\Ostrel Software\Lumo\Settings".
 *
 * On 1 the new table's name is copied into tableName (cut to capacity - 1 characters;
 * nothing when tableName is null or capacity below 1). */
TABRA_API int32_t Tabra_ImportTableWizzard(SQLHDBC connection, char16_t *tableName, int32_t capacity);
TABRA_API INT_PTR ImportWizzCallback(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                                     LPARAM lParam);
/* The field dialog (template 10031): its creation parameter is the wizard's field. */
TABRA_API INT_PTR EditImportFieldDialogCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);

/* ---- end of Import ---- */
/* ---- Add records ----
 *
 * Copies the rows of a table of a second data source (the source) into a table of the
 * caller's connection (the destination). The pages ask for the destination table (the
 * tables of the record's DbObjectType, TABLE when it is 0; its DbObjectName chosen), the
 * source data source and login (the wizard opens its own connection to it and closes it
 * on every path), the source table, where each destination column takes its value from
 * (NULL, a constant, or a source column; at first the source column of the same name,
 * compared without regard to case; auto-increment and read-only columns are never
 * written), and optionally a pair of id fields: a source row whose id is in the
 * destination then UPDATEs those records (all of them), any other row is INSERTed. A
 * constant is written between single quotes as it stands (a quote in it is not
 * doubled), a source value as an SQL literal, numbers bare.
 *
 * After Finish every source row is written on the caller's connection in transactions
 * committed in groups and at the end (the connection's autocommit state is restored);
 * each statement passes the statement hook (Ostrel_DumpSqlStatement; any answer but 1
 * stops quietly). A failing statement stops the copy with its diagnostics shown: the
 * rows before it are kept. The user may abort under the progress indicator (title
 * 2901): the rows so far are kept. The result is 1 after such stops too, 2 when the
 * wizard was cancelled or the source could not be read. Choices are kept per user in
 * the key "AddRecords" (the data source, "Table", "SourceIdField", "DestIdField").
 * On 1 the parameter block, when given, receives the wizard's copy of it whole (144
 * bytes: the destination table in DbObjectName). */
TABRA_API int32_t Tabra_AddRecordsWizzard(SQLHDBC connection, DbObjectInfo *parameterBlock);
TABRA_API INT_PTR AddRecsWizzCallback(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                                      LPARAM lParam);
/* The field dialog (template 10035): where one destination column takes its value from. */
TABRA_API INT_PTR EditAddRecFieldDialogCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);

/* ---- end of Add records ---- */
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
