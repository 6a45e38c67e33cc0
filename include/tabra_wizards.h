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

TABRA_END_DECLS

#endif
