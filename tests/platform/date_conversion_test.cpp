// Date conversions through the exported calls: the user's format in each order, ODBC
// timestamps, ODBC constants and patterns; impossible dates and bad text give 0.
#include "ostrel_dates.h"
#include "platform/dates/date_parsing.h"
#include "platform/dates/date_writing.h"
#include "support/scoped_environment.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <ostream>
#include <string>

using tabra::test::ScopedEnvironmentVariable;

// Found by argument-dependent lookup, so outside any namespace.
static bool operator==(const DateTimeStruct &a, const DateTimeStruct &b) {
    return a.Year == b.Year && a.Month == b.Month && a.Day == b.Day && a.Hour == b.Hour && a.Minute == b.Minute &&
           a.Second == b.Second && a.Fraction == b.Fraction && (a.HasTime != 0) == (b.HasTime != 0);
}

static std::ostream &operator<<(std::ostream &out, const DateTimeStruct &v) {
    return out << v.Year << '-' << v.Month << '-' << v.Day << ' ' << v.Hour << ':' << v.Minute << ':' << v.Second
               << '.' << v.Fraction << (v.HasTime ? " (time)" : "");
}

namespace {

DateTimeStruct date(int year, int month, int day) {
    DateTimeStruct value{};
    value.Year = static_cast<int16_t>(year);
    value.Month = static_cast<int16_t>(month);
    value.Day = static_cast<int16_t>(day);
    return value;
}

DateTimeStruct dateTime(int year, int month, int day, int hour, int minute, int second, uint32_t fraction = 0) {
    DateTimeStruct value = date(year, month, day);
    value.Hour = static_cast<int16_t>(hour);
    value.Minute = static_cast<int16_t>(minute);
    value.Second = static_cast<int16_t>(second);
    value.Fraction = fraction;
    value.HasTime = 1;
    return value;
}

// Parses with the exported call; a failure must leave the value zeroed.
std::optional<DateTimeStruct> parseFormatted(const char16_t *text) {
    DateTimeStruct value = dateTime(1111, 1, 1, 1, 1, 1, 1); // junk that a failure must clear
    if (FormattedDate_To_DateTimeStruct(text, &value, 0) == 1)
        return value;
    EXPECT_EQ(value, DateTimeStruct{}) << "a failed parse leaves the value zeroed";
    return std::nullopt;
}

std::optional<DateTimeStruct> parseOdbc(const char16_t *text) {
    DateTimeStruct value = dateTime(1111, 1, 1, 1, 1, 1, 1);
    if (OdbcTimeStamp_To_DateTimeStruct(text, &value) == 1)
        return value;
    EXPECT_EQ(value, DateTimeStruct{});
    return std::nullopt;
}

std::u16string formatted(const DateTimeStruct &value, int32_t flags = 0) {
    char16_t buffer[64];
    if (DateTimeStruct_To_FormattedDate(&value, buffer, 64, flags) != 1)
        return u"<failed>";
    return buffer;
}

class DateConversion : public ::testing::Test {
protected:
    // Day.month.year unless a test says otherwise; the locale must not matter.
    ScopedEnvironmentVariable locale_{"LC_ALL", "C.UTF-8"};
    std::optional<ScopedEnvironmentVariable> order_{std::in_place, "TABRA_DATE_ORDER", "DMY"};
    void useOrder(const char *order) { order_.emplace("TABRA_DATE_ORDER", order); }
};

TEST_F(DateConversion, ParsesEachUserOrderWithAnOptionalTime) {
    struct Case {
        const char *order;
        const char16_t *text;
        DateTimeStruct expected;
    };
    const Case cases[] = {
        {"DMY", u"24.12.2024", date(2024, 12, 24)},
        {"DMY", u" 1.2.2024 ", date(2024, 2, 1)},
        {"MDY", u"12/24/2024", date(2024, 12, 24)},
        {"MDY", u"2/1/2024", date(2024, 2, 1)},
        {"YMD", u"2024-12-24", date(2024, 12, 24)},
        {"DMY", u"2024-02-01", date(2024, 2, 1)}, // four digits first: ISO in every order
        {"MDY", u"2024-02-01", date(2024, 2, 1)},
        {"DMY", u"1.2.00", date(2000, 2, 1)}, // two-digit years pivot at thirty
        {"DMY", u"1.2.29", date(2029, 2, 1)},
        {"DMY", u"1.2.30", date(1930, 2, 1)},
        {"DMY", u"1.2.99", date(1999, 2, 1)},
        {"DMY", u"24.12.2024 13:45", dateTime(2024, 12, 24, 13, 45, 0)},
        {"DMY", u"24.12.2024  7:05:09", dateTime(2024, 12, 24, 7, 5, 9)},
        {"DMY", u"24.12.2024 23:59:59.25", dateTime(2024, 12, 24, 23, 59, 59, 250000000)},
        {"DMY", u"29.02.2024", date(2024, 2, 29)},
        {"DMY", u"29.02.2000", date(2000, 2, 29)},
    };
    for (const Case &c : cases) {
        useOrder(c.order);
        EXPECT_EQ(parseFormatted(c.text), c.expected) << c.order << " " << std::u16string(c.text).size();
    }
}

TEST_F(DateConversion, ImpossibleDatesAndTimesGiveZero) {
    for (const char16_t *text : {u"31.02.2024", u"29.02.2023", u"29.02.1900", u"31.04.2024", u"0.1.2024",
                                 u"1.0.2024", u"1.13.2024", u"1.1.0000", u"24.12.2024 24:00", u"24.12.2024 12:60",
                                 u"24.12.2024 12:00:60"})
        EXPECT_FALSE(parseFormatted(text).has_value()) << std::u16string(text).size();
    useOrder("MDY");
    EXPECT_FALSE(parseFormatted(u"13/13/2020").has_value());
    EXPECT_FALSE(parseFormatted(u"24.12.2024").has_value()); // day first is no month
}

TEST_F(DateConversion, GarbageGivesZeroAndNeverACrash) {
    for (const char16_t *text :
         {u"", u"   ", u"garbage", u"1.2", u"1.2.", u".1.2024", u"1.2.3.4", u"24.12/2024", u"24.12.2024x",
          u"24.12.2024 x", u"24.12.2024 13", u"24.12.2024 13:5", u"1.2.345", u"1.2.20245", u"123.1.2024",
          u"99999999999999999999.1.2024", u"1.99999999999999999999.2024", u"1.1.99999999999999999999",
          u"-1.2.2024", u"1. 2.2024", u"\U0001F600"})
        EXPECT_FALSE(parseFormatted(text).has_value());
    DateTimeStruct value{};
    EXPECT_EQ(FormattedDate_To_DateTimeStruct(nullptr, &value, 0), 0);
    EXPECT_EQ(FormattedDate_To_DateTimeStruct(u"1.1.2024", nullptr, 0), 0);
}

TEST_F(DateConversion, WritesTheUserFormatOfEachOrder) {
    const DateTimeStruct christmas = dateTime(2024, 12, 24, 8, 5, 3);
    EXPECT_EQ(formatted(date(2024, 3, 5)), u"05.03.2024");
    EXPECT_EQ(formatted(christmas, OSTREL_DATE_WITH_TIME), u"24.12.2024 08:05:03");
    EXPECT_EQ(formatted(christmas), u"24.12.2024");
    useOrder("MDY");
    EXPECT_EQ(formatted(christmas), u"12/24/2024");
    useOrder("YMD");
    EXPECT_EQ(formatted(christmas, OSTREL_DATE_WITH_TIME), u"2024-12-24 08:05:03");
}

TEST_F(DateConversion, UserFormatRoundTripsInEveryOrder) {
    for (const char *order : {"DMY", "MDY", "YMD"}) {
        useOrder(order);
        for (int year : {1, 1930, 1999, 2000, 2029, 2024, 9999}) {
            for (int month = 1; month <= 12; ++month) {
                const DateTimeStruct value = dateTime(year, month, month == 2 ? 28 : 30, month, 59 - month, month);
                const std::u16string text = formatted(value, OSTREL_DATE_WITH_TIME);
                EXPECT_EQ(parseFormatted(text.c_str()), value) << order;
            }
        }
    }
}

TEST_F(DateConversion, ReadsOdbcTimestampsAsDriversSendThem) {
    EXPECT_EQ(parseOdbc(u"2024-01-05 10:11:12"), dateTime(2024, 1, 5, 10, 11, 12));
    EXPECT_EQ(parseOdbc(u"2024-01-05 10:11:12.123"), dateTime(2024, 1, 5, 10, 11, 12, 123000000));
    EXPECT_EQ(parseOdbc(u"2024-01-05 10:11:12.123456789123"), dateTime(2024, 1, 5, 10, 11, 12, 123456789));
    EXPECT_EQ(parseOdbc(u"2024-01-05"), date(2024, 1, 5));
    EXPECT_EQ(parseOdbc(u"2024-01-05T10:11:12Z"), dateTime(2024, 1, 5, 10, 11, 12));
    EXPECT_EQ(parseOdbc(u"2024-01-05 10:11:12+01"), dateTime(2024, 1, 5, 10, 11, 12));
    EXPECT_EQ(parseOdbc(u"2024-01-05 10:11:12-05:30"), dateTime(2024, 1, 5, 10, 11, 12));
    EXPECT_EQ(parseOdbc(u"2024-01-05 00:00:00  "), dateTime(2024, 1, 5, 0, 0, 0));
    DateTimeStruct timeOnly{};
    timeOnly.Hour = 10, timeOnly.Minute = 11, timeOnly.Second = 12, timeOnly.HasTime = 1;
    EXPECT_EQ(parseOdbc(u"10:11:12"), timeOnly);
}

TEST_F(DateConversion, RefusesBrokenOdbcTimestamps) {
    for (const char16_t *text : {u"", u"2024-13-01", u"2024-02-30", u"2024-01-05 25:00:00", u"2024-01-05 10:11",
                                 u"24-01-05", u"2024/01/05", u"2024-01-05 10:11:12 BC", u"2024-01-05 10:11:12.",
                                 u"25:00:00", u"10:11", u"2024-01-05x"})
        EXPECT_FALSE(parseOdbc(text).has_value());
    DateTimeStruct value{};
    EXPECT_EQ(OdbcTimeStamp_To_DateTimeStruct(nullptr, &value), 0);
}

// Each writer with the value, capacity and text it gives; a refused value writes no text
// (expected nullptr), and the user's format then leaves an empty buffer (expected u"").
TEST_F(DateConversion, WritersGiveTheirTextOrRefuse) {
    using Writer = std::function<int32_t(const DateTimeStruct *, char16_t *, int32_t)>;
    const Writer user = [](const DateTimeStruct *v, char16_t *out, int32_t capacity) {
        return DateTimeStruct_To_FormattedDate(v, out, capacity, 0);
    };
    const Writer timestamp = DateTimeStruct_To_OdbcTimeStamp, constant = DateTimeStruct_To_OdbcDateConstant;
    auto pattern = [](const char16_t *text) -> Writer {
        return [text](const DateTimeStruct *v, char16_t *out, int32_t capacity) {
            return DateTimeStruct_To_PatternText(v, text, out, capacity);
        };
    };
    DateTimeStruct timeOnly{};
    timeOnly.Hour = 9, timeOnly.HasTime = 1;
    const DateTimeStruct day = date(2024, 3, 5), moment = dateTime(2024, 3, 5, 14, 7, 9);
    const DateTimeStruct early = dateTime(2024, 3, 5, 7, 8, 9);
    struct Case {
        Writer write;
        DateTimeStruct value;
        int32_t capacity;
        const char16_t *expected;
    };
    const Case cases[] = {
        {user, date(2024, 2, 30), 32, u""},
        {user, day, 11, u"05.03.2024"}, // fits exactly
        {user, day, 10, u""},           // never a cut date
        {user, timeOnly, 40, u"09:00:00"},
        {timestamp, day, 40, u"2024-03-05 00:00:00"},
        {timestamp, dateTime(2024, 3, 5, 14, 7, 9, 500000000), 40, u"2024-03-05 14:07:09.5"},
        {timestamp, day, 0, nullptr},
        {timestamp, dateTime(2024, 3, 5, 24, 0, 0), 32, nullptr},
        {constant, day, 40, u"{d '2024-03-05'}"},
        {constant, moment, 40, u"{ts '2024-03-05 14:07:09'}"},
        {constant, day, 17, u"{d '2024-03-05'}"}, // 16 characters: capacity 17 fits, 16 does not
        {constant, day, 16, nullptr},
        {constant, timeOnly, 40, u"{t '09:00:00'}"},
        {constant, dateTime(2024, 3, 5, 1, 0, 0, 1000000000u), 32, nullptr},
        {pattern(u"%D1.%M1.%Y2"), early, 40, u"5.3.24"},
        {pattern(u"%D2/%M2/%Y4 %h2:%m2:%s2"), early, 40, u"05/03/2024 07:08:09"},
        {pattern(u"%D1.%M1.%Y2"), date(2000, 12, 31), 40, u"31.12.00"},
        {pattern(u"100% %X1 %D"), early, 40, u"100% %X1 %D"}, // unknown codes and a lone "%" are copied
        {pattern(nullptr), early, 40, nullptr},
        {pattern(u"%Y4"), early, 4, nullptr},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(::testing::Message() << c.value << " capacity " << c.capacity);
        char16_t buffer[40] = u"untouched";
        const bool written = c.expected != nullptr && *c.expected != u'\0';
        EXPECT_EQ(c.write(&c.value, buffer, c.capacity), written ? 1 : 0);
        if (c.expected) {
            EXPECT_EQ(std::u16string(buffer), c.expected);
        }
    }
    char16_t buffer[32];
    EXPECT_EQ(DateTimeStruct_To_FormattedDate(nullptr, buffer, 32, 0), 0);
    EXPECT_EQ(DateTimeStruct_To_FormattedDate(&day, nullptr, 32, 0), 0);
}

TEST_F(DateConversion, UserDateBecomesAnOdbcConstant) {
    // The road a typed condition value takes into a WHERE clause.
    DateTimeStruct value{};
    ASSERT_EQ(FormattedDate_To_DateTimeStruct(u"1.2.24", &value, 0), 1);
    char16_t buffer[40];
    ASSERT_EQ(DateTimeStruct_To_OdbcDateConstant(&value, buffer, 40), 1);
    EXPECT_EQ(std::u16string(buffer), u"{d '2024-02-01'}");
}

} // namespace
