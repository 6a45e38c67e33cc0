#include "platform/dates/date_parsing.h"

#include "platform/dates/date_time_value.h"
#include "platform/text/bounded_text.h"

namespace tabra::platform {
namespace {

// A cursor over the text with the small readers both grammars share.
class Scanner {
public:
    explicit Scanner(std::u16string_view text) : text_(text) {}

    bool atEnd() const { return at_ >= text_.size(); }
    char16_t peek() const { return atEnd() ? u'\0' : text_[at_]; }

    bool take(char16_t c) {
        if (peek() != c)
            return false;
        ++at_;
        return true;
    }

    // Skips blanks (space and tab); answers whether there were any.
    bool skipBlanks() {
        const std::size_t start = at_;
        while (peek() == u' ' || peek() == u'\t')
            ++at_;
        return at_ > start;
    }

    // Reads a run of digits of a length within [minDigits, maxDigits]; reads nothing
    // and answers nothing when the run is shorter or longer.
    std::optional<int> number(std::size_t minDigits, std::size_t maxDigits, std::size_t *digitsRead = nullptr) {
        std::size_t end = at_;
        while (end < text_.size() && text_[end] >= u'0' && text_[end] <= u'9')
            ++end;
        const std::size_t digits = end - at_;
        if (digits < minDigits || digits > maxDigits)
            return std::nullopt;
        int value = 0;
        for (; at_ < end; ++at_)
            value = value * 10 + (text_[at_] - u'0');
        if (digitsRead)
            *digitsRead = digits;
        return value;
    }

    // Digits after a decimal point as nanoseconds; digits beyond the ninth are dropped.
    std::optional<uint32_t> fraction() {
        uint32_t value = 0;
        std::size_t digits = 0;
        while (peek() >= u'0' && peek() <= u'9') {
            if (digits < 9)
                value = value * 10 + static_cast<uint32_t>(peek() - u'0');
            ++digits;
            ++at_;
        }
        if (digits == 0)
            return std::nullopt;
        for (std::size_t d = digits; d < 9; ++d)
            value *= 10;
        return value;
    }

private:
    std::u16string_view text_;
    std::size_t at_ = 0;
};

std::u16string_view trimmed(std::u16string_view text) {
    const auto isSpace = [](char16_t c) { return c <= u' '; };
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

// "h:mm[:ss[.fraction]]" (hour of one or two digits) into value; strict when seconds
// are required.
bool readTime(Scanner &in, DateTimeStruct &value, bool secondsRequired) {
    const auto hour = in.number(1, 2);
    if (!hour || !in.take(u':'))
        return false;
    const auto minute = in.number(2, 2);
    if (!minute)
        return false;
    value.Hour = static_cast<int16_t>(*hour);
    value.Minute = static_cast<int16_t>(*minute);
    if (in.take(u':')) {
        const auto second = in.number(2, 2);
        if (!second)
            return false;
        value.Second = static_cast<int16_t>(*second);
        if (in.take(u'.')) {
            const auto fraction = in.fraction();
            if (!fraction)
                return false;
            value.Fraction = *fraction;
        }
    } else if (secondsRequired) {
        return false;
    }
    value.HasTime = 1;
    return true;
}

// A zone after an ODBC time: "Z", "+hh", "+hhmm" or "+hh:mm" (or with "-").
bool skipZone(Scanner &in) {
    if (in.take(u'Z'))
        return true;
    if (!in.take(u'+') && !in.take(u'-'))
        return true;
    if (!in.number(2, 2))
        return false;
    if (in.take(u':'))
        return in.number(2, 2).has_value();
    in.number(2, 2); // optional minutes without a colon
    return true;
}

} // namespace

int expandTwoDigitYear(int year) { return year < 30 ? 2000 + year : 1900 + year; }

std::optional<DateTimeStruct> parseUserDate(std::u16string_view text, const UserDateFormat &format) {
    Scanner in(trimmed(text));
    std::size_t firstDigits = 0, lastDigits = 0;
    const auto first = in.number(1, 4, &firstDigits);
    const char16_t separator = in.peek();
    if (!first || (separator != u'.' && separator != u'/' && separator != u'-'))
        return std::nullopt;
    in.take(separator);
    const auto second = in.number(1, 2);
    if (!second || !in.take(separator))
        return std::nullopt;
    const auto third = in.number(1, 4, &lastDigits);
    if (!third)
        return std::nullopt;

    DateOrder order = format.order;
    if (firstDigits == 4)
        order = DateOrder::YearMonthDay; // the ISO form is read everywhere
    else if (firstDigits > 2)
        return std::nullopt;

    // Day.month.year, unless the order says otherwise.
    int day = *first, month = *second, year = *third;
    std::size_t yearDigits = lastDigits;
    if (order == DateOrder::MonthDayYear) {
        month = *first;
        day = *second;
    } else if (order == DateOrder::YearMonthDay) {
        year = *first;
        day = *third;
        yearDigits = firstDigits;
        if (lastDigits > 2)
            return std::nullopt;
    }
    if (yearDigits == 1 || yearDigits == 3)
        return std::nullopt;
    if (yearDigits == 2)
        year = expandTwoDigitYear(year);

    DateTimeStruct value{};
    value.Year = static_cast<int16_t>(year);
    value.Month = static_cast<int16_t>(month);
    value.Day = static_cast<int16_t>(day);
    if (in.skipBlanks() && !in.atEnd() && !readTime(in, value, false))
        return std::nullopt;
    if (!in.atEnd() || !isValidDate(value))
        return std::nullopt;
    return value;
}

std::optional<DateTimeStruct> parseOdbcTimestamp(std::u16string_view text) {
    const std::u16string_view body = trimmed(text);
    DateTimeStruct value{};
    Scanner in(body);
    // A time alone: "hh:mm:ss" has its colon third.
    if (body.size() > 2 && body[2] == u':') {
        if (!readTime(in, value, true) || !in.atEnd() || !isTimeOnly(value))
            return std::nullopt;
        return value;
    }
    const auto year = in.number(4, 4);
    if (!year || !in.take(u'-'))
        return std::nullopt;
    const auto month = in.number(1, 2);
    if (!month || !in.take(u'-'))
        return std::nullopt;
    const auto day = in.number(1, 2);
    if (!day)
        return std::nullopt;
    value.Year = static_cast<int16_t>(*year);
    value.Month = static_cast<int16_t>(*month);
    value.Day = static_cast<int16_t>(*day);
    if (!in.atEnd()) {
        if (!in.take(u'T') && !in.skipBlanks())
            return std::nullopt;
        if (!readTime(in, value, true) || !skipZone(in))
            return std::nullopt;
    }
    if (!in.atEnd() || !isValidDate(value))
        return std::nullopt;
    return value;
}

} // namespace tabra::platform

using namespace tabra::platform;

namespace {

int32_t deliver(const std::optional<DateTimeStruct> &parsed, DateTimeStruct *value) {
    *value = parsed.value_or(DateTimeStruct{});
    return parsed ? 1 : 0;
}

} // namespace

extern "C" {

int32_t FormattedDate_To_DateTimeStruct(const char16_t *text, DateTimeStruct *value, int32_t flags) {
    if (!value)
        return 0;
    if (!text)
        return deliver(std::nullopt, value);
    return deliver(parseUserDate(text, currentUserDateFormat()), value);
}

int32_t OdbcTimeStamp_To_DateTimeStruct(const char16_t *text, DateTimeStruct *value) {
    if (!value)
        return 0;
    if (!text)
        return deliver(std::nullopt, value);
    return deliver(parseOdbcTimestamp(text), value);
}

} // extern "C"
