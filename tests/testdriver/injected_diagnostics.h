// Diagnostic records the test driver adds to a handle when it changes a result (an
// informational connect or execution, a refused statement, a cut info text).
//
// While a handle holds injected records, the diagnostic calls (SQLError, SQLGetDiagRec,
// SQLGetDiagField) answer from them alone; the real driver's records are not shown,
// since the real driver either was not called or returned plain success. The next
// call on the handle other than a diagnostic call clears them, as ODBC clears a
// handle's diagnostics.
#pragma once

#include <sql.h>

#include <optional>
#include <string>

namespace tabra::testdriver {

struct InjectedRecord {
    std::string state;
    SQLINTEGER nativeError = 0;
    std::string message;
};

void injectDiagnostic(SQLHANDLE handle, SQLRETURN returnCode, InjectedRecord record);
void clearInjectedDiagnostics(SQLHANDLE handle);
bool hasInjectedDiagnostics(SQLHANDLE handle);

// Record `number` (1-based) of the handle, or nothing.
std::optional<InjectedRecord> injectedRecord(SQLHANDLE handle, SQLSMALLINT number);
SQLINTEGER injectedRecordCount(SQLHANDLE handle);
SQLRETURN injectedReturnCode(SQLHANDLE handle);

// The next record for SQLError, which consumes records one by one.
std::optional<InjectedRecord> takeInjectedRecord(SQLHANDLE handle);

} // namespace tabra::testdriver
