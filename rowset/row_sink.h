// Where the rows of a row-set transfer go. The transfer (transferRows in
// rowset/row_set.h) runs the statement and hands every row to one sink: a file, a
// text in memory, a list or combo box, a list view. A sink reads the values it wants
// from the row (columns in increasing order) and decides when the transfer stops.
#pragma once

#include "rowset/row_set_reader.h"

#include <sql.h>

#include <cstdint>

namespace tabra::rowset {

class RowSink {
public:
    virtual ~RowSink() = default;

    // Characters per value, the terminator included (longer values are cut).
    virtual int32_t valueCapacity() const = 0;
    // Whether the values may come from blocks of bound rows: true for a sink that
    // reads every column of every row.
    virtual bool fetchesBlocks() const { return false; }

    // After the statement hook and before execution: a target that can fail before the
    // statement runs (a file) is opened here. false ends the transfer (the sink has
    // reported why).
    virtual bool open() { return true; }
    // After execution, with the number of result columns: empty a box, write a header.
    // A failing ODBC call answers its result (its diagnostics are on the statement).
    virtual SQLRETURN begin(SQLHSTMT statement, SQLSMALLINT columns) = 0;
    // One fetched row: SQL_SUCCESS, or the result of a read that failed.
    virtual SQLRETURN takeRow(RowSetReader &row, SQLSMALLINT columns) = 0;
    // Whether the transfer ends before the next row (the user aborted, the target
    // failed, there is nothing to fetch); asked after begin() and after every row.
    virtual bool stopped() const { return false; }
    // Whether a fetch or a read that fails ends the rows as a success: the failure is
    // shown all the same, then finish() decides. false: the transfer fails at once.
    virtual bool keepsRowsAfterFailedRead() const { return false; }
    // After the last row or a stop: whether the transfer succeeded (a failure has been
    // reported by the sink).
    virtual bool finish() { return true; }
};

} // namespace tabra::rowset
