// The library's own data-type codes from ODBC SQL types. The ODBC 3 date/time codes
// (91 to 93) deliberately fall to text while their ODBC 2 twins are date and time:
// callers store these codes and rely on the mapping as it is.
#include "tabra_catalog.h"

#include <sql.h>
#include <sqlext.h>

extern "C" int32_t Tabra_SqlDataTypeToTabraDataType(int32_t sqlType) {
    switch (sqlType) {
    case SQL_TINYINT:
    case SQL_BIGINT:
    case SQL_INTEGER:
    case SQL_SMALLINT:
        return TdtInteger;
    case SQL_NUMERIC:
    case SQL_DECIMAL:
    case SQL_FLOAT:
    case SQL_REAL:
    case SQL_DOUBLE:
        return TdtNumber;
    case SQL_DATE: // ODBC 2: 9, 10, 11
    case SQL_TIME:
    case SQL_TIMESTAMP:
        return TdtDateTime;
    case SQL_LONGVARBINARY:
    case SQL_VARBINARY:
    case SQL_BINARY:
        return TdtBinary;
    case SQL_WLONGVARCHAR:
    case SQL_LONGVARCHAR:
        return TdtMemo;
    case SQL_WVARCHAR:
    case SQL_VARCHAR:
    case 0: // unknown type
        return TdtVarText;
    default:
        return TdtText;
    }
}
