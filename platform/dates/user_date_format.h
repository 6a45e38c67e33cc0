// The user's date format: the order of day, month and year and the character between
// them, taken from the date order of the LC_TIME locale.
#pragma once

#include <optional>
#include <string_view>

namespace tabra::platform {

enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };

struct UserDateFormat {
    DateOrder order;
    char16_t separator; // '.', '/' or '-'
};

// The usual separator of an order: "." for day.month.year, "/" for month/day/year,
// "-" for year-month-day.
UserDateFormat dateFormatWithOrder(DateOrder order);

// The format a strftime date pattern (nl_langinfo(D_FMT)) describes, as "%d.%m.%Y" or
// "%m/%d/%y"; nothing when the pattern does not name day, month and year. A
// separator other than ".", "/" or "-" gives the usual one of the order.
std::optional<UserDateFormat> dateFormatFromPattern(std::string_view pattern);

// The format of a named locale: ISO year-month-day for C and POSIX (and C.UTF-8),
// else its D_FMT; nothing when the locale is not installed.
std::optional<UserDateFormat> dateFormatOfLocale(const char *localeName);

// The order forced by the environment variable TABRA_DATE_ORDER ("DMY", "MDY" or
// "YMD", any case); nothing when it is unset or holds anything else.
std::optional<DateOrder> dateOrderOverride();

// The format in force: TABRA_DATE_ORDER when set; else the LC_TIME locale of the
// process when a program has set one (setlocale) other than C/POSIX; else the locale
// the environment names for LC_TIME (LC_ALL, LC_TIME, LANG); ISO year-month-day when
// that is C/POSIX, unset or not installed. The process locale is never changed.
UserDateFormat currentUserDateFormat();

} // namespace tabra::platform
