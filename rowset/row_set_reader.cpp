// Row-set values through bound arrays or SQLGetData, as wide text or decoded UTF-8.
#include "rowset/row_set_reader.h"

#include "platform/text/bounded_text.h"
#include "platform/text/utf_conversion.h"
#include "rowset/row_set_columns.h"
#include "rowset/row_set_value_writer.h"

#include <algorithm>
#include <cstring>
#include <string_view>

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

RowSetReader::RowSetReader(SQLHSTMT statement, int32_t capacity, SQLSMALLINT columns, TextTransfer transfer)
    : statement_(statement), capacity_(static_cast<std::size_t>(capacity)),
      utf8_(static_cast<std::size_t>(std::max<SQLSMALLINT>(columns, 0)), false), text_(capacity_, u'\0'),
      data_(transfer == TextTransfer::Utf8 ? 3 * capacity_ + 1 : capacity_ * sizeof(char16_t)) {
    if (transfer != TextTransfer::Utf8) return;
    // Text, numbers and dates are written as characters by every driver; other types
    // (binary, bit, unknown) keep the driver's wide form.
    for (SQLSMALLINT column = 1; column <= columns; ++column)
        utf8_[static_cast<std::size_t>(column - 1)] =
            valueKindOf(resultColumnType(statement_, static_cast<SQLUSMALLINT>(column))) != ValueKind::Other;
}

// A UTF-8 slot holds the first capacity - 1 units whole (at most three bytes per unit,
// four for a pair), so the units the wide form would keep are never cut off by the
// driver.
std::size_t RowSetReader::slotBytes(SQLUSMALLINT column) const {
    return utf8_.empty() || !utf8_[column - 1u] ? capacity_ * sizeof(char16_t) : 3 * capacity_ + 1;
}

bool RowSetReader::useBlocks() {
    const auto columns = static_cast<SQLSMALLINT>(utf8_.size());
    if (columns < 1) return false;
    std::size_t rowBytes = 0;
    for (SQLSMALLINT column = 1; column <= columns; ++column) rowBytes += slotBytes(static_cast<SQLUSMALLINT>(column));
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
        auto number = static_cast<SQLUSMALLINT>(column);
        std::size_t slot = slotBytes(number);
        BoundColumn bound{std::make_unique_for_overwrite<char[]>(taken * slot), std::make_unique<SQLLEN[]>(taken), slot};
        if (!SQL_SUCCEEDED(SQLBindCol(statement_, number, cType(number), bound.values.get(), static_cast<SQLLEN>(slot),
                                      bound.indicators.get()))) {
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

void RowSetReader::take(SQLUSMALLINT column, const char *data, SQLLEN indicator, std::size_t slot,
                        FetchedValue &value) {
    if (indicator == SQL_NULL_DATA) return;
    // The length is taken from the terminator: one driver reports fewer characters than
    // it wrote for some texts, and another leaves a cut text unterminated.
    if (!utf8_[column - 1u]) {
        value.text = reinterpret_cast<const char16_t *>(data);
        value.length = platform::boundedLength(value.text, capacity_ - 1);
        return;
    }
    std::size_t bytes = indicator >= 0 && static_cast<std::size_t>(indicator) < slot ? static_cast<std::size_t>(indicator)
                                                                                      : slot - 1;
    bytes = ::strnlen(data, bytes);
    value.length = platform::decodeUtf8Into(std::string_view(data, bytes), text_.data(), capacity_ - 1);
    text_[value.length] = u'\0';
    value.text = text_.data();
}

SQLRETURN RowSetReader::read(SQLUSMALLINT column, FetchedValue &value) {
    value = FetchedValue{};
    if (!bound_.empty()) {
        const BoundColumn &bound = bound_[column - 1u];
        take(column, bound.values.get() + current_ * bound.slot, bound.indicators[current_], bound.slot, value);
        return SQL_SUCCESS;
    }
    std::size_t slot = slotBytes(column);
    std::fill_n(data_.begin(), 2, '\0');
    SQLLEN indicator = 0;
    SQLRETURN rc = SQLGetData(statement_, column, cType(column), data_.data(), static_cast<SQLLEN>(slot), &indicator);
    if (!SQL_SUCCEEDED(rc)) return rc;
    take(column, data_.data(), indicator, slot, value);
    return rc;
}

} // namespace tabra::rowset
