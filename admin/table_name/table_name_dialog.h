// The table name dialog as the library's tools open it: a name for a new table that
// is not empty and that no table or view of the connection has (TableNameCtx,
// tabra_admin.h, is its record).
#pragma once

#include <sql.h>

#include <cstdint>

namespace tabra::admin {

// Shows dialog templateId (10002, or another template with the same controls) over the
// active window with the proposed name in name. option may be null; otherwise it names
// the radio button to check (1005 or 1006) and receives the one checked. On OK the
// accepted name is copied into name, at most capacity characters (a name of capacity
// characters or more is not terminated). 1 when a name was accepted, 2 when the user
// cancelled, name or capacity were unusable or the template is missing.
int32_t runTableNameDialog(int32_t templateId, SQLHDBC connection, char16_t *name, int32_t capacity, int32_t *option);

} // namespace tabra::admin
