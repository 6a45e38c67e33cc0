// Reading the rows of an executed statement as text, column by column, each value as
// wide character data into a buffer of a fixed capacity (longer values are cut to
// capacity - 1 characters, as the driver cuts them). Values are read one by one with
// SQLGetData, or, after useBlocks, from columns bound as arrays that the driver fills
// a block of rows at a time: the same text with far fewer calls.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace tabra::rowset {

// One fetched value: text terminated at text[length], or null for an SQL NULL.
struct FetchedValue {
    const char16_t *text = nullptr;
    std::size_t length = 0;
    bool isNull() const { return text == nullptr; }
};

class RowSetReader {
public:
    // capacity: characters per value, the terminator included.
    RowSetReader(SQLHSTMT statement, int32_t capacity);

    // Binds every column for block fetches; false (and values read one by one) when the
    // driver takes no row arrays. Call after execution, before the first row.
    bool useBlocks(SQLSMALLINT columns);

    // Moves to the next row; SQL_SUCCESS or SQL_SUCCESS_WITH_INFO when there is one,
    // else what the fetch answered (SQL_NO_DATA at the end).
    SQLRETURN nextRow();
    // Reads column (1-based) of the current row; each column once, in increasing order.
    // A failing read leaves value null and answers the driver's result.
    SQLRETURN read(SQLUSMALLINT column, FetchedValue &value);

private:
    struct BoundColumn {
        std::unique_ptr<char16_t[]> texts; // row r's text at r * capacity
        std::unique_ptr<SQLLEN[]> indicators;
    };

    SQLRETURN nextBlock();

    SQLHSTMT statement_;
    std::size_t capacity_;
    std::vector<char16_t> buffer_;
    // Block fetches: the bound columns, the rows of the current block and where we are.
    std::vector<BoundColumn> bound_;
    std::unique_ptr<SQLUSMALLINT[]> rowStatus_;
    SQLULEN blockRows_ = 0;
    SQLULEN rowsFetched_ = 0;
    SQLULEN current_ = 0;
};

} // namespace tabra::rowset
