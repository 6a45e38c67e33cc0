// Attributes of a result column from a statement's description, asked with the ODBC 2
// call and, where a driver refuses that call, with the ODBC 3 call for the same
// attribute. One driver here answers every ODBC 2 attribute call on a prepared
// statement with an invalid-handle result while answering the ODBC 3 call; the others
// answer the ODBC 2 call, which therefore stays the first question so their answers are
// exactly what they always were.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <optional>

namespace tabra::odbc {

// A numeric attribute (an SQL_COLUMN_* field number) of a result column; empty when
// neither call answers. SQL_COLUMN_COUNT is a statement-wide field: the column is ignored.
std::optional<SQLLEN> resultColumnAttribute(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT field);

// The name of a result column into a buffer of bufferBytes bytes; reportedBytes (may be
// null) receives the length the driver reports, in bytes.
SQLRETURN resultColumnName(SQLHSTMT statement, SQLUSMALLINT column, char16_t *name, SQLSMALLINT bufferBytes,
                           SQLSMALLINT *reportedBytes);

} // namespace tabra::odbc
