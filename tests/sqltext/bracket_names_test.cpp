// Name preparation that needs no connection: the bracket family, stripping and
// splitting, and the formatter's placeholder language with no connection (names then
// pass unquoted).
#include "tabra_sqltext.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::u16string prepareBracket(std::u16string name, int32_t flags, int32_t size = 100, int32_t *result = nullptr) {
    std::u16string buffer(static_cast<size_t>(size), u'#');
    name.copy(buffer.data(), std::min<size_t>(name.size(), buffer.size()));
    if (name.size() < buffer.size()) buffer[name.size()] = u'\0';
    int32_t r = Tabra_PrepareNameForSql(buffer.data(), size, flags);
    if (result) *result = r;
    return std::u16string(buffer.c_str());
}

TEST(BracketNames, BracketsEveryPartUnlessPlainNamesMayStayBare) {
    struct Case {
        std::u16string name;
        int32_t flags;
        std::u16string prepared;
    };
    const Case cases[] = {
        {u"Customers", 0, u"[Customers]"},          {u"Customers", 1, u"Customers"},
        {u"Order Details", 1, u"[Order Details]"},  {u"dbo.Order Details", 1, u"dbo.[Order Details]"},
        {u"a.b.c", 0, u"[a].[b]"},                  {u"Orders.*", 0, u"[Orders].*"},
        {u"2020Sales", 1, u"[2020Sales]"},          {u"M\u00fcller", 1, u"[M\u00fcller]"},
    };
    for (const Case &c : cases) {
        int32_t result = -1;
        EXPECT_EQ(prepareBracket(c.name, c.flags, 100, &result), c.prepared);
        EXPECT_EQ(result, static_cast<int32_t>(c.prepared.size())) << "the length of the prepared name";
    }
}

TEST(BracketNames, BlankAndBadArguments) {
    int32_t result = -5;
    EXPECT_EQ(prepareBracket(u"   ", 0, 100, &result), u"   ");
    EXPECT_EQ(result, 1);
    EXPECT_EQ(prepareBracket(u"", 0, 100, &result), u"");
    EXPECT_EQ(result, 1);
    EXPECT_EQ(Tabra_PrepareNameForSql(nullptr, 10, 0), 0);
    char16_t one[1] = {u'\0'};
    EXPECT_EQ(Tabra_PrepareNameForSql(one, 0, 0), 0);
}

TEST(BracketNames, SmallBuffersAreCutNeverOverrun) {
    // A buffer of 6 around "Orders": the bracketed name is cut to 5 characters.
    char16_t guarded[8];
    std::fill(std::begin(guarded), std::end(guarded), u'#');
    std::u16string(u"Order").copy(guarded, 5);
    guarded[5] = u'\0';
    Tabra_PrepareNameForSql(guarded, 6, 0);
    EXPECT_EQ(std::u16string(guarded), u"[Orde");
    EXPECT_EQ(guarded[6], u'#');
    EXPECT_EQ(guarded[7], u'#');
}

TEST(BracketNames, ListIsSplitAtTabsAndJoinedByComma) {
    char16_t out[100];
    Tabra_PrepareNameListForSql(u"Customers\tOrder Details", u';', out, 100, 1);
    EXPECT_EQ(std::u16string(out), u"Customers,[Order Details]");
    Tabra_PrepareNameListForSql(u"a\tb", u'\0', out, 100, 1);
    EXPECT_EQ(std::u16string(out), u"");
    Tabra_PrepareNameListForSql(nullptr, u'\t', out, 100, 1);
    EXPECT_EQ(std::u16string(out), u"");
    char16_t small[8];
    std::fill(std::begin(small), std::end(small), u'#');
    Tabra_PrepareNameListForSql(u"alpha\tbeta", u'\t', small, 6, 0);
    EXPECT_EQ(std::u16string(small), u"[alph");
    EXPECT_EQ(small[6], u'#');
}

TEST(NameParts, StripBracketsTrimsBlanksOfEachPart) {
    char16_t name[64];
    std::u16string(u"  dbo . Orders \t").copy(name, 17);
    name[16] = u'\0';
    Tabra_StripBracketsFromSqlName(name);
    EXPECT_EQ(std::u16string(name), u"dbo.Orders");
    Tabra_StripBracketsFromSqlName(nullptr); // no crash
}

TEST(NameParts, ParseSchemaAndTableWithoutConnection) {
    const struct {
        const char16_t *name;
        int32_t schemaSize, tableSize;
        const char16_t *schema, *table; // schema nullptr: not looked at
    } cases[] = {
        {u"dbo.Orders", 20, 20, u"dbo", u"Orders"}, {u"a.b.c", 20, 20, nullptr, u"b"},
        {u"Orders", 20, 20, u"", u"Orders"},        {nullptr, 20, 20, nullptr, u""},
        {u"dbo.Orders", 1, 20, nullptr, u"keep"}, // sizes below 2 write nothing at all
        {u"sales.Orders", 3, 4, u"sa", u"Ord"},   // bounded copies
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(::testing::Message() << (c.name ? "" : "(null) ") << c.schemaSize << " " << c.tableSize);
        char16_t schema[20] = u"keep", table[20] = u"keep";
        Tabra_ParseSchemaAndTable(nullptr, c.name, schema, c.schemaSize, table, c.tableSize);
        if (c.schema) { EXPECT_EQ(std::u16string(schema), c.schema); }
        EXPECT_EQ(std::u16string(table), c.table);
    }
}

std::u16string format(int32_t size, const char16_t *fmt, const char16_t *a1 = nullptr, const char16_t *a2 = nullptr,
                      const char16_t *a3 = nullptr, const char16_t *a4 = nullptr, const char16_t *a5 = nullptr,
                      const char16_t *a6 = nullptr, const char16_t *a7 = nullptr, const char16_t *a8 = nullptr) {
    std::u16string buffer(static_cast<size_t>(size) + 4, u'#');
    Tabra_SprintfSqlStatement(nullptr, buffer.data(), size, fmt, a1, a2, a3, a4, a5, a6, a7, a8);
    for (size_t i = static_cast<size_t>(size); i < buffer.size(); ++i) EXPECT_EQ(buffer[i], u'#') << "overrun at " << i;
    return std::u16string(buffer.c_str());
}

TEST(StatementFormatter, PlaceholderLanguageWithinTheCapacity) {
    const std::u16string longText(400, u'x');
    struct Case {
        int32_t size;
        const char16_t *format, *a1, *a2;
        std::u16string expected;
    };
    const Case cases[] = {
        {100, u"UPDATE %t SET %s", u"Orders", u"Price = 1", u"UPDATE Orders SET Price = 1"},
        {100, u"100%%", nullptr, nullptr, u"100"},
        {100, u"SELECT %d1", nullptr, nullptr, u"SELECT 1"},
        {100, u"DROP TABLE %t%.%t", u"dbo", u"Orders", u"DROP TABLE dbo.Orders"},
        {100, u"DROP TABLE %t%.%t", u"", u"Orders", u"DROP TABLE Orders"},
        {100, u"%.%t", u"Orders", nullptr, u"Orders"},
        {100, u"SELECT 1 %", nullptr, nullptr, u"SELECT 1 "},
        {100, nullptr, nullptr, nullptr, u""},
        {100, u"SELECT %f FROM %t", u"CustomerName", u"Customers", u"SELECT CustomerName FROM Customers"},
        {1, u"SELECT", nullptr, nullptr, u""},
        {2, u"SELECT", nullptr, nullptr, u""},
        {10, u"SELECT * FROM %t", u"Orders", nullptr, u"SELECT *"},
        // A substitution needs its length plus 2: "SELECT " (7) leaves 5, "Orders" (6) does not fit.
        {12, u"SELECT %t", u"Orders", nullptr, u"SELECT "},
        {15, u"SELECT %t", u"Orders", nullptr, u"SELECT Orders"},
        {1000, u"%s", longText.c_str(), nullptr, longText.substr(0, 299)}, // %s is cut at 299 characters
    };
    for (const Case &c : cases)
        EXPECT_EQ(format(c.size, c.format, c.a1, c.a2), c.expected) << c.size << " " << (c.format ? "" : "(null)");
    // Seven arguments are used; the eighth "%s" is a literal "s".
    EXPECT_EQ(format(100, u"%s%s%s%s%s%s%s%s", u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8"), u"1234567s");
}

TEST(StatementFormatter, NullDestinationOrSizeDoNothing) {
    Tabra_SprintfSqlStatement(nullptr, nullptr, 10, u"x", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                              nullptr, nullptr);
    char16_t one[1] = {u'#'};
    Tabra_SprintfSqlStatement(nullptr, one, 0, u"x", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                              nullptr);
    EXPECT_EQ(one[0], u'#');
}

} // namespace
