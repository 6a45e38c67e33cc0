// Handles, connecting and disconnecting: where the driver learns a connection's
// settings and counts the statement handles allocated and freed on every path
// (SQLAllocStmt, SQLAllocHandle, SQLFreeStmt(SQL_DROP), SQLFreeHandle, and the
// statements a disconnect frees implicitly).
#include "driver_entry.h"
#include "handle_registry.h"

#include <atomic>

namespace tabra::testdriver {
namespace {

// Whether the last SQLConnect got a user and a password at all (not null).
std::atomic<int32_t> lastUserGiven{-1};
std::atomic<int32_t> lastPasswordGiven{-1};

bool succeeded(SQLRETURN rc) { return rc == SQL_SUCCESS || rc == SQL_SUCCESS_WITH_INFO; }

// After a successful connect: remember the settings and, when the data source asks
// for it, turn plain success into success with information.
SQLRETURN connected(SQLHDBC connection, SQLRETURN rc, DataSourceSettings settings) {
    if (!succeeded(rc)) return rc;
    std::string infoState = settings.connectInfoState;
    connectionOpened(connection, std::move(settings));
    if (rc != SQL_SUCCESS || infoState.empty()) return rc;
    injectDiagnostic(connection, SQL_SUCCESS_WITH_INFO,
                     {infoState, 0, "[TabraTestDriver]Connected with information " + infoState});
    return SQL_SUCCESS_WITH_INFO;
}

} // namespace
} // namespace tabra::testdriver

using namespace tabra::testdriver;

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLAllocHandle(SQLSMALLINT HandleType, SQLHANDLE InputHandle,
                                                     SQLHANDLE *OutputHandle) {
    enter("SQLAllocHandle", InputHandle);
    SQLRETURN rc = TABRA_REAL(SQLAllocHandle)(HandleType, InputHandle, OutputHandle);
    if (HandleType == SQL_HANDLE_STMT && succeeded(rc) && OutputHandle) statementAllocated(InputHandle, *OutputHandle);
    return rc;
}

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLAllocStmt(SQLHDBC ConnectionHandle, SQLHSTMT *StatementHandle) {
    enter("SQLAllocStmt", ConnectionHandle);
    SQLRETURN rc = TABRA_REAL(SQLAllocStmt)(ConnectionHandle, StatementHandle);
    if (succeeded(rc) && StatementHandle) statementAllocated(ConnectionHandle, *StatementHandle);
    return rc;
}

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLFreeStmt(SQLHSTMT StatementHandle, SQLUSMALLINT Option) {
    enter("SQLFreeStmt", StatementHandle);
    SQLRETURN rc = TABRA_REAL(SQLFreeStmt)(StatementHandle, Option);
    if (Option == SQL_DROP && succeeded(rc)) statementFreed(StatementHandle);
    return rc;
}

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLFreeHandle(SQLSMALLINT HandleType, SQLHANDLE Handle) {
    enter("SQLFreeHandle", Handle);
    SQLRETURN rc = TABRA_REAL(SQLFreeHandle)(HandleType, Handle);
    if (succeeded(rc)) {
        if (HandleType == SQL_HANDLE_STMT) statementFreed(Handle);
        if (HandleType == SQL_HANDLE_DBC) connectionReleased(Handle);
    }
    return rc;
}

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLFreeConnect(SQLHDBC ConnectionHandle) {
    enter("SQLFreeConnect", ConnectionHandle);
    SQLRETURN rc = TABRA_REAL(SQLFreeConnect)(ConnectionHandle);
    if (succeeded(rc)) connectionReleased(ConnectionHandle);
    return rc;
}

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLConnect(SQLHDBC ConnectionHandle, SQLCHAR *ServerName,
                                                 SQLSMALLINT NameLength1, SQLCHAR *UserName,
                                                 SQLSMALLINT NameLength2, SQLCHAR *Authentication,
                                                 SQLSMALLINT NameLength3) {
    enter("SQLConnect", ConnectionHandle);
    DataSourceSettings settings = readDataSourceSettings(odbcString(ServerName, NameLength1));
    lastUserGiven = UserName != nullptr;
    lastPasswordGiven = Authentication != nullptr;
    SQLRETURN rc = TABRA_REAL(SQLConnect)(ConnectionHandle, ServerName, NameLength1, UserName, NameLength2,
                                          Authentication, NameLength3);
    return connected(ConnectionHandle, rc, std::move(settings));
}

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLDriverConnect(SQLHDBC hdbc, SQLHWND hwnd, SQLCHAR *szConnStrIn,
                                                       SQLSMALLINT cbConnStrIn, SQLCHAR *szConnStrOut,
                                                       SQLSMALLINT cbConnStrOutMax, SQLSMALLINT *pcbConnStrOut,
                                                       SQLUSMALLINT fDriverCompletion) {
    enter("SQLDriverConnect", hdbc);
    DataSourceSettings settings = readConnectionStringSettings(odbcString(szConnStrIn, cbConnStrIn));
    SQLRETURN rc = TABRA_REAL(SQLDriverConnect)(hdbc, hwnd, szConnStrIn, cbConnStrIn, szConnStrOut,
                                                cbConnStrOutMax, pcbConnStrOut, fDriverCompletion);
    return connected(hdbc, rc, std::move(settings));
}

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLDisconnect(SQLHDBC ConnectionHandle) {
    enter("SQLDisconnect", ConnectionHandle);
    SQLRETURN rc = TABRA_REAL(SQLDisconnect)(ConnectionHandle);
    if (succeeded(rc)) connectionClosed(ConnectionHandle);
    return rc;
}

extern "C" __attribute__((visibility("default"))) void TabraTestDriver_GetLastLogin(int32_t *userGiven,
                                                                                   int32_t *passwordGiven) {
    if (userGiven) *userGiven = lastUserGiven;
    if (passwordGiven) *passwordGiven = lastPasswordGiven;
}
