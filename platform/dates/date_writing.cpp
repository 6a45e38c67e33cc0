#include "platform/dates/date_writing.h"

#include "platform/dates/date_time_value.h"
#include "platform/text/bounded_text.h"

namespace tabra::platform {

void appendNumber(std::u16string &out, int value, int minDigits) {
    char16_t digits[12];
    int count = 0;
    unsigned rest = static_cast<unsigned>(value < 0 ? 0 : value);
    do {
        digits[count++] = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
    } while (rest > 0);
    for (int i = count; i < minDigits; ++i)
        out += u'0';
    while (count > 0)
        out += digits[--count];
}

namespace {

bool isWritable(const DateTimeStruct &value) { return isValidDate(value) || isTimeOnly(value); }

void appendIsoDate(std::u16string &out, const DateTimeStruct &value) {
    appendNumber(out, value.Year, 4);
    out += u'-';
    appendNumber(out, value.Month, 2);
    out += u'-';
    appendNumber(out, value.Day, 2);
}

void appendTime(std::u16string &out, const DateTimeStruct &value, bool withFraction) {
    appendNumber(out, value.Hour, 2);
    out += u':';
    appendNumber(out, value.Minute, 2);
    out += u':';
    appendNumber(out, value.Second, 2);
    if (withFraction && value.Fraction != 0) {
        std::u16string fraction;
        appendNumber(fraction, static_cast<int>(value.Fraction), 9);
        fraction.erase(fraction.find_last_not_of(u'0') + 1);
        out += u'.';
        out += fraction;
    }
}

} // namespace

bool appendUserDate(std::u16string &out, const DateTimeStruct &value, const UserDateFormat &format, bool withTime) {
    if (!isWritable(value))
        return false;
    if (isTimeOnly(value)) {
        appendTime(out, value, false);
        return true;
    }
    int first = value.Day, second = value.Month, third = value.Year; // day.month.year
    if (format.order == DateOrder::MonthDayYear) {
        first = value.Month;
        second = value.Day;
    } else if (format.order == DateOrder::YearMonthDay) {
        first = value.Year;
        third = value.Day;
    }
    appendNumber(out, first, format.order == DateOrder::YearMonthDay ? 4 : 2);
    out += format.separator;
    appendNumber(out, second, 2);
    out += format.separator;
    appendNumber(out, third, format.order == DateOrder::YearMonthDay ? 2 : 4);
    if (withTime) {
        out += u' ';
        appendTime(out, value, false);
    }
    return true;
}

std::optional<std::u16string> formatUserDate(const DateTimeStruct &value, const UserDateFormat &format,
                                             bool withTime) {
    std::u16string out;
    if (!appendUserDate(out, value, format, withTime))
        return std::nullopt;
    return out;
}

std::optional<std::u16string> formatOdbcTimestamp(const DateTimeStruct &value) {
    if (!isWritable(value))
        return std::nullopt;
    std::u16string out;
    if (!isTimeOnly(value)) {
        appendIsoDate(out, value);
        out += u' ';
    }
    appendTime(out, value, true);
    return out;
}

std::optional<std::u16string> formatOdbcDateConstant(const DateTimeStruct &value) {
    if (!isWritable(value))
        return std::nullopt;
    std::u16string out;
    if (isTimeOnly(value)) {
        out = u"{t '";
        appendTime(out, value, true);
    } else if (value.HasTime) {
        out = u"{ts '";
        appendIsoDate(out, value);
        out += u' ';
        appendTime(out, value, true);
    } else {
        out = u"{d '";
        appendIsoDate(out, value);
    }
    out += u"'}";
    return out;
}

std::optional<std::u16string> formatPattern(const DateTimeStruct &value, std::u16string_view pattern) {
    if (!isWritable(value))
        return std::nullopt;
    struct Code {
        std::u16string_view name;
        int number;
        int digits;
    };
    const Code codes[] = {
        {u"D1", value.Day, 1},  {u"D2", value.Day, 2},     {u"M1", value.Month, 1},
        {u"M2", value.Month, 2}, {u"Y2", value.Year % 100, 2}, {u"Y4", value.Year, 4},
        {u"h2", value.Hour, 2},  {u"m2", value.Minute, 2},  {u"s2", value.Second, 2},
    };
    std::u16string out;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const Code *code = nullptr;
        if (pattern[i] == u'%' && i + 2 < pattern.size()) {
            for (const Code &candidate : codes)
                if (pattern.substr(i + 1, 2) == candidate.name)
                    code = &candidate;
        }
        if (code) {
            appendNumber(out, code->number, code->digits);
            i += 2;
        } else {
            out += pattern[i];
        }
    }
    return out;
}

} // namespace tabra::platform

using namespace tabra::platform;

namespace {

// Writes a formatted text when there is one and it fits whole; otherwise leaves the
// output empty. A date cut in the middle would be a different date, so it is never cut.
int32_t deliver(const std::optional<std::u16string> &text, char16_t *output, int32_t capacity) {
    if (!output || capacity < 1)
        return 0;
    if (!text || text->size() >= static_cast<std::size_t>(capacity)) {
        output[0] = u'\0';
        return 0;
    }
    writeBounded(output, capacity, *text);
    return 1;
}

} // namespace

extern "C" {

int32_t DateTimeStruct_To_FormattedDate(const DateTimeStruct *value, char16_t *output, int32_t capacity,
                                        int32_t flags) {
    if (!value)
        return deliver(std::nullopt, output, capacity);
    return deliver(formatUserDate(*value, currentUserDateFormat(), (flags & OSTREL_DATE_WITH_TIME) != 0), output, capacity);
}

int32_t DateTimeStruct_To_OdbcTimeStamp(const DateTimeStruct *value, char16_t *output, int32_t capacity) {
    return deliver(value ? formatOdbcTimestamp(*value) : std::nullopt, output, capacity);
}

int32_t DateTimeStruct_To_OdbcDateConstant(const DateTimeStruct *value, char16_t *output, int32_t capacity) {
    return deliver(value ? formatOdbcDateConstant(*value) : std::nullopt, output, capacity);
}

int32_t DateTimeStruct_To_PatternText(const DateTimeStruct *value, const char16_t *pattern, char16_t *output,
                                      int32_t capacity) {
    return deliver(value && pattern ? formatPattern(*value, pattern) : std::nullopt, output, capacity);
}

} // extern "C"
