// Selection files: a list of records written one value per line.
//
//   line 1       a title (anything; not read)
//   line 2       the number of fields F and the number of records R, as decimal
//                numbers separated by ",": "3,120"
//   F lines      the field names, one per line, in the order of the values
//   then         the records, each F lines: one value per line in field order
//
// Every line holds at most 999 characters; trailing control characters are removed and
// blanks around the text cut, for names and values alike. Fields are variable text of
// 255 characters; numbers use the decimal comma. R records are read at most; a file that
// ends early ends the import. A line 2 without two such numbers (F at least 1), or
// fewer than F field lines, is not a selection file: message 1602.
#pragma once

#include "wizards/import/import_fields.h"
#include "wizards/import/row_source.h"

#include <memory>
#include <string>

namespace tabra::wizards::importing {

// Reads the field list (replacing the list's fields); false after message 1615 (the
// file cannot be opened) or 1602 (it is no selection file).
bool readSelectionFileFields(const std::u16string &fileName, ImportFieldList &fields);
// The records of the file; null after message 1615 or 1602.
std::unique_ptr<RowSource> openSelectionFileRows(const std::u16string &fileName, std::size_t fieldCount);

} // namespace tabra::wizards::importing
