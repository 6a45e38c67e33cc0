// The SQL performer's entry point for the library's other tools (Tabra_SqlPerformer
// is the exported shell over it).
#pragma once

#include <sql.h>

#include <cstdint>

namespace tabra::admin::sql_performer {

// The performer on the caller's connection, which it never opens or closes; 2 when it
// was shown and closed, also for a null handle.
int32_t runSqlPerformer(SQLHDBC connection);

} // namespace tabra::admin::sql_performer
