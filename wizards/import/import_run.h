// Running the import once the wizard has been finished: the source's rows are opened
// (a file that cannot be opened gives message 1615 and no table), the table is created
// with one CREATE TABLE through the statement hook (any failure: result 2, there is no
// import into an existing table), then every row goes the same cycle: its current
// values forgotten, the source row read and each value converted
// (value_conversion.h), the telephone/fax converter applied to an SDI row, the row
// handed to the row inserter (row_inserter.h), the progress indicator (title string
// 2901, range the source's row count) set to the row number. The cycle stops when an
// INSERT fails, when the user aborts, after a row with a value that could not be
// converted, and when the row number passes the row count. The rows before a stop are
// in the table, committed; what stopped the import is then told with the record's
// number (messages 1651, 1652). The result is 1 also after such a stop.
#pragma once

#include "wizards/import/import_state.h"

#include <cstdint>

namespace tabra::wizards::importing {

// What an import did (for the tests and the benchmark).
struct ImportOutcome {
    int32_t result = 2;    // 1 the table was created and the rows ran, 2 not
    int32_t rowsRead = 0;  // rows taken from the source
    int32_t rowsKept = 0;  // rows in the table
    bool aborted = false;
};

ImportOutcome runImport(ImportWizardState &state);

} // namespace tabra::wizards::importing
