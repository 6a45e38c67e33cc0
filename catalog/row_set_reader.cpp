// Row-set values through SQLGetData.
#include "catalog/row_set_reader.h"

#include "platform/text/bounded_text.h"

namespace tabra::catalog {

RowSetReader::RowSetReader(SQLHSTMT statement, int32_t capacity)
    : statement_(statement), buffer_(static_cast<std::size_t>(capacity), u'\0') {}

SQLRETURN RowSetReader::nextRow() { return SQLFetch(statement_); }

SQLRETURN RowSetReader::read(SQLUSMALLINT column, FetchedValue &value) {
    value = FetchedValue{};
    buffer_[0] = u'\0';
    SQLLEN indicator = 0;
    SQLRETURN rc = SQLGetData(statement_, column, SQL_C_WCHAR, buffer_.data(),
                              static_cast<SQLLEN>(buffer_.size() * sizeof(char16_t)), &indicator);
    if (!SQL_SUCCEEDED(rc)) return rc;
    if (indicator == SQL_NULL_DATA) return rc;
    // The length is taken from the terminator: one driver reports fewer characters than
    // it wrote for some texts, while the text itself is right.
    value.text = buffer_.data();
    value.length = platform::boundedLength(buffer_.data(), buffer_.size() - 1);
    return rc;
}

} // namespace tabra::catalog
