// A statement that answers one value (a count, a maximum, a sum): run it and read the
// first column of the first row as text.
#pragma once

#include <sql.h>

#include <cstdint>
#include <optional>
#include <string>

namespace tabra::catalog {

// Allocates a statement (failure shown), passes the text to the statement hook with
// the capacity given (a refusal fails quietly), executes it, binds column 1 as text
// (98 characters) and fetches one row; a failing execution, bind or fetch is shown
// with the statement text. The value is empty for a NULL result; nullopt on failure.
// The statement handle is dropped on every path.
std::optional<std::u16string> querySingleValue(SQLHDBC connection, const char16_t *statement,
                                               int32_t hookCapacity);

} // namespace tabra::catalog
