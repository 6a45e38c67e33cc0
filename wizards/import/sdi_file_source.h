// SDI files (structured data interchange): a header that describes the fields, then
// the rows, one per line, their values separated by TAB characters (no delimiters).
//
//   line 1       SDI                           (any letter case; else message 1601)
//   lines 2-4    anything                      (skipped)
//   line 5       the number of fields N        (at least 1; else message 1601)
//   N lines      one field each: its name, then blank-separated tokens; the last token
//                "FORMAT=x..." longer than 8 characters sets the type by its 8th
//                character: D or T date and time (4), N integer (2) when a G follows,
//                else number (3), anything else variable text (10); without one: 10.
//                Only the part of the name behind its last "." is kept. Length 255.
//   one line     anything                      (skipped)
//   the rows     as many as there are non-empty lines; an empty line counts as a row.
//
// With the telephone/fax converter on (telfax_converter.h) the kinds of its list follow
// the file's fields as fields of their own, and the file's kind and number fields are
// not imported; a file without any such field switches the converter off again.
// Numbers in SDI files use the decimal comma.
#pragma once

#include "wizards/import/import_fields.h"
#include "wizards/import/row_source.h"
#include "wizards/import/telfax_converter.h"

#include <memory>
#include <string>

namespace tabra::wizards::importing {

// Reads the field list (replacing the list's fields); converter.on is switched off when
// the file has no converter field. fileFields receives N. false after message 1615 (the
// file cannot be opened) or 1601 (its header is wrong or a field line is missing).
bool readSdiFields(const std::u16string &fileName, TelFaxSettings &converter, ImportFieldList &fields,
                   std::size_t &fileFields);
// The rows of the file; null after message 1615 or 1601.
std::unique_ptr<RowSource> openSdiRows(const std::u16string &fileName, std::size_t fileFields,
                                       std::size_t fieldCount);

} // namespace tabra::wizards::importing
