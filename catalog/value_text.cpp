// Fetched ODBC text made display text: the user's decimal character in numbers, the
// user's date form for ODBC 2 date and time values. Everything else stays as fetched.
#include "ostrel.h"
#include "tabra_catalog.h"

#include <sql.h>
#include <sqlext.h>

#include <vector>

extern "C" void Tabra_OdbcDataToString(char16_t *text, int32_t capacity, int32_t sqlType, char16_t decimal) {
    if (text == nullptr || capacity < 1) return;
    switch (sqlType) {
    case SQL_NUMERIC:
    case SQL_DECIMAL:
    case SQL_FLOAT:
    case SQL_REAL:
    case SQL_DOUBLE:
        for (int32_t i = 0; i < capacity && text[i] != u'\0'; ++i)
            if (text[i] == u'.') text[i] = decimal;
        break;
    case SQL_DATE:
    case SQL_TIME:
    case SQL_TIMESTAMP: {
        // Text that is no timestamp (an empty value, say) stays as it is.
        DateTimeStruct value{};
        if (OdbcTimeStamp_To_DateTimeStruct(text, &value) != 1) break;
        std::vector<char16_t> formatted(static_cast<size_t>(capacity), u'\0');
        if (DateTimeStruct_To_FormattedDate(&value, formatted.data(), capacity, 0) == 1)
            OstrelCopyString(text, formatted.data(), capacity);
        break;
    }
    default:
        break;
    }
}
