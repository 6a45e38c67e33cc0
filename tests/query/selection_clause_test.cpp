// Selection descriptors to WHERE conditions and operation descriptors to SET lists,
// as text (no connection: names stay unquoted).
#include "query/sql_literal.h"
#include "support/test_text.h"
#include "tabra.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

std::u16string where(const std::u16string &descriptor, const char16_t *expansion = nullptr,
                     int32_t capacity = 1000) {
    std::u16string out(static_cast<size_t>(capacity), u'#');
    int32_t result = expansion ? Tabra_SelDesc_To_WhereClause_Expanded(nullptr, descriptor.c_str(), out.data(),
                                                                       capacity, expansion)
                               : Tabra_SelDesc_To_WhereClause(nullptr, descriptor.c_str(), out.data(), capacity);
    EXPECT_EQ(result, 0);
    return out.c_str();
}

std::u16string set(const std::u16string &descriptor, int32_t capacity = 1000) {
    std::u16string out(static_cast<size_t>(capacity), u'#');
    Tabra_OpDesc_To_SetClause(nullptr, descriptor.c_str(), out.data(), capacity);
    return out.c_str();
}

TEST(SelectionWhereClause, OperatorTable) {
    struct Case {
        const char16_t *descriptor, *condition;
    } cases[] = {
        {u"a\tIN\t\t4\n", u"(a IS NULL)"},
        {u"a\tNN\tignored\t4\n", u"(a IS NOT NULL)"},
        {u"a\tIL\t1;2;3\t4\n", u"(a IN (1,2,3))"},
        {u"a\tIL\tx;y\t12\n", u"(a IN ('x','y'))"},
        {u"a\tIL\tx;;y;\t12\n", u"(a IN ('x','y'))"},
        {u"a\tEQ\t\t4\n", u""},
        {u"a\tXX\t1\t4\n", u""},
        {u"a\teq\t1\t4\n", u""},
        {u"\tEQ\t1\t4\n", u""},
        {u"a\tEQ\t1.234,5\t8\n", u"(a=1234.5)"},
        {u"a\tEQ\t1.5\t8\n", u"(a=15)"},
        {u"a\tEQ\t1e5\t8\n", u"(a=15)"},
        {u"a\tEQ\t-3\t-5\n", u"(a=-3)"},
        {u"a\tNE\t3\t4\n", u"(NOT a = 3)"},
        {u"a\tGT\t3\t5\n", u"(a > 3)"},
        {u"a\tGE\t3\t-6\n", u"(a >= 3)"},
        {u"a\tLT\t3\t2\n", u"(a < 3)"},
        {u"a\tLE\t3\t3\n", u"(a <= 3)"},
        {u"a\tBW\tx\t12\n", u"(a LIKE 'x%')"},
        {u"a\tCT\tx\t12\n", u"(a LIKE '%x%')"},
        {u"a\tEQF\tb\t4\n", u"(a=b)"},
        {u"a\tNEF\tb\t4\n", u"(NOT a = b)"},
        {u"a\tGTF\tb\t4\n", u"(a > b)"},
        {u"a\tGEF\tb\t4\n", u"(a >= b)"},
        {u"a\tLTF\tb\t4\n", u"(a < b)"},
        {u"a\tLEF\tb\t4\n", u"(a <= b)"},
        {u"a\tEQ\tO'Brien\t12\n", u"(a='O'Brien')"}, // quotes are not doubled
        {u"a\tEQ\tMüller\t-9\n", u"(a='Müller')"},
        {u"a\tEQ\t10:30:00\t10\n", u"(a='10:30:00')"},
        {u"a\tEQ\t7", u"(a='7')"}, // no data type: text
        {u"a\tEQ\t7\tjunk\n", u"(a='7')"},
    };
    for (const Case &c : cases) EXPECT_EQ(where(c.descriptor), c.condition) << tabra::test::toUtf8(c.descriptor);
}

TEST(SelectionWhereClause, GroupsAndAlternatives) {
    EXPECT_EQ(where(u"a\tEQ\t1\t4\nb\tNN\t\t4\n\vc\tEQ\t2\t4\n"), u"(a=1 AND b IS NOT NULL) OR (c=2)");
    EXPECT_EQ(where(u"a\tEQ\t5\t4\nb\tBW\tMü\t12\n\vc\tNN\t\t4\n"), u"(a=5 AND b LIKE 'Mü%') OR (c IS NOT NULL)");
    // Empty groups, empty lines, dropped lines and a trailing separator change nothing.
    EXPECT_EQ(where(u"\v\va\tEQ\t1\t4\n\n\nx\tEQ\t\t4\n\v\vy\tXX\t1\t4\n\vc\tEQ\t2\t4\n\v"), u"(a=1) OR (c=2)");
    EXPECT_EQ(where(u""), u"");
    EXPECT_EQ(where(u"\v\n\v"), u"");
}

TEST(SelectionWhereClause, ExpansionCharacters) {
    EXPECT_EQ(where(u"a\tBW\tx\t12\n", u"*?''"), u"(a LIKE 'x*')");
    EXPECT_EQ(where(u"a\tCT\tx\t12\n", u"*?''"), u"(a LIKE '*x*')");
    EXPECT_EQ(where(u"a\tCT\tx\t12\n", u"%_\"\""), u"(a LIKE \"%x%\")");
}

TEST(SelectionWhereClause, BadOutputAndCapacity) {
    char16_t out[8] = u"x";
    EXPECT_EQ(Tabra_SelDesc_To_WhereClause(nullptr, u"a\tEQ\t1\t4\n", out, 0), -1);
    EXPECT_EQ(Tabra_SelDesc_To_WhereClause(nullptr, u"a\tEQ\t1\t4\n", nullptr, 8), -1);
    EXPECT_EQ(Tabra_SelDesc_To_WhereClause(nullptr, nullptr, out, 8), 0);
    EXPECT_EQ(out[0], u'\0');
    // A group that does not fit is left out; the separator before it stays.
    EXPECT_EQ(where(u"a\tEQ\t1\t4\n\vb\tEQ\t22222\t4\n", nullptr, 16), u"(a=1) OR ");
    EXPECT_EQ(where(u"a\tEQ\t1\t4\n", nullptr, 5), u"");
    EXPECT_EQ(where(u"a\tEQ\t1\t4\n", nullptr, 6), u"(a=1)");
    // Values and columns are cut to their fields' lengths.
    std::u16string longValue(400, u'v');
    std::u16string condition = where(u"a\tEQ\t" + longValue + u"\t12\n");
    EXPECT_EQ(condition.size(), 301u) << "the condition is cut to 299 characters inside ( )";
}

TEST(SelectionSetClause, FirstGroupOnly) {
    EXPECT_EQ(set(u"a\tSNU\t\t4\nb\tSCO\t7\t4\n\vc\tSCO\t1\t4\n"), u"a=NULL,b=7");
    EXPECT_EQ(set(u"Name\tSCO\tx\t12\nTotal\tSFI\tPrice\t4\nStamp\tSNU\t\t11\nn\tSFO\tn + 1\t4\n"),
              u"Name='x',Total=Price,Stamp=NULL,n=n + 1");
    EXPECT_EQ(set(u"a\tSCO\t\t4\nb\tEQ\t1\t4\n\tSCO\t1\t4\nc\tSCO\t1,5\t3\n"), u"c=1.5");
    EXPECT_EQ(set(u"\va\tSNU\t\t4\n"), u"");
    EXPECT_EQ(set(u"a\tSCO\t12345\t4\n", 5), u"a=12");
    char16_t out[4] = u"xyz";
    Tabra_OpDesc_To_SetClause(nullptr, u"a\tSNU\t\t4\n", out, 0);
    EXPECT_EQ(std::u16string(out), u"xyz");
    Tabra_OpDesc_To_SetClause(nullptr, nullptr, out, 4);
    EXPECT_EQ(out[0], u'\0');
}

TEST(SqlLiteral, NumbersAreReadWithCommaAsDecimalSeparator) {
    using tabra::query::normalizeNumberText;
    EXPECT_EQ(normalizeNumberText(u"1.234,5"), u"1234.5");
    EXPECT_EQ(normalizeNumberText(u"1.5"), u"15");
    EXPECT_EQ(normalizeNumberText(u" -12 "), u"-12");
    EXPECT_EQ(normalizeNumberText(u"+1e5"), u"+15");
    EXPECT_EQ(normalizeNumberText(u"abc"), u"");
}

TEST(SqlLiteral, DatesBecomeOdbcConstants) {
    using tabra::query::formatSqlLiteral;
    setenv("TABRA_DATE_ORDER", "DMY", 1);
    EXPECT_EQ(formatSqlLiteral(u"24.12.2024", 9, 300), u"{d '2024-12-24'}");
    EXPECT_EQ(formatSqlLiteral(u"24.12.2024 10:30", 11, 300), u"{ts '2024-12-24 10:30:00'}");
    EXPECT_EQ(formatSqlLiteral(u"2024-12-24", 11, 300), u"{d '2024-12-24'}");
    EXPECT_EQ(formatSqlLiteral(u"24.12.2024", 10, 300), u"'24.12.2024'");
    // Not a date: quoted as typed, so the database reports it.
    EXPECT_EQ(formatSqlLiteral(u"tomorrow", 9, 300), u"'tomorrow'");
    unsetenv("TABRA_DATE_ORDER");
    EXPECT_EQ(formatSqlLiteral(u"abcdef", 12, 4), u"'ab");
    EXPECT_EQ(formatSqlLiteral(std::u16string(600, u'x'), 12, 1000).size(), 501u);
}

} // namespace
