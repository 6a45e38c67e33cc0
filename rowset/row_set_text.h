// The text of a row-set file, written record by record: an optional header of column
// names, then one record per row, fields joined by the field separator and records by
// the record separator (none after the last), each value written by the value writer.
// The file and the in-memory text are the two sinks built on it; each decides what
// happens after a record (flush and progress, or keeping only what a buffer takes).
#pragma once

#include "rowset/row_set_value_writer.h"
#include "rowset/row_sink.h"

#include <string>
#include <string_view>
#include <vector>

namespace tabra::rowset {

class RowSetTextSink : public RowSink {
public:
    // Separators null or empty: tab and line feed. flags: the TABRA_ROWSET_* flags.
    RowSetTextSink(const char16_t *fieldSeparator, const char16_t *recordSeparator, uint32_t flags);

    int32_t valueCapacity() const final;
    bool fetchesBlocks() const final { return true; }
    SQLRETURN begin(SQLHSTMT statement, SQLSMALLINT columns) final;
    SQLRETURN takeRow(RowSetReader &row, SQLSMALLINT columns) final;
    bool stopped() const final { return stopped_; }

    // Records written so far, the header included.
    int32_t written() const { return written_; }

protected:
    uint32_t flags() const { return flags_; }
    // Where the text goes; the sink may take it away after each record.
    virtual std::u16string &text() = 0;
    // Called once execution succeeded, before the header.
    virtual void starting() {}
    // After each record; before is the number of records written before it. true
    // stops the transfer after this record.
    virtual bool recordWritten(int32_t before) = 0;

private:
    void endRecord();

    std::u16string fieldSeparator_;
    std::u16string recordSeparator_;
    uint32_t flags_;
    std::vector<ValueKind> kinds_;
    ValueWriter writer_;
    int32_t written_ = 0;
    bool stopped_ = false;
};

} // namespace tabra::rowset
