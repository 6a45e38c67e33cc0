// Passing the library's UTF-16 text to the driver manager and back. unixODBC's
// SQLWCHAR is a 16-bit unsigned integer, so the two views share one layout.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <string>

namespace tabra::odbc {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "SQLWCHAR must be 16 bits");

inline SQLWCHAR *sqlText(char16_t *text) { return reinterpret_cast<SQLWCHAR *>(text); }
inline SQLWCHAR *sqlText(const char16_t *text) {
    // The driver manager's prototypes take non-const text it never writes.
    return reinterpret_cast<SQLWCHAR *>(const_cast<char16_t *>(text));
}

inline bool succeeded(SQLRETURN rc) { return rc == SQL_SUCCESS || rc == SQL_SUCCESS_WITH_INFO; }

} // namespace tabra::odbc
