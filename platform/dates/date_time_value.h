// Rules for the DateTimeStruct values the date conversions read and write.
#pragma once

#include "ostrel_dates.h"

namespace tabra::platform {

bool isLeapYear(int year);
// Days of a month (1-12) of a year; 0 for a month outside 1-12.
int daysInMonth(int year, int month);

// A time of day: hour 0-23, minute and second 0-59, fraction below one second.
bool isValidTimeOfDay(const DateTimeStruct &value);

// A value with a date: year 1-9999, a month and a day that exist, a valid time of day.
bool isValidDate(const DateTimeStruct &value);

// A time without a date: year, month and day 0, HasTime set, a valid time of day.
bool isTimeOnly(const DateTimeStruct &value);

} // namespace tabra::platform
