// The ODBC catalog calls as the table and column readers make them: a schema that is
// blank is passed as absent, and a table-type list as the type flags ask.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstdint>

namespace tabra::catalog {

// SQLTablesW for every catalog, the schema (when not blank), every table name and the
// type list of the flags.
SQLRETURN callTables(SQLHSTMT statement, const char16_t *schema, int32_t typeFlags);
// SQLColumnsW for every catalog, the schema (when not blank), the table and every column.
SQLRETURN callColumns(SQLHSTMT statement, const char16_t *schema, const char16_t *table);

// Length of a terminated wide text (0 for null).
int32_t textLength(const char16_t *text);

} // namespace tabra::catalog
