// The value as it goes between the quotes of the store's insert statement.
#pragma once

#include <sql.h>

#include <string>

namespace tabra::systable {

// The escaped value (quotes already doubled) as literal text for the connection. The
// MySQL family reads a backslash in a string literal as the start of an escape (unless
// the session's sql_mode holds NO_BACKSLASH_ESCAPES), which would turn the value's own
// escapes into other characters: there every backslash is doubled. Everywhere else the
// text goes in as it is.
std::u16string valueLiteralText(SQLHDBC connection, const char16_t *escapedValue);

} // namespace tabra::systable
