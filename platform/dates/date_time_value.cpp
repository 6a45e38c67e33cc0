#include "platform/dates/date_time_value.h"

namespace tabra::platform {

bool isLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int daysInMonth(int year, int month) {
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        return 0;
    return month == 2 && isLeapYear(year) ? 29 : kDays[month - 1];
}

bool isValidTimeOfDay(const DateTimeStruct &value) {
    return value.Hour >= 0 && value.Hour <= 23 && value.Minute >= 0 && value.Minute <= 59 && value.Second >= 0 &&
           value.Second <= 59 && value.Fraction < 1000000000u;
}

bool isValidDate(const DateTimeStruct &value) {
    return value.Year >= 1 && value.Year <= 9999 && value.Day >= 1 &&
           value.Day <= daysInMonth(value.Year, value.Month) && isValidTimeOfDay(value);
}

bool isTimeOnly(const DateTimeStruct &value) {
    return value.Year == 0 && value.Month == 0 && value.Day == 0 && value.HasTime && isValidTimeOfDay(value);
}

} // namespace tabra::platform
