// The SELECT clause engine: keyword scanning, clause get and replace, WHERE moved
// behind FROM. Pure text, no connection.
#include <algorithm>
#include <vector>
#include "core/resource_ids.h"
#include "support/script_lines.h"
#include "support/scripted_run.h"
#include "support/test_text.h"
#include "tabra.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using tabra::test::ScriptedRun;

std::u16string clause(const std::u16string &statement, const char16_t *keyword, const char16_t *second = nullptr) {
    char16_t out[500];
    EXPECT_EQ(Tabra_Select_Get_Clause(statement.c_str(), keyword, second, out, 500), 0);
    return out;
}

using Replacer = int32_t (*)(char16_t *, int32_t, const char16_t *);

std::u16string replaced(const std::u16string &statement, Replacer replace, const char16_t *text,
                        int32_t capacity = 500) {
    std::vector<char16_t> buffer(static_cast<size_t>(capacity) + 1, u'\0');
    std::copy_n(statement.begin(), std::min(statement.size(), buffer.size() - 1), buffer.begin());
    EXPECT_EQ(replace(buffer.data(), capacity, text), 0);
    return std::u16string(buffer.data(), static_cast<size_t>(std::find(buffer.begin(), buffer.end(), u'\0') - buffer.begin()));
}

int32_t replaceFields(char16_t *s, int32_t c, const char16_t *t) { return Tabra_Select_Replace_FieldsClause(s, c, t, 0); }
int32_t replaceOrderBy(char16_t *s, int32_t c, const char16_t *t) { return Tabra_Select_Replace_OrderByClause(s, c, t, 0); }

TEST(ClauseGet, FindsEachClauseAtTheTopLevel) {
    std::u16string statement = u"SELECT a, b FROM t WHERE (x = 1) ORDER BY a";
    EXPECT_EQ(clause(statement, u"SELECT"), u"a, b");
    EXPECT_EQ(clause(statement, u"FROM"), u"t");
    EXPECT_EQ(clause(statement, u"WHERE"), u"(x = 1)");
    EXPECT_EQ(clause(statement, u"ORDER", u"BY"), u"a");
    EXPECT_EQ(clause(u"select a from t where b > 1", u"WHERE"), u"b > 1");
    EXPECT_EQ(clause(u"SELECT a FROM t", u"where"), u"");
    EXPECT_EQ(clause(u"", u"SELECT"), u"");
}

TEST(ClauseGet, IgnoresKeywordsInsideParenthesesAndQuotedText) {
    EXPECT_EQ(clause(u"SELECT a FROM t WHERE b IN (SELECT c FROM u WHERE d = 1) ORDER BY a", u"WHERE"),
              u"b IN (SELECT c FROM u WHERE d = 1)");
    EXPECT_EQ(clause(u"SELECT a FROM t WHERE b = 'x FROM y' ORDER BY a", u"WHERE"), u"b = 'x FROM y'");
    EXPECT_EQ(clause(u"SELECT \"order\" FROM t", u"SELECT"), u"\"order\"");
    // An unterminated string ends the search.
    EXPECT_EQ(clause(u"SELECT a FROM t WHERE b = 'open ORDER BY a", u"WHERE"), u"b = 'open ORDER BY a");
    EXPECT_EQ(clause(u"SELECT 'a FROM t", u"FROM"), u"");
}

TEST(ClauseGet, WordsAreRunsOfLetters) {
    // Digits and underscores end a word: FROM_DATE ends the column list at FROM.
    EXPECT_EQ(clause(u"SELECT FROM_DATE, b FROM t", u"SELECT"), u"");
    EXPECT_EQ(clause(u"SELECT FROM_DATE, b FROM t", u"FROM"), u"_DATE, b");
    EXPECT_EQ(clause(u"SELECT \"FROM_DATE\", b FROM t", u"SELECT"), u"\"FROM_DATE\", b");
    // A keyword inside a longer word is not one.
    EXPECT_EQ(clause(u"SELECT fromage, selection FROM t", u"SELECT"), u"fromage, selection");
    EXPECT_EQ(clause(u"SELECT Größe FROM Maße", u"FROM"), u"Maße");
}

TEST(ClauseGet, OrderNeedsBy) {
    EXPECT_EQ(clause(u"SELECT a FROM t ORDER  \t BY a DESC, b", u"ORDER", u"BY"), u"a DESC, b");
    EXPECT_EQ(clause(u"SELECT \"ORDER\" FROM t", u"ORDER", u"BY"), u"");
    EXPECT_EQ(clause(u"SELECT a FROM t GROUP BY a ORDER BY b", u"ORDER", u"BY"), u"b");
    EXPECT_EQ(clause(u"SELECT a FROM t GROUP BY a ORDER BY b", u"GROUP", u"BY"), u"a");
}

TEST(ClauseGet, BadOutputAndBadKeyword) {
    char16_t out[4] = u"zz";
    EXPECT_EQ(Tabra_Select_Get_Clause(u"SELECT a FROM t", u"SELECT", nullptr, nullptr, 5), -1);
    EXPECT_EQ(Tabra_Select_Get_Clause(u"SELECT a FROM t", u"SELECT", nullptr, out, 0), -1);
    EXPECT_EQ(Tabra_Select_Get_Clause(nullptr, u"SELECT", nullptr, out, 4), 0);
    EXPECT_EQ(out[0], u'\0');
    // Cut to the capacity.
    EXPECT_EQ(Tabra_Select_Get_Clause(u"SELECT abcdef FROM t", u"SELECT", nullptr, out, 4), 0);
    EXPECT_EQ(std::u16string(out), u"abc");
}

TEST(ClauseGet, UnbalancedParenthesisShowsMessageOnce) {
    ScriptedRun run;
    run.queue(tabra::test::answer(tabra::core::ids::kMessage.unbalancedParenthesis, "ok"));
    EXPECT_EQ(clause(u"SELECT a) FROM t WHERE x", u"WHERE"), u"");
    EXPECT_EQ(run.records(TABRA_RECORD_MESSAGE, tabra::core::ids::kMessage.unbalancedParenthesis).size(), 1u);
    EXPECT_FALSE(run.failed());
}

TEST(ClauseReplace, ReplacesAndRemovesClauses) {
    EXPECT_EQ(replaced(u"SELECT a FROM t WHERE x ORDER BY y", Tabra_Select_Replace_WhereClause, u""),
              u"SELECT a FROM t  ORDER BY y");
    EXPECT_EQ(replaced(u"SELECT a FROM t WHERE x ORDER BY y", Tabra_Select_Replace_WhereClause, u"z = 1"),
              u"SELECT a FROM t WHERE z = 1 ORDER BY y");
    EXPECT_EQ(replaced(u"SELECT a FROM t ORDER BY a", Tabra_Select_Replace_WhereClause, u"b = 2"),
              u"SELECT a FROM t WHERE b = 2 ORDER BY a ");
    EXPECT_EQ(replaced(u"SELECT a FROM t", Tabra_Select_Replace_WhereClause, u"b = 2"),
              u"SELECT a FROM t WHERE b = 2");
    EXPECT_EQ(replaced(u"SELECT a FROM t", Tabra_Select_Replace_WhereClause, nullptr), u"SELECT a FROM t");
    EXPECT_EQ(replaced(u"SELECT a FROM t ORDER BY a", replaceOrderBy, u"b DESC"), u"SELECT a FROM t ORDER BY b DESC");
    EXPECT_EQ(replaced(u"SELECT a FROM t ORDER BY a", replaceOrderBy, u""), u"SELECT a FROM t ");
    EXPECT_EQ(replaced(u"SELECT a FROM t", replaceOrderBy, u"a"), u"SELECT a FROM t ORDER BY a");
}

TEST(ClauseReplace, WritesKeywordsInUpperCase) {
    EXPECT_EQ(replaced(u"select a from t where b > 1", Tabra_Select_Replace_WhereClause, u"c < 2"),
              u"select a FROM t WHERE c < 2");
    EXPECT_EQ(replaced(u"select a from t order by b", replaceOrderBy, u"c"), u"select a from t ORDER BY c");
    EXPECT_EQ(replaced(u"select a from t", replaceFields, u"x, y"), u"SELECT x, y from t");
}

TEST(ClauseReplace, SelectFromSafeguard) {
    EXPECT_EQ(replaced(u"", replaceFields, u"a"), u"SELECT a FROM");
    EXPECT_EQ(replaced(u"SELECT a FROM", Tabra_Select_Replace_TablesClause, u"t"), u"SELECT a FROM t");
    EXPECT_EQ(replaced(u"garbage text", Tabra_Select_Replace_TablesClause, u"t"), u"SELECT FROM t");
    EXPECT_EQ(replaced(u"SELECT a FROM t WHERE b = 1", Tabra_Select_Replace_TablesClause, u"u, v"),
              u"SELECT a FROM u, v WHERE b = 1");
    EXPECT_EQ(replaced(u"SELECT a FROM t", replaceFields, u""), u"SELECT FROM t");
}

TEST(ClauseReplace, WhereMovesBehindFromAndSubSelectsStay) {
    std::u16string statement = u"SELECT a FROM t WHERE b IN (SELECT c FROM u WHERE d = 'ORDER BY') ORDER BY a";
    EXPECT_EQ(replaced(statement, replaceOrderBy, u"b"),
              u"SELECT a FROM t WHERE b IN (SELECT c FROM u WHERE d = 'ORDER BY') ORDER BY b");
    EXPECT_EQ(replaced(u"SELECT a FROM t GROUP BY a HAVING COUNT(*) > 1", Tabra_Select_Replace_WhereClause, u"a > 0"),
              u"SELECT a FROM t WHERE a > 0 GROUP BY a HAVING COUNT(*) > 1 ");
}

TEST(ClauseReplace, BoundedByCapacityAndBadArguments) {
    EXPECT_EQ(Tabra_Select_Replace_WhereClause(nullptr, 10, u"x"), -1);
    char16_t small[20] = u"SELECT a FROM t";
    EXPECT_EQ(Tabra_Select_Replace_WhereClause(small, 0, u"x"), -1);
    EXPECT_EQ(Tabra_Select_Replace_WhereClause(small, 20, u"very_long_condition = 1"), 0);
    EXPECT_EQ(std::u16string(small), u"SELECT a FROM t WHE");
    char16_t tiny[1] = {u'\0'};
    EXPECT_EQ(Tabra_Select_Replace_FieldsClause(tiny, 1, u"a", 0), 0);
    EXPECT_EQ(tiny[0], u'\0');
}

} // namespace
