// Row-set values through SQLGetData.
#include "rowset/row_set_reader.h"

#include "platform/text/bounded_text.h"

#include <algorithm>

namespace tabra::rowset {

namespace {

// Bound buffers of a block take at most about this many bytes (most of it is never
// touched: a value uses only the start of its slot), and a block at most this many rows.
constexpr std::size_t kBlockBytes = 8u << 20;
constexpr std::size_t kMostBlockRows = 64;

bool setAttribute(SQLHSTMT statement, SQLINTEGER attribute, SQLPOINTER value) {
    return SQL_SUCCEEDED(SQLSetStmtAttr(statement, attribute, value, 0));
}

} // namespace

RowSetReader::RowSetReader(SQLHSTMT statement, int32_t capacity)
    : statement_(statement), capacity_(static_cast<std::size_t>(capacity)), buffer_(capacity_, u'\0') {}

bool RowSetReader::useBlocks(SQLSMALLINT columns) {
    if (columns < 1) return false;
    std::size_t rowBytes = static_cast<std::size_t>(columns) * capacity_ * sizeof(char16_t);
    auto rows = std::clamp<std::size_t>(kBlockBytes / rowBytes, 1, kMostBlockRows);
    rowStatus_ = std::make_unique<SQLUSMALLINT[]>(rows);
    if (!setAttribute(statement_, SQL_ATTR_ROW_BIND_TYPE, reinterpret_cast<SQLPOINTER>(SQL_BIND_BY_COLUMN)) ||
        !setAttribute(statement_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(rows)) ||
        !setAttribute(statement_, SQL_ATTR_ROWS_FETCHED_PTR, &rowsFetched_) ||
        !setAttribute(statement_, SQL_ATTR_ROW_STATUS_PTR, rowStatus_.get())) {
        SQLSetStmtAttr(statement_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(SQLULEN{1}), 0);
        SQLSetStmtAttr(statement_, SQL_ATTR_ROWS_FETCHED_PTR, nullptr, 0);
        SQLSetStmtAttr(statement_, SQL_ATTR_ROW_STATUS_PTR, nullptr, 0);
        rowStatus_.reset();
        return false;
    }
    // A driver may have settled on another size (and said so with 01S02).
    SQLULEN taken = 0;
    SQLGetStmtAttr(statement_, SQL_ATTR_ROW_ARRAY_SIZE, &taken, 0, nullptr);
    if (taken < 1 || taken > rows) return false;
    for (SQLSMALLINT column = 1; column <= columns; ++column) {
        BoundColumn bound{std::make_unique_for_overwrite<char16_t[]>(taken * capacity_),
                          std::make_unique<SQLLEN[]>(taken)};
        if (!SQL_SUCCEEDED(SQLBindCol(statement_, static_cast<SQLUSMALLINT>(column), SQL_C_WCHAR, bound.texts.get(),
                                      static_cast<SQLLEN>(capacity_ * sizeof(char16_t)), bound.indicators.get()))) {
            SQLFreeStmt(statement_, SQL_UNBIND);
            bound_.clear();
            return false;
        }
        bound_.push_back(std::move(bound));
    }
    blockRows_ = taken;
    return true;
}

SQLRETURN RowSetReader::nextRow() {
    if (bound_.empty()) return SQLFetch(statement_);
    if (++current_ < rowsFetched_) return rowStatus_[current_] == SQL_ROW_ERROR ? SQL_ERROR : SQL_SUCCESS;
    return nextBlock();
}

SQLRETURN RowSetReader::nextBlock() {
    rowsFetched_ = 0;
    current_ = 0;
    SQLRETURN rc = SQLFetch(statement_);
    if (!SQL_SUCCEEDED(rc)) return rc;
    // A row came: a driver that fills only the first row of the arrays (and leaves the
    // count alone) has given that one.
    rowsFetched_ = std::clamp<SQLULEN>(rowsFetched_, 1, blockRows_);
    return rowStatus_[0] == SQL_ROW_ERROR ? SQL_ERROR : rc;
}

SQLRETURN RowSetReader::read(SQLUSMALLINT column, FetchedValue &value) {
    value = FetchedValue{};
    if (!bound_.empty()) {
        const BoundColumn &bound = bound_[column - 1u];
        if (bound.indicators[current_] == SQL_NULL_DATA) return SQL_SUCCESS;
        value.text = bound.texts.get() + current_ * capacity_;
        value.length = platform::boundedLength(value.text, capacity_ - 1);
        return SQL_SUCCESS;
    }
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

} // namespace tabra::rowset
