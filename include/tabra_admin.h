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

/* ---- Database object chooser ----
 *
 * The library's hub dialog (104): the tables, views, forms and reports of a data
 * source on tab pages (templates 105, 106, 10003 and 10017), each page with the
 * buttons that reach the other tools for the object under the cursor: open, create,
 * copy and delete tables, the table administration, import, export, add, delete and
 * update records (each wizard on a connection of its own), the view editor (new, edit,
 * copy and delete views), and in the dialog itself the driver information, the SQL
 * performer, the data source dialog and the schema dialog. The dialog opens its own
 * connection from the request's data source and stays usable with empty lists when
 * that fails.
 *
 * Last choices below HKEY_CURRENT_USER and the library's root: "LastUsed" with
 * "SystemTables" (the tables page lists system tables, default 1) and "VrimViewsOnly"
 * (the views page lists only views made with the view editor, default 1);
 * "LastUsedDbaseSchema" with the schema last chosen per data source, named by the
 * data source's name. */

/* The request, read at start and written back at the end whatever the result. */
typedef struct DbObjectDialogRequest {
    DataSourceInfo DataSource; /* in: the data source to open; out: the one chosen last */
    DbObjectInfo DbObject;     /* in: the object to preselect (its type: the first page
                                  shown); out: the object chosen and its type */
    int32_t Action;            /* out: TABRA_CHOOSER_ACTION_* */
    int32_t PageMask;          /* TABRA_CHOOSER_PAGE_*: the pages offered */
    int32_t DialogOptions;     /* TABRA_CHOOSER_OPTION_* */
    int32_t TablesButtons;     /* TABRA_TABLES_*: buttons enabled when the page starts */
    int32_t ViewsButtons;      /* TABRA_VIEWS_* */
    int32_t FormsButtons;      /* TABRA_FORMS_* */
    int32_t ReportsButtons;    /* TABRA_REPORTS_* */
    int32_t Reserved[4];       /* the host's own; carried along, never read */
    const char16_t *Title;     /* the dialog's title, or null for the template's */
    int32_t CaptionOptions;    /* TABRA_CHOOSER_CAPTION_* */
    char16_t Schema[100];      /* in and out: the schema whose objects are listed */
} DbObjectDialogRequest;

/* Pages (PageMask), in the order shown; also the DbObjectType of their objects. */
#define TABRA_CHOOSER_PAGE_TABLES 0x1
#define TABRA_CHOOSER_PAGE_VIEWS 0x2
#define TABRA_CHOOSER_PAGE_FORMS 0x4
#define TABRA_CHOOSER_PAGE_REPORTS 0x8
/* DialogOptions: OK offered (while an object is selected), Help (9) enabled, the
 * change-data-source button (1044) shown. */
#define TABRA_CHOOSER_OPTION_OK 0x1
#define TABRA_CHOOSER_OPTION_HELP 0x2
#define TABRA_CHOOSER_OPTION_DATA_SOURCE 0x4
/* CaptionOptions: Cancel reads string 1971, OK string 1970. */
#define TABRA_CHOOSER_CAPTION_CANCEL 0x1
#define TABRA_CHOOSER_CAPTION_OK 0x2
/* Action: cancelled; OK with an object chosen; an object opened (a double click or
 * the open button of the tables, views or forms page); the second choice of the forms
 * (1039) or reports page (1035). */
#define TABRA_CHOOSER_ACTION_CANCELLED 0
#define TABRA_CHOOSER_ACTION_OK 1
#define TABRA_CHOOSER_ACTION_OPEN 2
#define TABRA_CHOOSER_ACTION_SECOND_CHOICE 3

/* Buttons of the tables page (TablesButtons). */
#define TABRA_TABLES_OPEN 0x8             /* 1043 */
#define TABRA_TABLES_CREATE 0x10          /* 1041 */
#define TABRA_TABLES_DELETE 0x20          /* 1042 */
#define TABRA_TABLES_COPY 0x40            /* 1021 */
#define TABRA_TABLES_ADMINISTER 0x80      /* 1020 */
#define TABRA_TABLES_IMPORT 0x100         /* 1019 */
#define TABRA_TABLES_EXPORT 0x200         /* 1022 */
#define TABRA_TABLES_ADD_RECORDS 0x400    /* 1023 */
#define TABRA_TABLES_DELETE_RECORDS 0x2000 /* 1025 */
#define TABRA_TABLES_UPDATE_RECORDS 0x4000 /* 1026 */
/* Buttons of the views page (ViewsButtons). */
#define TABRA_VIEWS_OPEN 0x8              /* 1019 */
#define TABRA_VIEWS_NEW 0x10              /* 1018 */
#define TABRA_VIEWS_DELETE 0x20           /* 1043 */
#define TABRA_VIEWS_COPY 0x40             /* 1023 */
#define TABRA_VIEWS_EDIT 0x80             /* 1031 */
#define TABRA_VIEWS_EXPORT 0x200          /* 1024 */
#define TABRA_VIEWS_DELETE_RECORDS 0x2000 /* 2129 */
#define TABRA_VIEWS_UPDATE_RECORDS 0x4000 /* 2130 */
/* Buttons of the forms page (FormsButtons); all but open and the second choice are
 * the host's own. */
#define TABRA_FORMS_OPEN 0x8              /* 1041 */
#define TABRA_FORMS_1038 0x10
#define TABRA_FORMS_1040 0x20
#define TABRA_FORMS_1020 0x40
#define TABRA_FORMS_SECOND_CHOICE 0x80    /* 1039 */
/* Buttons of the reports page (ReportsButtons); all but the second choice are the
 * host's own. */
#define TABRA_REPORTS_1034 0x10
#define TABRA_REPORTS_1037 0x20
#define TABRA_REPORTS_1036 0x40
#define TABRA_REPORTS_SECOND_CHOICE 0x80  /* 1035 */
#define TABRA_REPORTS_1038 0x800
#define TABRA_REPORTS_1039 0x1000

/* Shows the dialog for the request. 1 when it was left by OK or by opening an object,
 * 2 when cancelled (also for a null request, and with message 1600 when its working
 * copy cannot be had). */
TABRA_API int32_t Tabra_DbObjectDialog(DbObjectDialogRequest *request);
/* The procedures of the dialog and of its four pages. */
TABRA_API INT_PTR DbObjectDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR DbObject_Tables_SubDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR DbObject_Views_SubDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR DbObject_Forms_SubDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR DbObject_Reports_SubDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
/* ---- end of the database object chooser ---- */

TABRA_END_DECLS

#endif
