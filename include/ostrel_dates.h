/* Date conversions between the user's date format, ODBC timestamps and ODBC date
 * constants. The user's format follows the locale's date order (LC_TIME). */
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

/* Each returns 1 on success and 0 on failure (bad arguments, an impossible date, a
 * text that is not a date); a failed conversion leaves the output zeroed/empty. */

/* Parses a date (and optional time) typed in the user's format: day.month.year for
 * German-style locales, month/day/year for en_US, year-month-day for C/POSIX and as a
 * fallback everywhere; two-digit years pivot at 30 (00-29 -> 20xx). */
TABRA_API int32_t FormattedDate_To_DateTimeStruct(const char16_t *text, DateTimeStruct *value, int32_t flags);
/* Writes the value in the user's format; flags 1 adds the time. */
TABRA_API int32_t DateTimeStruct_To_FormattedDate(const DateTimeStruct *value, char16_t *output,
                                                   int32_t capacity, int32_t flags);
/* Reads an ODBC timestamp text "yyyy-mm-dd[ hh:mm:ss[.fff]]" (or a time "hh:mm:ss"). */
TABRA_API int32_t OdbcTimeStamp_To_DateTimeStruct(const char16_t *text, DateTimeStruct *value);
/* Writes "yyyy-mm-dd hh:mm:ss". */
TABRA_API int32_t DateTimeStruct_To_OdbcTimeStamp(const DateTimeStruct *value, char16_t *output, int32_t capacity);
/* Writes the ODBC escape: {d 'yyyy-mm-dd'} without a time, {ts 'yyyy-mm-dd hh:mm:ss'} with one. */
TABRA_API int32_t DateTimeStruct_To_OdbcDateConstant(const DateTimeStruct *value, char16_t *output, int32_t capacity);
/* Pattern writer: %D1/%D2 day (1: as is, 2: two digits), %M1/%M2 month, %Y2/%Y4 year,
 * %h2 %m2 %s2 hour, minute, second; every other character is copied. */
TABRA_API int32_t DateTimeStruct_To_PatternText(const DateTimeStruct *value, const char16_t *pattern,
                                                char16_t *output, int32_t capacity);

TABRA_END_DECLS

#endif
