// Column types and names of row-set results.
#include "rowset/row_set_columns.h"

#include "core/odbc/result_column_attribute.h"
#include "platform/text/bounded_text.h"

#include <sqlext.h>

namespace tabra::rowset {

SQLLEN resultColumnType(SQLHSTMT statement, SQLUSMALLINT column) {
    SQLLEN type = 0;
    if (SQL_SUCCEEDED(SQLColAttributeW(statement, column, SQL_DESC_TYPE, nullptr, 0, nullptr, &type))) return type;
    return odbc::resultColumnAttribute(statement, column, SQL_COLUMN_TYPE).value_or(0);
}

SQLRETURN appendColumnNames(SQLHSTMT statement, SQLSMALLINT columns, std::u16string_view separator,
                            std::u16string &out) {
    char16_t name[kHeaderNameCapacity];
    for (SQLSMALLINT column = 1; column <= columns; ++column) {
        name[0] = u'\0';
        SQLRETURN rc = odbc::resultColumnName(statement, static_cast<SQLUSMALLINT>(column), name,
                                        static_cast<SQLSMALLINT>(sizeof name), nullptr);
        if (!SQL_SUCCEEDED(rc)) return rc;
        if (column > 1) out.append(separator);
        out.append(name, platform::boundedLength(name, kHeaderNameCapacity - 1));
    }
    return SQL_SUCCESS;
}

} // namespace tabra::rowset
