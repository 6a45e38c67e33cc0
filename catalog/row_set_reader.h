// Reading the rows of an executed statement as text, column by column, each value as
// wide character data into a buffer of a fixed capacity (longer values are cut to
// capacity - 1 characters, as the driver cuts them).
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tabra::catalog {

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

    // Moves to the next row; SQL_SUCCESS or SQL_SUCCESS_WITH_INFO when there is one,
    // else what the fetch answered (SQL_NO_DATA at the end).
    SQLRETURN nextRow();
    // Reads column (1-based) of the current row; each column once, in increasing order.
    // A failing read leaves value null and answers the driver's result.
    SQLRETURN read(SQLUSMALLINT column, FetchedValue &value);

private:
    SQLHSTMT statement_;
    std::vector<char16_t> buffer_;
};

} // namespace tabra::catalog
