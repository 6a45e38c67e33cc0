// Reading the rows of an executed statement as text, column by column, each value as
// UTF-16 text into a buffer of a fixed capacity (longer values are cut to capacity - 1
// code units, as a driver cuts wide text). Values are read one by one with SQLGetData,
// or, after useBlocks, from columns bound as arrays that the driver fills a block of
// rows at a time: the same text with far fewer calls.
//
// Character data comes from the driver as wide characters, or, for a driver whose
// character data is UTF-8 and whose wide conversion is far slower (TextTransfer::Utf8),
// as UTF-8 that the reader decodes itself: the columns of text, number and date types
// are fetched so, every other column wide. Both give the same units for every value.
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

enum class TextTransfer {
    Wide, // SQL_C_WCHAR for every column
    Utf8, // SQL_C_CHAR (UTF-8) for text, number and date columns, decoded by the reader
};

class RowSetReader {
public:
    // capacity: code units per value, the terminator included; columns: the result's.
    RowSetReader(SQLHSTMT statement, int32_t capacity, SQLSMALLINT columns, TextTransfer transfer = TextTransfer::Wide);

    // Binds every column for block fetches; false (and values read one by one) when the
    // driver takes no row arrays. Call after execution, before the first row.
    bool useBlocks();

    // Moves to the next row; SQL_SUCCESS or SQL_SUCCESS_WITH_INFO when there is one,
    // else what the fetch answered (SQL_NO_DATA at the end).
    SQLRETURN nextRow();
    // Reads column (1-based) of the current row; each column once, in increasing order.
    // A failing read leaves value null and answers the driver's result.
    SQLRETURN read(SQLUSMALLINT column, FetchedValue &value);

private:
    struct BoundColumn {
        std::unique_ptr<char[]> values; // row r's value at r * slot bytes
        std::unique_ptr<SQLLEN[]> indicators;
        std::size_t slot = 0;
    };

    std::size_t slotBytes(SQLUSMALLINT column) const;
    SQLSMALLINT cType(SQLUSMALLINT column) const { return utf8_[column - 1u] ? SQL_C_CHAR : SQL_C_WCHAR; }
    // The value of slot bytes at data with the driver's indicator, as text.
    void take(SQLUSMALLINT column, const char *data, SQLLEN indicator, std::size_t slot, FetchedValue &value);
    SQLRETURN nextBlock();

    SQLHSTMT statement_;
    std::size_t capacity_;
    std::vector<bool> utf8_; // per column: fetched as UTF-8
    std::vector<char16_t> text_;
    std::vector<char> data_; // what SQLGetData writes
    // Block fetches: the bound columns, the rows of the current block and where we are.
    std::vector<BoundColumn> bound_;
    std::unique_ptr<SQLUSMALLINT[]> rowStatus_;
    SQLULEN blockRows_ = 0;
    SQLULEN rowsFetched_ = 0;
    SQLULEN current_ = 0;
};

} // namespace tabra::rowset
