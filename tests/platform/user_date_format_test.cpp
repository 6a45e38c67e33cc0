// Where the user's date format comes from: locale date patterns, the override and
// real installed locales.
#include "platform/dates/user_date_format.h"
#include "support/scoped_environment.h"

#include <gtest/gtest.h>

#include <locale.h>

using namespace tabra::platform;
using tabra::test::ScopedEnvironmentVariable;

namespace {

void expectFormat(const std::optional<UserDateFormat> &format, DateOrder order, char16_t separator) {
    ASSERT_TRUE(format.has_value());
    EXPECT_EQ(format->order, order);
    EXPECT_EQ(format->separator, separator);
}

bool localeInstalled(const char *name) {
    const locale_t locale = newlocale(LC_TIME_MASK, name, static_cast<locale_t>(nullptr));
    if (locale)
        freelocale(locale);
    return locale != nullptr;
}

TEST(UserDateFormat, ReadsTheOrderAndSeparatorOfDatePatterns) {
    expectFormat(dateFormatFromPattern("%d.%m.%Y"), DateOrder::DayMonthYear, u'.');
    expectFormat(dateFormatFromPattern("%m/%d/%Y"), DateOrder::MonthDayYear, u'/');
    expectFormat(dateFormatFromPattern("%Y-%m-%d"), DateOrder::YearMonthDay, u'-');
    expectFormat(dateFormatFromPattern("%d/%m/%y"), DateOrder::DayMonthYear, u'/'); // as en_GB
    expectFormat(dateFormatFromPattern("%e.%-m.%Y"), DateOrder::DayMonthYear, u'.');
    expectFormat(dateFormatFromPattern("%D"), DateOrder::MonthDayYear, u'/');
    expectFormat(dateFormatFromPattern("%F"), DateOrder::YearMonthDay, u'-');
    expectFormat(dateFormatFromPattern("%Y. %m. %d."), DateOrder::YearMonthDay, u'.');
    // A separator that is none of ". / -" gives the order's usual one.
    expectFormat(dateFormatFromPattern("%Y\xE5\xB9\xB4%m\xE6\x9C\x88%d\xE6\x97\xA5"), DateOrder::YearMonthDay, u'-');
    EXPECT_FALSE(dateFormatFromPattern("%H:%M:%S").has_value());
    EXPECT_FALSE(dateFormatFromPattern("").has_value());
}

TEST(UserDateFormat, PortableLocalesUseTheIsoOrder) {
    // Their D_FMT says %m/%d/%y, but C and POSIX mean "no preference" here.
    for (const char *name : {"C", "POSIX", "C.UTF-8", "C.utf8", ""})
        expectFormat(dateFormatOfLocale(name), DateOrder::YearMonthDay, u'-');
    EXPECT_FALSE(dateFormatOfLocale("xx_NOWHERE.UTF-8").has_value());
}

TEST(UserDateFormat, TheOverrideWinsOverTheLocaleAndAMissingLocaleIsIso) {
    struct Case {
        const char *order, *locale;
        DateOrder expected;
        char16_t separator;
    };
    const Case cases[] = {
        {"dmy", "C.UTF-8", DateOrder::DayMonthYear, u'.'},      {"MDY", "C.UTF-8", DateOrder::MonthDayYear, u'/'},
        {"sideways", "C.UTF-8", DateOrder::YearMonthDay, u'-'}, {nullptr, "C.UTF-8", DateOrder::YearMonthDay, u'-'},
        {nullptr, "xx_NOWHERE.UTF-8", DateOrder::YearMonthDay, u'-'},
    };
    for (const Case &c : cases) {
        ScopedEnvironmentVariable locale("LC_ALL", c.locale);
        ScopedEnvironmentVariable order("TABRA_DATE_ORDER", c.order);
        expectFormat(currentUserDateFormat(), c.expected, c.separator);
    }
}

// Runs against the real locale data when the locales are installed (locale-gen
// de_DE.UTF-8 en_US.UTF-8); skipped otherwise.
TEST(UserDateFormat, RealGermanAndUsLocales) {
    const bool german = localeInstalled("de_DE.UTF-8");
    const bool american = localeInstalled("en_US.UTF-8");
    if (!german && !american)
        GTEST_SKIP() << "neither de_DE.UTF-8 nor en_US.UTF-8 is installed";
    ScopedEnvironmentVariable order("TABRA_DATE_ORDER", nullptr);
    if (german) {
        expectFormat(dateFormatOfLocale("de_DE.UTF-8"), DateOrder::DayMonthYear, u'.');
        ScopedEnvironmentVariable locale("LC_ALL", "de_DE.UTF-8");
        expectFormat(currentUserDateFormat(), DateOrder::DayMonthYear, u'.');
    }
    if (american) {
        expectFormat(dateFormatOfLocale("en_US.UTF-8"), DateOrder::MonthDayYear, u'/');
        ScopedEnvironmentVariable all("LC_ALL", nullptr);
        ScopedEnvironmentVariable time("LC_TIME", "en_US.UTF-8");
        expectFormat(currentUserDateFormat(), DateOrder::MonthDayYear, u'/');
    }
}

} // namespace
