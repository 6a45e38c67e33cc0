// Result columns bound for fetching. Catalog and aggregate values are read as text:
// the driver manager here gives 8-bit text for character data, so the columns are
// bound as wide character data. A declared length of n characters lets the driver
// write n - 1 characters and the terminator, as a character binding of n bytes would.
#pragma once

#include "core/odbc/odbc_text.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <cstdint>

namespace tabra::odbc {

template <int32_t Capacity>
struct BoundText {
    char16_t text[Capacity] = {};
    SQLLEN indicator = 0;

    // Binds the column with room for declared - 1 characters (never more than the buffer).
    SQLRETURN bind(SQLHSTMT statement, SQLUSMALLINT column, int32_t declared = Capacity) {
        auto characters = std::min(declared, Capacity);
        return SQLBindCol(statement, column, SQL_C_WCHAR, text, static_cast<SQLLEN>(characters) * sizeof(char16_t),
                          &indicator);
    }
    bool isNull() const { return indicator == SQL_NULL_DATA; }
};

struct BoundShort {
    SQLSMALLINT value = 0;
    SQLLEN indicator = 0;
    SQLRETURN bind(SQLHSTMT statement, SQLUSMALLINT column) {
        return SQLBindCol(statement, column, SQL_C_SSHORT, &value, 0, &indicator);
    }
};

} // namespace tabra::odbc
