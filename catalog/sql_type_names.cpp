// Names of ODBC SQL data types.
#include "catalog/sql_type_names.h"

#include <sql.h>
#include <sqlext.h>

#include <string>

namespace tabra::catalog {
namespace {

struct TypeName {
    int32_t code;
    const char16_t *name;
};

constexpr TypeName kTypeNames[] = {
    {SQL_CHAR, u"CHAR"},
    {SQL_VARCHAR, u"VARCHAR"},
    {SQL_LONGVARCHAR, u"LONGVARCHAR"},
    {SQL_WCHAR, u"WCHAR"},
    {SQL_WVARCHAR, u"WVARCHAR"},
    {SQL_WLONGVARCHAR, u"WLONGVARCHAR"},
    {SQL_DECIMAL, u"DECIMAL"},
    {SQL_NUMERIC, u"NUMERIC"},
    {SQL_SMALLINT, u"SMALLINT"},
    {SQL_INTEGER, u"INTEGER"},
    {SQL_REAL, u"REAL"},
    {SQL_FLOAT, u"FLOAT"},
    {SQL_DOUBLE, u"DOUBLE"},
    {SQL_BIT, u"BIT"},
    {SQL_TINYINT, u"TINYINT"},
    {SQL_BIGINT, u"BIGINT"},
    {SQL_BINARY, u"BINARY"},
    {SQL_VARBINARY, u"VARBINARY"},
    {SQL_LONGVARBINARY, u"LONGVARBINARY"},
    {SQL_DATE, u"DATE"},
    {SQL_TIME, u"TIME"},
    {SQL_TIMESTAMP, u"TIMESTAMP"},
    {SQL_TYPE_DATE, u"TYPE_DATE"},
    {SQL_TYPE_TIME, u"TYPE_TIME"},
    {SQL_TYPE_TIMESTAMP, u"TYPE_TIMESTAMP"},
    {SQL_GUID, u"GUID"},
    {SQL_UNKNOWN_TYPE, u"UNKNOWN"},
};

} // namespace

std::u16string sqlTypeName(int32_t sqlType) {
    for (const TypeName &type : kTypeNames)
        if (type.code == sqlType) return type.name;
    std::string number = std::to_string(sqlType);
    return std::u16string(number.begin(), number.end());
}

} // namespace tabra::catalog
