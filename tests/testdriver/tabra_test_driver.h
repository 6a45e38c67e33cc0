/*
 * The test driver's control interface: C functions a test reaches by loading the
 * driver library itself (dlopen on the same path the driver manager loads, so both
 * share one instance) and looking them up with dlsym. tests/support wraps them.
 */
#ifndef TABRA_TEST_DRIVER_H
#define TABRA_TEST_DRIVER_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Statement handles allocated (SQLAllocStmt, SQLAllocHandle) and freed (SQLFreeStmt
 * with SQL_DROP, SQLFreeHandle, and those a disconnect or a freed connection took
 * with it) since the last reset. Either pointer may be null. */
void TabraTestDriver_GetStatementCounts(int64_t *allocated, int64_t *freed);

/* How many of the freed statements went implicitly with their connection. */
int64_t TabraTestDriver_GetStatementsFreedByDisconnect(void);

/* Successful connects and the disconnects (or connection frees) that ended them. */
void TabraTestDriver_GetConnectionCounts(int64_t *opened, int64_t *closed);

/* Sets every count to zero. Handles open at the time stay known: freeing them later
 * counts, so reset while nothing is open. */
void TabraTestDriver_ResetCounts(void);

/* What the last SQLConnect received for the user and the password: 1 when a value
 * (possibly empty) was passed, 0 when the pointer was null. Either pointer may be null. */
void TabraTestDriver_GetLastLogin(int32_t *userGiven, int32_t *passwordGiven);

#ifdef __cplusplus
}
#endif

#endif
