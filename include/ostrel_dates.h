/* Date conversions between the user's date format, ODBC timestamps and ODBC date
 * constants. The user's format follows the date order of the LC_TIME locale:
 * day.month.year (as de_DE), month/day/year (as en_US), year-month-day for C, POSIX,
 * C.UTF-8, an unset or a missing locale. The locale of a program that called setlocale
 * comes first, else the one the environment names (LC_ALL, LC_TIME, LANG); the process
 * locale is never changed. The environment variable TABRA_DATE_ORDER = DMY, MDY or YMD
 * overrides the locale (DMY writes "dd.mm.yyyy", MDY "mm/dd/yyyy", YMD "yyyy-mm-dd"). */
#ifndef OSTREL_DATES_H
#define OSTREL_DATES_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

typedef struct DateTimeStruct {
    int16_t Year;
    int16_t Month;
    int16_t Day;
    int16_t Hour;
    int16_t Minute;
    int16_t Second;
    uint32_t Fraction; /* nanoseconds */
    int32_t HasTime;   /* nonzero when a time part was given */
} DateTimeStruct;

/* A value is either a date (year 1-9999, an existing month and day, hour 0-23, minute
 * and second 0-59, fraction below 10^9) or a time without a date (year, month and day
 * 0, HasTime set). Each function returns 1 on success and 0 on failure (bad arguments,
 * an impossible date, a text that is not a date, an output too small for the whole
 * text); a failed conversion leaves the output zeroed/empty and never writes a cut date. */

/* Parses a date (and optional time) typed in the user's format: three numbers with the
 * same separator ".", "/" or "-" between them, in the user's order; a first number of
 * four digits is a year and the text is then read year-month-day in every locale. Day
 * and month take one or two digits, the year two or four; two-digit years pivot at 30
 * (00-29 -> 2000-2029, 30-99 -> 1930-1999). A time "h:mm[:ss[.fraction]]" may follow
 * after blanks and sets HasTime. flags: reserved, pass 0. */
TABRA_API int32_t FormattedDate_To_DateTimeStruct(const char16_t *text, DateTimeStruct *value, int32_t flags);

/* Flags of DateTimeStruct_To_FormattedDate. */
#define OSTREL_DATE_WITH_TIME 1 /* append " hh:mm:ss" */

/* Writes the value in the user's format, day and month in two digits and the year in
 * four ("24.12.2024", "12/24/2024", "2024-12-24"); flags 1 adds " hh:mm:ss". A time
 * without a date is written "hh:mm:ss". */
TABRA_API int32_t DateTimeStruct_To_FormattedDate(const DateTimeStruct *value, char16_t *output,
                                                   int32_t capacity, int32_t flags);
/* Reads an ODBC timestamp text "yyyy-mm-dd[ hh:mm:ss[.fff]]" (or a time "hh:mm:ss",
 * which gives a time without a date). "T" may stand for the blank; up to nine fraction
 * digits are kept; a zone ("Z", "+01", "-05:30") after the time is ignored. HasTime is
 * set when a time was given. */
TABRA_API int32_t OdbcTimeStamp_To_DateTimeStruct(const char16_t *text, DateTimeStruct *value);
/* Writes "yyyy-mm-dd hh:mm:ss" (the time 00:00:00 when the value has none), or
 * "hh:mm:ss" for a time without a date; a fraction that is not 0 follows as ".f". */
TABRA_API int32_t DateTimeStruct_To_OdbcTimeStamp(const DateTimeStruct *value, char16_t *output, int32_t capacity);
/* Writes the ODBC escape: {d 'yyyy-mm-dd'} without a time, {ts 'yyyy-mm-dd hh:mm:ss'}
 * with one (HasTime), {t 'hh:mm:ss'} for a time without a date. */
TABRA_API int32_t DateTimeStruct_To_OdbcDateConstant(const DateTimeStruct *value, char16_t *output, int32_t capacity);
/* Pattern writer: %D1/%D2 day (1: as is, 2: two digits), %M1/%M2 month, %Y2/%Y4 year,
 * %h2 %m2 %s2 hour, minute, second; every other character is copied. So "%D1.%M1.%Y2"
 * writes 5.3.24 for 5 March 2024. */
TABRA_API int32_t DateTimeStruct_To_PatternText(const DateTimeStruct *value, const char16_t *pattern,
                                                char16_t *output, int32_t capacity);

TABRA_END_DECLS

#endif
