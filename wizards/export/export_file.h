// The export file: the rows of the export's SELECT as UTF-16LE text without a
// byte-order mark, one line per row ended by CR LF, an optional header line of the
// headings first. Values are the database's text, numbers with the chosen decimal
// character and ODBC 2 dates in the user's date format, each between the leading and
// trailing delimiters as they stand (nothing is doubled or escaped); a NULL writes
// nothing but its separator. The rows go through the row-set transfer (blocks of rows
// where the driver takes them, large buffered writes), at most as many as the
// condition page counted.
#pragma once

#include "wizards/export/export_state.h"

#include <cstdint>
#include <string_view>

namespace tabra::wizards::exporting {

// The character numbers get in place of ".": "," for the comma kind, the user's own
// character for the own kind (the point when he gave none), "." for any other.
char16_t decimalCharacter(const ExportFormat &format);
// What stands between two values: a tab, a blank, the user's own character (nothing
// when he gave none), or nothing at all (the values run together).
std::u16string_view separatorText(const ExportFormat &format);

// Runs the SELECT and writes the file. 1 when the file is written, also after an abort
// by the user or a failed read (shown), with the rows written so far, the last one
// then without its line end; 2 when nothing was written (the failure was shown, an
// existing file is left as it was).
int32_t writeExportFile(const ExportWizardState &state);

} // namespace tabra::wizards::exporting
