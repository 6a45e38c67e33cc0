// Fetched ODBC text made display text, as C++: the user's decimal character in
// numbers (SQL types 2, 3, 6, 7, 8), the user's date form for the ODBC 2 date and time
// types (9, 10, 11: a timestamp keeps only its date); every other type, integers
// included, stays as fetched. Tabra_OdbcDataToString is a thin shell over it; the
// export file writes every value through it.
#pragma once

#include "platform/dates/user_date_format.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tabra::catalog {

// Whether values of the type are changed at all.
bool changesDisplayText(int32_t sqlType);

class DisplayTextWriter {
public:
    // decimal replaces "." in numbers; the user's date format is taken now, once for
    // all the values written.
    explicit DisplayTextWriter(char16_t decimal);
    DisplayTextWriter(char16_t decimal, platform::UserDateFormat dates) : decimal_(decimal), dates_(dates) {}

    // Appends the display form of value, the text of a column of sqlType, to out. A
    // date text that is no ODBC timestamp is appended as it is.
    void append(int32_t sqlType, std::u16string_view value, std::u16string &out) const;

private:
    char16_t decimal_;
    platform::UserDateFormat dates_;
};

} // namespace tabra::catalog
