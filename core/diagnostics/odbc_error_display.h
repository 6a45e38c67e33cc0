// Showing an ODBC failure: the first diagnostic record of a handle in the ODBC error
// dialog, modally over the active window, with the statement that failed. The
// exported Tabra_DisplayError* and OdbcEh_HandleError* entry points and the statement
// runner all come here.
#pragma once

#include <sql.h>

#include <cstdint>

namespace tabra::diagnostics {

// handleType is SQL_HANDLE_ENV, SQL_HANDLE_DBC or SQL_HANDLE_STMT; statementText may be
// null. Returns 1 when the dialog was closed with OK or the handle held no record
// (nothing is shown then), 2 when it was closed with Cancel.
int32_t showOdbcError(SQLSMALLINT handleType, SQLHANDLE handle, const char16_t *statementText);

} // namespace tabra::diagnostics
