// The table administration's entry point for the library's other tools
// (Tabra_TableAdmin is the exported shell over it).
#pragma once

#include <sql.h>

#include <cstdint>

namespace tabra::admin::table_admin {

// Shows the dialog for table (up to 49 characters are used) on the connection: 0 after
// it closed, -1 when its working record could not be had (message 1600).
int32_t runTableAdmin(SQLHDBC connection, const char16_t *table, int32_t callerValue = 0);

} // namespace tabra::admin::table_admin
