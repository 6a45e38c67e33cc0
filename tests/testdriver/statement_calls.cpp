// Preparing and executing statements: statements matching the data source's
// FailPattern are refused with its FailState before the real driver sees them, with
// ExecInfo every plainly successful execution succeeds with information, and with
// NoRowsNoData an UPDATE or DELETE that changed nothing answers SQL_NO_DATA.
#include "driver_entry.h"
#include "handle_registry.h"

namespace tabra::testdriver {
namespace {

SQLRETURN refuse(SQLHSTMT statement, const DataSourceSettings &settings, const SQLCHAR *text, SQLINTEGER length) {
    injectDiagnostic(statement, SQL_ERROR,
                     {settings.failState, 1,
                      "[TabraTestDriver]Statement refused for the test: " + odbcString(text, length)});
    return SQL_ERROR;
}

SQLRETURN executed(SQLHSTMT statement, const DataSourceSettings &settings, SQLRETURN rc) {
    if (rc != SQL_SUCCESS || settings.execInfoState.empty()) return rc;
    injectDiagnostic(statement, SQL_SUCCESS_WITH_INFO,
                     {settings.execInfoState, 0, "[TabraTestDriver]Executed with information " + settings.execInfoState});
    return SQL_SUCCESS_WITH_INFO;
}

} // namespace
} // namespace tabra::testdriver

using namespace tabra::testdriver;

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLExecDirect(SQLHSTMT StatementHandle, SQLCHAR *StatementText,
                                                    SQLINTEGER TextLength) {
    enter("SQLExecDirect", StatementHandle);
    DataSourceSettings settings = statementSettings(StatementHandle);
    if (settings.refusesStatement(StatementText, TextLength))
        return refuse(StatementHandle, settings, StatementText, TextLength);
    SQLRETURN rc = TABRA_REAL(SQLExecDirect)(StatementHandle, StatementText, TextLength);
    SQLLEN changed = -1;
    if (rc == SQL_SUCCESS && settings.answersNoData(StatementText, TextLength) &&
        TABRA_REAL(SQLRowCount)(StatementHandle, &changed) == SQL_SUCCESS && changed == 0)
        return SQL_NO_DATA;
    return executed(StatementHandle, settings, rc);
}

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLPrepare(SQLHSTMT StatementHandle, SQLCHAR *StatementText,
                                                 SQLINTEGER TextLength) {
    enter("SQLPrepare", StatementHandle);
    DataSourceSettings settings = statementSettings(StatementHandle);
    if (settings.refusesStatement(StatementText, TextLength))
        return refuse(StatementHandle, settings, StatementText, TextLength);
    return TABRA_REAL(SQLPrepare)(StatementHandle, StatementText, TextLength);
}

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLExecute(SQLHSTMT StatementHandle) {
    enter("SQLExecute", StatementHandle);
    DataSourceSettings settings = statementSettings(StatementHandle);
    return executed(StatementHandle, settings, TABRA_REAL(SQLExecute)(StatementHandle));
}
