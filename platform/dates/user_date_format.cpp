#include "platform/dates/user_date_format.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>
#include <locale.h>
#include <string>
#include <strings.h>

namespace tabra::platform {
namespace {

enum class Field { Day, Month, Year };

bool isDateSeparator(char c) { return c == '.' || c == '/' || c == '-'; }

// C, POSIX and their encodings (C.UTF-8, C.utf8) name the ISO order, whatever D_FMT
// they carry.
bool isPortableLocaleName(const char *name) {
    if (!name || !*name)
        return true;
    return std::strcmp(name, "C") == 0 || std::strcmp(name, "POSIX") == 0 || std::strncmp(name, "C.", 2) == 0 ||
           std::strncmp(name, "POSIX.", 6) == 0;
}

// The locale the environment names for LC_TIME, by the POSIX precedence.
const char *environmentTimeLocaleName() {
    for (const char *variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char *value = std::getenv(variable);
        if (value && *value)
            return value;
    }
    return nullptr;
}

} // namespace

UserDateFormat dateFormatWithOrder(DateOrder order) {
    switch (order) {
    case DateOrder::DayMonthYear: return {order, u'.'};
    case DateOrder::MonthDayYear: return {order, u'/'};
    case DateOrder::YearMonthDay: break;
    }
    return {DateOrder::YearMonthDay, u'-'};
}

std::optional<UserDateFormat> dateFormatFromPattern(std::string_view pattern) {
    Field fields[3];
    int count = 0;
    char separator = 0;
    const auto add = [&](Field f) {
        for (int i = 0; i < count; ++i)
            if (fields[i] == f)
                return;
        if (count < 3)
            fields[count++] = f;
    };
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char c = pattern[i];
        if (c != '%') {
            // The first separator that stands between two fields.
            if (count > 0 && count < 3 && !separator && isDateSeparator(c))
                separator = c;
            continue;
        }
        // Skip the flags, width and E/O modifiers glibc allows before a conversion.
        ++i;
        while (i < pattern.size() && (std::strchr("-_0^#EO", pattern[i]) || std::isdigit((unsigned char)pattern[i])))
            ++i;
        if (i >= pattern.size())
            break;
        switch (pattern[i]) {
        case 'd':
        case 'e': add(Field::Day); break;
        case 'm':
        case 'b':
        case 'B':
        case 'h': add(Field::Month); break;
        case 'y':
        case 'Y':
        case 'G':
        case 'g': add(Field::Year); break;
        case 'D': // %m/%d/%y
            add(Field::Month);
            add(Field::Day);
            add(Field::Year);
            separator = separator ? separator : '/';
            break;
        case 'F': // %Y-%m-%d
            add(Field::Year);
            add(Field::Month);
            add(Field::Day);
            separator = separator ? separator : '-';
            break;
        default: break;
        }
    }
    if (count < 3)
        return std::nullopt;
    DateOrder order;
    if (fields[0] == Field::Year)
        order = DateOrder::YearMonthDay;
    else if (fields[0] == Field::Month)
        order = DateOrder::MonthDayYear;
    else
        order = DateOrder::DayMonthYear;
    UserDateFormat format = dateFormatWithOrder(order);
    if (separator)
        format.separator = static_cast<char16_t>(separator);
    return format;
}

std::optional<UserDateFormat> dateFormatOfLocale(const char *localeName) {
    if (isPortableLocaleName(localeName))
        return dateFormatWithOrder(DateOrder::YearMonthDay);
    const locale_t locale = newlocale(LC_TIME_MASK, localeName, static_cast<locale_t>(nullptr));
    if (!locale)
        return std::nullopt;
    const std::string pattern = nl_langinfo_l(D_FMT, locale);
    freelocale(locale);
    return dateFormatFromPattern(pattern);
}

std::optional<DateOrder> dateOrderOverride() {
    const char *value = std::getenv("TABRA_DATE_ORDER");
    if (!value)
        return std::nullopt;
    if (strcasecmp(value, "DMY") == 0)
        return DateOrder::DayMonthYear;
    if (strcasecmp(value, "MDY") == 0)
        return DateOrder::MonthDayYear;
    if (strcasecmp(value, "YMD") == 0)
        return DateOrder::YearMonthDay;
    return std::nullopt;
}

UserDateFormat currentUserDateFormat() {
    if (const auto order = dateOrderOverride())
        return dateFormatWithOrder(*order);
    // A program that called setlocale has chosen its locale: its D_FMT (through the
    // calling thread's locale) decides.
    const char *processLocale = setlocale(LC_TIME, nullptr);
    if (!isPortableLocaleName(processLocale)) {
        if (const auto format = dateFormatFromPattern(nl_langinfo(D_FMT)))
            return *format;
    }
    if (const auto format = dateFormatOfLocale(environmentTimeLocaleName()))
        return *format;
    return dateFormatWithOrder(DateOrder::YearMonthDay);
}

} // namespace tabra::platform
