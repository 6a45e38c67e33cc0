// Ostrel_ReadToken over separated lists.
#include "ostrel_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::u16string> allTokens(const char16_t *list, char16_t separator, int32_t capacity = 100) {
    std::vector<std::u16string> tokens;
    std::u16string token(static_cast<std::size_t>(capacity), u'#');
    int32_t position = 0;
    while (Ostrel_ReadToken(list, &position, separator, token.data(), capacity) == 1) {
        tokens.emplace_back(token.c_str());
        if (tokens.size() > 100)
            break; // a reader that never ends would otherwise hang the test
    }
    return tokens;
}

using Tokens = std::vector<std::u16string>;

TEST(TokenReader, SplitsAtTheSeparator) {
    EXPECT_EQ(allTokens(u"Customers\tOrders\tItems", u'\t'), (Tokens{u"Customers", u"Orders", u"Items"}));
    EXPECT_EQ(allTokens(u"single", u'\t'), (Tokens{u"single"}));
}

TEST(TokenReader, EmptyListAndTrailingSeparator) {
    EXPECT_TRUE(allTokens(u"", u'\t').empty());
    EXPECT_EQ(allTokens(u"a\t", u'\t'), (Tokens{u"a"}));
    EXPECT_EQ(allTokens(u"\t", u'\t'), (Tokens{u""}));
}

TEST(TokenReader, EmptyTokensBetweenAndBeforeSeparators) {
    EXPECT_EQ(allTokens(u"a\t\tb", u'\t'), (Tokens{u"a", u"", u"b"}));
    EXPECT_EQ(allTokens(u"\ta", u'\t'), (Tokens{u"", u"a"}));
}

TEST(TokenReader, ALongTokenIsCutAndThenPassedOverWhole) {
    const std::u16string longName(150, u'x');
    const std::u16string list = longName + u"\tnext";
    const Tokens tokens = allTokens(list.c_str(), u'\t', 100);
    ASSERT_EQ(tokens.size(), 2u);
    EXPECT_EQ(tokens[0], std::u16string(99, u'x'));
    EXPECT_EQ(tokens[1], u"next");
}

TEST(TokenReader, ACutNeverSplitsASurrogatePair) {
    EXPECT_EQ(allTokens(u"ab\U0001F600,c", u',', 4), (Tokens{u"ab", u"c"}));
}

TEST(TokenReader, SeparatorZeroReadsTheRestAsOneToken) {
    EXPECT_EQ(allTokens(u"a,b", u'\0'), (Tokens{u"a,b"}));
}

TEST(TokenReader, PositionOutsideTheListAndBadArgumentsEndTheReading) {
    char16_t token[8];
    int32_t position = 5;
    EXPECT_EQ(Ostrel_ReadToken(u"ab", &position, u',', token, 8), 0);
    position = -1;
    EXPECT_EQ(Ostrel_ReadToken(u"ab", &position, u',', token, 8), 0);
    position = 0;
    EXPECT_EQ(Ostrel_ReadToken(nullptr, &position, u',', token, 8), 0);
    EXPECT_EQ(Ostrel_ReadToken(u"ab", nullptr, u',', token, 8), 0);
    EXPECT_EQ(Ostrel_ReadToken(u"ab", &position, u',', nullptr, 8), 0);
    EXPECT_EQ(Ostrel_ReadToken(u"ab", &position, u',', token, 0), 0);
    EXPECT_EQ(position, 0);
}

} // namespace
