// The row-set operations as C++: one statement run by the statement runner (with the
// caller's tolerated SQLSTATEs) and its rows handed to a sink. The exported
// OdbcEh_PerformSqlStatement and OdbcEh_SelectRowSetTo* are thin shells over these;
// failures are shown where they happen unless their state is tolerated, and every
// operation answers 1 (done) or 2 (failed, refused by the statement hook, bad
// arguments).
#pragma once

#include "rowset/row_sink.h"
#include "tabra_base.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tabra::rowset {

// Runs the statement for its effect; a failure with a tolerated state counts as done.
int32_t performStatement(SQLHDBC connection, const char16_t *text, const char16_t *tolerated);

// Runs the statement and hands its rows to sink: allocate and hook, open the sink,
// execute, the column count, begin, every row until the rows end or the sink stops,
// finish. An ODBC failure is reported (unless tolerated) with the statement text.
int32_t transferRows(SQLHDBC connection, const char16_t *text, const char16_t *tolerated, RowSink &sink);

// The rows as the text a row-set file holds (separators null or empty: tab and line
// feed; flags as the file's), kept to what a buffer of capacity characters takes: at
// most capacity - 1 characters, never half a surrogate pair. nullopt on failure.
std::optional<std::u16string> selectToText(SQLHDBC connection, const char16_t *text,
                                           const char16_t *fieldSeparator, const char16_t *recordSeparator,
                                           std::size_t capacity, const char16_t *tolerated, uint32_t flags);

// The same into a caller's buffer of capacity characters (at least 3, else 2): the
// buffer is zeroed first, and the text lands in it terminated.
int32_t selectToBuffer(SQLHDBC connection, const char16_t *text, const char16_t *fieldSeparator,
                       const char16_t *recordSeparator, char16_t *output, int32_t capacity, const char16_t *tolerated,
                       uint32_t flags);

// The rows written to a UTF-16LE file, replaced only on success; rowCount (may be null)
// gives the expected rows for the progress indicator and receives the records written.
int32_t selectToFile(SQLHDBC connection, const char16_t *text, const char16_t *fieldSeparator,
                     const char16_t *recordSeparator, const char16_t *fileName, int32_t *rowCount,
                     const char16_t *tolerated, uint32_t flags);

// Column 1 into the box's entries, column 2 (when there is one) as item data.
int32_t selectToBox(SQLHDBC connection, const char16_t *text, HWND box, const char16_t *tolerated, int8_t flags);

// One list-view item per row, the columns as its sub-items (column 1 as the key with
// a key flag).
int32_t selectToListView(SQLHDBC connection, const char16_t *text, HWND listView, const char16_t *tolerated,
                         uint32_t flags);

} // namespace tabra::rowset
