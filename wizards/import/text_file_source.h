// Delimited text files. The first line is split with the token reader
// (delimited_tokens.h) into the fields: their names, or, when the first line holds
// data, F0, F1, F2, ...; every field is variable text of 255 characters. The rows are
// the lines after the header line (all of them when the first line holds data): as
// many rows are read as there are non-empty lines, and every line read, an empty one
// too, counts as a row (of NULLs), so empty lines in the middle leave the last lines
// of the file unread, as the product has always done. Token i sets field i; tokens
// beyond the last field are ignored; fields without a token stay NULL.
#pragma once

#include "wizards/import/import_fields.h"
#include "wizards/import/row_source.h"
#include "wizards/import/text_format.h"

#include <memory>
#include <string>

namespace tabra::wizards::importing {

// Reads the field list (replacing the list's fields); false, after message 1615 with
// the name, when the file cannot be opened.
bool readTextFileFields(const std::u16string &fileName, const TextFormat &format, ImportFieldList &fields);
// The rows of the file for fieldCount fields; null, after message 1615, when it cannot
// be opened.
std::unique_ptr<RowSource> openTextFileRows(const std::u16string &fileName, const TextFormat &format,
                                            std::size_t fieldCount);

} // namespace tabra::wizards::importing
