// Writing the records of a row-set text.
#include "rowset/row_set_text.h"

#include "rowset/row_set_columns.h"
#include "tabra_rowset.h"

namespace tabra::rowset {
namespace {

// Characters per value, the terminator included.
constexpr int32_t kValueCapacity = 5000;

std::u16string separatorOr(const char16_t *separator, std::u16string_view fallback) {
    return std::u16string(separator != nullptr && separator[0] != u'\0' ? std::u16string_view(separator) : fallback);
}

} // namespace

RowSetTextSink::RowSetTextSink(const char16_t *fieldSeparator, const char16_t *recordSeparator, uint32_t flags)
    : fieldSeparator_(separatorOr(fieldSeparator, u"\t")), recordSeparator_(separatorOr(recordSeparator, u"\n")),
      flags_(flags), writer_(flags) {}

int32_t RowSetTextSink::valueCapacity() const { return kValueCapacity; }

void RowSetTextSink::endRecord() {
    int32_t before = written_++;
    if (recordWritten(before)) stopped_ = true;
}

SQLRETURN RowSetTextSink::begin(SQLHSTMT statement, SQLSMALLINT columns) {
    starting();
    if (flags_ & TABRA_ROWSET_HEADER) {
        SQLRETURN rc = appendColumnNames(statement, columns, fieldSeparator_, text());
        if (!SQL_SUCCEEDED(rc)) return rc;
        endRecord();
    }
    for (SQLSMALLINT column = 1; column <= columns; ++column)
        kinds_.push_back(valueKindOf(resultColumnType(statement, static_cast<SQLUSMALLINT>(column))));
    // A statement without result columns has no rows to fetch.
    if (columns <= 0) stopped_ = true;
    return SQL_SUCCESS;
}

SQLRETURN RowSetTextSink::takeRow(RowSetReader &row, SQLSMALLINT columns) {
    std::u16string &out = text();
    if (written_ > 0) out.append(recordSeparator_);
    FetchedValue value;
    for (SQLSMALLINT column = 1; column <= columns; ++column) {
        if (column > 1) out.append(fieldSeparator_);
        SQLRETURN rc = row.read(static_cast<SQLUSMALLINT>(column), value);
        if (!SQL_SUCCEEDED(rc)) return rc;
        writer_.write(kinds_[static_cast<std::size_t>(column - 1)], value.text, value.length, out);
    }
    endRecord();
    return SQL_SUCCESS;
}

} // namespace tabra::rowset
