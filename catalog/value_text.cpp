// Fetched ODBC text made display text.
#include "catalog/value_text.h"

#include "platform/dates/date_parsing.h"
#include "platform/dates/date_writing.h"
#include "platform/text/bounded_text.h"
#include "tabra_catalog.h"

#include <sql.h>
#include <sqlext.h>

namespace tabra::catalog {
namespace {

enum class Kind { Unchanged, Number, Date };

Kind kindOf(int32_t sqlType) {
    switch (sqlType) {
    case SQL_NUMERIC: case SQL_DECIMAL: case SQL_FLOAT: case SQL_REAL: case SQL_DOUBLE:
        return Kind::Number;
    case SQL_DATE: case SQL_TIME: case SQL_TIMESTAMP: // the ODBC 2 codes 9, 10, 11
        return Kind::Date;
    default:
        return Kind::Unchanged;
    }
}

} // namespace

bool changesDisplayText(int32_t sqlType) { return kindOf(sqlType) != Kind::Unchanged; }

DisplayTextWriter::DisplayTextWriter(char16_t decimal)
    : DisplayTextWriter(decimal, platform::currentUserDateFormat()) {}

void DisplayTextWriter::append(int32_t sqlType, std::u16string_view value, std::u16string &out) const {
    switch (kindOf(sqlType)) {
    case Kind::Number: {
        std::size_t start = out.size();
        out.append(value);
        for (std::size_t i = start; i < out.size(); ++i)
            if (out[i] == u'.') out[i] = decimal_;
        return;
    }
    case Kind::Date:
        if (auto date = platform::parseOdbcTimestamp(value); date && platform::appendUserDate(out, *date, dates_, false))
            return;
        break;
    case Kind::Unchanged:
        break;
    }
    out.append(value);
}

} // namespace tabra::catalog

extern "C" void Tabra_OdbcDataToString(char16_t *text, int32_t capacity, int32_t sqlType, char16_t decimal) {
    if (text == nullptr || capacity < 1 || !tabra::catalog::changesDisplayText(sqlType)) return;
    std::u16string_view value(text, tabra::platform::boundedLength(text, static_cast<std::size_t>(capacity)));
    std::u16string shown;
    tabra::catalog::DisplayTextWriter(decimal).append(sqlType, value, shown);
    // Numbers keep their length; a date is written only when it fits with its terminator.
    if (shown.size() > value.size() && shown.size() >= static_cast<std::size_t>(capacity)) return;
    shown.copy(text, shown.size());
    if (shown.size() < static_cast<std::size_t>(capacity)) text[shown.size()] = u'\0';
}
