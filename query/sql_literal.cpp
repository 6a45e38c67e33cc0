// Formatting literal values by ODBC SQL data type.
#include "query/sql_literal.h"

#include "ostrel_dates.h"

namespace tabra::query {

namespace {

bool isNumericType(int32_t dataType) {
    switch (dataType) {
    case SQL_TINYINT:
    case SQL_BIGINT:
    case SQL_NUMERIC:
    case SQL_DECIMAL:
    case SQL_INTEGER:
    case SQL_SMALLINT:
    case SQL_FLOAT:
    case SQL_REAL:
    case SQL_DOUBLE:
        return true;
    default:
        return false;
    }
}

// ODBC 2 codes of dates and timestamps (SQL_DATE / SQL_DATETIME 9, SQL_TIMESTAMP 11).
bool isDateType(int32_t dataType) { return dataType == 9 || dataType == 11; }

constexpr size_t kQuotedValueLength = 499;
constexpr int32_t kDateConstantCapacity = 64;

std::u16string quoted(std::u16string_view value) {
    return u"'" + std::u16string(value.substr(0, kQuotedValueLength)) + u"'";
}

} // namespace

std::u16string normalizeNumberText(std::u16string_view text) {
    std::u16string number;
    for (char16_t c : text) {
        if (c == u',')
            number += u'.';
        else if ((c >= u'0' && c <= u'9') || c == u'+' || c == u'-')
            number += c;
    }
    return number;
}

std::u16string formatSqlLiteral(std::u16string_view value, int32_t dataType, size_t capacity) {
    std::u16string literal;
    if (isNumericType(dataType)) {
        literal = normalizeNumberText(value);
    } else if (isDateType(dataType)) {
        std::u16string text(value);
        DateTimeStruct date{};
        char16_t constant[kDateConstantCapacity] = {};
        if (FormattedDate_To_DateTimeStruct(text.c_str(), &date, 0) == 1 &&
            DateTimeStruct_To_OdbcDateConstant(&date, constant, kDateConstantCapacity) == 1)
            literal = constant;
        else
            literal = quoted(value);
    } else {
        literal = quoted(value);
    }
    if (capacity == 0) return {};
    if (literal.size() > capacity - 1) literal.resize(capacity - 1);
    return literal;
}

} // namespace tabra::query
