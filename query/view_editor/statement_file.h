// Statement files: a SELECT statement kept as a whole text file. Files are written as
// UTF-8 without a byte-order mark; reading takes UTF-8 (a byte-order mark is skipped)
// and UTF-16 in either byte order when the file starts with its byte-order mark.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabra::query::view_editor {

// The text of the file, nothing when it cannot be read.
std::optional<std::u16string> readStatementFile(const std::u16string &fileName);

// Writes the text whole, replacing the file; 0 or the errno that stopped it (nothing
// is left behind then).
int writeStatementFile(const std::u16string &fileName, std::u16string_view text);

// The text of a file's bytes by the rules above.
std::u16string decodeStatementBytes(std::string_view bytes);

} // namespace tabra::query::view_editor
