// Writing dates: the user's format, the ODBC timestamp text, the ODBC escape
// constants and free patterns. Each writer takes a valid date (date_time_value.h) or a
// time without a date, and answers nothing for anything else.
#pragma once

#include "ostrel_dates.h"
#include "platform/dates/user_date_format.h"

#include <optional>
#include <string>
#include <string_view>

namespace tabra::platform {

// Appends value (negative as 0) in decimal, padded with zeros to minDigits.
void appendNumber(std::u16string &out, int value, int minDigits);

// "dd.mm.yyyy", "mm/dd/yyyy" or "yyyy-mm-dd" (with the format's separator), followed
// by " hh:mm:ss" when withTime; a time without a date is written "hh:mm:ss".
std::optional<std::u16string> formatUserDate(const DateTimeStruct &value, const UserDateFormat &format,
                                             bool withTime);
// The same appended to out; false (and out as it was) when there is nothing to write.
bool appendUserDate(std::u16string &out, const DateTimeStruct &value, const UserDateFormat &format, bool withTime);

// "yyyy-mm-dd hh:mm:ss", or "hh:mm:ss" for a time without a date; a fraction that is
// not zero follows as ".f" with its trailing zeros dropped.
std::optional<std::u16string> formatOdbcTimestamp(const DateTimeStruct &value);

// {d 'yyyy-mm-dd'} without HasTime, {ts 'yyyy-mm-dd hh:mm:ss[.f]'} with it,
// {t 'hh:mm:ss[.f]'} for a time without a date.
std::optional<std::u16string> formatOdbcDateConstant(const DateTimeStruct &value);

// The pattern with %D1 %D2 (day as is or two digits), %M1 %M2 (month), %Y2 %Y4
// (year in two or four digits), %h2 %m2 %s2 (hour, minute, second) replaced; every
// other character, also a "%" that starts none of these, is copied.
std::optional<std::u16string> formatPattern(const DateTimeStruct &value, std::u16string_view pattern);

} // namespace tabra::platform
