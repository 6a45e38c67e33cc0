// What every entry point of the test driver shares: the export marker and the call
// trace (TABRA_TESTDRIVER_TRACE=1 prints each call the driver manager makes, which
// shows how it dispatches, e.g. which diagnostic calls it uses).
#pragma once

#include "injected_diagnostics.h"
#include "real_driver.h"

#define TABRA_DRIVER_EXPORT extern "C" __attribute__((visibility("default")))

namespace tabra::testdriver {

void trace(const char *function, const void *handle);

// The start of every call except the diagnostic ones: trace it and clear the
// records the driver injected into the handle by an earlier call.
inline void enter(const char *function, SQLHANDLE handle) {
    trace(function, handle);
    clearInjectedDiagnostics(handle);
}

} // namespace tabra::testdriver
