// Writing fetched values into a row-set file's text.
#include "rowset/row_set_value_writer.h"

#include "ostrel.h"
#include "platform/dates/date_writing.h"
#include "tabra_rowset.h"

#include <sqlext.h>

#include <algorithm>

namespace tabra::rowset {

namespace {

constexpr char16_t kQuote = u'\'';

bool isBlank(const char16_t *value, std::size_t length) {
    return std::all_of(value, value + length, [](char16_t c) { return c <= 32; });
}

} // namespace

ValueKind valueKindOf(SQLLEN sqlType) {
    switch (sqlType) {
    case SQL_WLONGVARCHAR: case SQL_WVARCHAR: case SQL_WCHAR: case SQL_LONGVARCHAR: case SQL_CHAR: case SQL_VARCHAR:
        return ValueKind::Text;
    case SQL_TINYINT: case SQL_BIGINT: case SQL_NUMERIC: case SQL_DECIMAL: case SQL_INTEGER: case SQL_SMALLINT:
    case SQL_FLOAT: case SQL_REAL: case SQL_DOUBLE:
        return ValueKind::Number;
    case SQL_DATE: case SQL_TIME: case SQL_TIMESTAMP:
        return ValueKind::Date;
    default:
        return ValueKind::Other;
    }
}

ValueWriter::ValueWriter(uint32_t flags) : flags_(flags) {
    if (flags_ & TABRA_ROWSET_ENCODE_TEXT) encoded_.assign(kMaximumValueLength, u'\0');
}

void ValueWriter::write(ValueKind kind, const char16_t *value, std::size_t length, std::u16string &out) {
    switch (kind) {
    case ValueKind::Text:
        writeText(value, length, out);
        break;
    case ValueKind::Number:
        if (value != nullptr && !isBlank(value, length)) out.append(value, length);
        else if (flags_ & TABRA_ROWSET_ZERO_NUMBERS) out.push_back(u'0');
        break;
    case ValueKind::Date:
        if (flags_ & TABRA_ROWSET_DIGIT_DATES) writeDate(value, out);
        else if (value != nullptr) out.append(value, length);
        break;
    case ValueKind::Other:
        if (value != nullptr) out.append(value, length);
        break;
    }
}

void ValueWriter::writeText(const char16_t *value, std::size_t length, std::u16string &out) {
    bool quoted = (flags_ & TABRA_ROWSET_QUOTE_TEXT) != 0;
    if (quoted) out.push_back(kQuote);
    if (value != nullptr) {
        length = std::min<std::size_t>(length, kMaximumValueLength - 1);
        if (flags_ & TABRA_ROWSET_ENCODE_TEXT) {
            // The escaped form holds no quote, so there is nothing to double after it.
            int32_t written = Ostrel_EncodeString(value, encoded_.data(), kMaximumValueLength,
                                                  OSTREL_ENCODE_QUOTE_SAFE);
            if (written > 0) out.append(encoded_.data(), static_cast<std::size_t>(written));
        } else if (quoted) {
            // Doubling quotes within the value limit, as a bounded replace would: a value
            // is at most 4999 characters, so doubled it always fits.
            for (std::size_t i = 0; i < length; ++i) {
                out.push_back(value[i]);
                if (value[i] == kQuote) out.push_back(kQuote);
            }
        } else {
            out.append(value, length);
        }
    }
    if (quoted) out.push_back(kQuote);
}

void ValueWriter::writeDate(const char16_t *value, std::u16string &out) {
    bool quoted = (flags_ & TABRA_ROWSET_QUOTE_TEXT) != 0;
    if (quoted) out.push_back(kQuote);
    if (value != nullptr) {
        // A text that is no timestamp converts to zeros, and is written so.
        DateTimeStruct date{};
        OdbcTimeStamp_To_DateTimeStruct(value, &date);
        platform::appendNumber(out, date.Year, 4);
        platform::appendNumber(out, date.Month, 2);
        platform::appendNumber(out, date.Day, 2);
        platform::appendNumber(out, date.Hour, 2);
        platform::appendNumber(out, date.Minute, 2);
        platform::appendNumber(out, date.Second, 2);
    }
    if (quoted) out.push_back(kQuote);
}

} // namespace tabra::rowset
