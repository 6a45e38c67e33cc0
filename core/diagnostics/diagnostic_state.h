// Quiet questions about a handle's diagnostics: its last SQLSTATE, and whether that
// state is one the caller expects.
#pragma once

#include <sql.h>

#include <string>

namespace tabra::diagnostics {

// The SQLSTATE of the handle's first diagnostic record; empty when there is none.
std::u16string lastState(SQLSMALLINT handleType, SQLHANDLE handle);

// Whether the handle's last SQLSTATE is one of the comma-separated states of list
// (compared without regard to case, tokens as they stand, blanks included). "*" takes
// every state without asking the driver; a list holding "NOINFO" takes an
// informational result (returnCode SQL_SUCCESS_WITH_INFO). A null or blank list takes
// nothing.
bool isLastStateInList(SQLSMALLINT handleType, SQLHANDLE handle, const char16_t *list, SQLRETURN returnCode);

} // namespace tabra::diagnostics
