// Reading dates: the user's own format and the ODBC timestamp text.
#pragma once

#include "ostrel_dates.h"
#include "platform/dates/user_date_format.h"

#include <optional>
#include <string_view>

namespace tabra::platform {

// Two-digit years: 00-29 are 2000-2029, 30-99 are 1930-1999.
int expandTwoDigitYear(int year);

// A date typed in the user's format: three numbers divided by one separator used
// twice (".", "/" or "-"); day and month take one or two digits; the year two digits
// (see expandTwoDigitYear) or four. A first number of four digits is always a year
// and the text then reads year-month-day, whatever the format. An optional time
// "h:mm[:ss[.fraction]]" follows after blanks. Blanks around the whole are ignored.
std::optional<DateTimeStruct> parseUserDate(std::u16string_view text, const UserDateFormat &format);

// An ODBC timestamp "yyyy-mm-dd[ hh:mm:ss[.fraction]]" ("T" may stand for the blank;
// a zone "Z" or "+hh[:mm]" after the time is accepted and ignored), a date alone, or a
// time alone "hh:mm:ss[.fraction]" (which gives a value without a date).
std::optional<DateTimeStruct> parseOdbcTimestamp(std::u16string_view text);

} // namespace tabra::platform
