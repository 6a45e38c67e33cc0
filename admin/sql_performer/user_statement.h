// Running a statement the user typed into the SQL performer, for its effect: no rows
// are fetched. It passes the statement hook and runs strictly: only SQL_SUCCESS counts,
// confirmed by a short-lived notice; anything else, a warning (SQL_SUCCESS_WITH_INFO)
// or SQL_NO_DATA included, opens the ODBC error dialog with the statement.
#pragma once

#include "tabra_base.h"

namespace tabra::admin::sql_performer {

// true when the statement ran with SQL_SUCCESS (the notice is showing).
bool runUserStatement(SQLHDBC connection, const char16_t *statement);

} // namespace tabra::admin::sql_performer
