// The control interface tests call directly (see tabra_test_driver.h).
#include "tabra_test_driver.h"

#include "handle_registry.h"

#define TABRA_CONTROL_EXPORT extern "C" __attribute__((visibility("default")))

using namespace tabra::testdriver;

TABRA_CONTROL_EXPORT void TabraTestDriver_GetStatementCounts(int64_t *allocated, int64_t *freed) {
    StatementCounts counts = statementCounts();
    if (allocated) *allocated = counts.allocated;
    if (freed) *freed = counts.freed;
}

TABRA_CONTROL_EXPORT int64_t TabraTestDriver_GetStatementsFreedByDisconnect(void) {
    return statementCounts().freedByDisconnect;
}

TABRA_CONTROL_EXPORT void TabraTestDriver_GetConnectionCounts(int64_t *opened, int64_t *closed) {
    ConnectionCounts counts = connectionCounts();
    if (opened) *opened = counts.opened;
    if (closed) *closed = counts.closed;
}

TABRA_CONTROL_EXPORT void TabraTestDriver_ResetCounts(void) { resetCounts(); }
