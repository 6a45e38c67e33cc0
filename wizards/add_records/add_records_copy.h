// The copy once the wizard has been finished. The source rows are counted and read by
// one SELECT on the source connection (a failure is shown and gives result 2); under a
// progress indicator (title string 2901, range the row count) every row then goes the
// same cycle: the current values forgotten, each source column read as text and
// converted to its destination column's type, and the row written on the caller's
// connection: an INSERT, or, matching by ids, an UPDATE of the destination records whose
// id field equals the row's source id when there is at least one, else the INSERT.
// The rows go in transactions committed in groups and at the end, autocommit being
// restored on every path (wizards/row_inserter.h); without ids several rows share an
// INSERT where the database takes that.
//
// The run stops when a statement fails (its diagnostics shown with its text; the rows
// before it are kept), when the user aborts (what was written is kept), after a row with
// a value that could not be converted (that column stays NULL in it), and when the row
// number passes the count. The result is 1 also after such a stop.
//
// Conversions (source type to destination type; an empty text gives no value): text to
// integer or number cleaned to a number, to date and time read in the user's date format
// and written as an ODBC timestamp, to text as it stands; integer and number to text,
// integer, number, memo or variable text as numbers; date and time to text as
// "%D1.%M1.%Y2", to date and time as a timestamp; any other pair gives no value.
#pragma once

#include "wizards/add_records/add_records_state.h"

#include <cstdint>

namespace tabra::wizards::add_records {

// What a copy did (for the tests and the benchmark).
struct CopyOutcome {
    int32_t result = 2;
    int32_t rowsRead = 0;
    int32_t rowsKept = 0; // rows committed, inserted or updated
    int32_t updates = 0;  // rows that updated records
    bool aborted = false;
};

CopyOutcome runCopy(AddRecordsWizardState &state);

} // namespace tabra::wizards::add_records
