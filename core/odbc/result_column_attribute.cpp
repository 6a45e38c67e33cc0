// Result column attributes with the ODBC 3 call as the second chance.
#include "core/odbc/result_column_attribute.h"

#include <sqlucode.h>

namespace tabra::odbc {

namespace {

// The ODBC 3 field that asks the same as an ODBC 2 field. Type, updatability,
// auto-increment and case sensitivity kept their numbers; the length is asked with the
// ODBC 2 field itself, which the ODBC 3 call still accepts with the same meaning (the
// transfer length in bytes; no descriptor field is defined quite so).
SQLUSMALLINT odbc3Field(SQLUSMALLINT field) {
    switch (field) {
    case SQL_COLUMN_COUNT: return SQL_DESC_COUNT;
    case SQL_COLUMN_NAME: return SQL_DESC_NAME;
    case SQL_COLUMN_NULLABLE: return SQL_DESC_NULLABLE;
    default: return field;
    }
}

// The count is a header field: drivers ignore the column number for it, but some refuse
// column 0 in the ODBC 3 call.
SQLUSMALLINT odbc3Column(SQLUSMALLINT field, SQLUSMALLINT column) {
    return field == SQL_COLUMN_COUNT ? SQLUSMALLINT{1} : column;
}

} // namespace

std::optional<SQLLEN> resultColumnAttribute(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT field) {
    SQLLEN value = 0;
    if (SQL_SUCCEEDED(SQLColAttributesW(statement, column, field, nullptr, 0, nullptr, &value))) return value;
    value = 0;
    if (SQL_SUCCEEDED(SQLColAttributeW(statement, odbc3Column(field, column), odbc3Field(field), nullptr,
                                       SQL_IS_INTEGER, nullptr, &value)))
        return value;
    return std::nullopt;
}

SQLRETURN resultColumnName(SQLHSTMT statement, SQLUSMALLINT column, char16_t *name, SQLSMALLINT bufferBytes,
                           SQLSMALLINT *reportedBytes) {
    SQLRETURN rc = SQLColAttributesW(statement, column, SQL_COLUMN_NAME, name, bufferBytes, reportedBytes, nullptr);
    if (SQL_SUCCEEDED(rc)) return rc;
    return SQLColAttributeW(statement, column, SQL_DESC_NAME, name, bufferBytes, reportedBytes, nullptr);
}

} // namespace tabra::odbc
