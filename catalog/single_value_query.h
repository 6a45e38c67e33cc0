// A statement that answers one value (a count, a maximum, a sum): run it and read the
// first column of the first row as text.
#pragma once

#include <sql.h>

#include <optional>
#include <string>

namespace tabra::catalog {

// Runs the statement with the statement runner (allocation failure shown, a refusal
// of the hook quiet), binds column 1 as text (98 characters) and fetches one row; a
// failing execution, bind or fetch (no row included) is shown with the statement
// text. The value is empty for a NULL result; nullopt on failure.
std::optional<std::u16string> querySingleValue(SQLHDBC connection, const char16_t *statement);

} // namespace tabra::catalog
