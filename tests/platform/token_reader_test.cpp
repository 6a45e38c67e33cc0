// Ostrel_ReadToken over separated lists.
#include "ostrel_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Tokens = std::vector<std::u16string>;

Tokens allTokens(const std::u16string &list, char16_t separator, int32_t capacity = 100) {
    Tokens tokens;
    std::u16string token(static_cast<std::size_t>(capacity), u'#');
    int32_t position = 0;
    while (Ostrel_ReadToken(list.c_str(), &position, separator, token.data(), capacity) == 1) {
        tokens.emplace_back(token.c_str());
        if (tokens.size() > 100) break; // a reader that never ends would otherwise hang the test
    }
    return tokens;
}

TEST(TokenReader, SplitsAtTheSeparatorAndCutsLongTokens) {
    struct Case {
        std::u16string list;
        char16_t separator;
        int32_t capacity;
        Tokens expected;
    };
    const Case cases[] = {
        {u"Customers\tOrders\tItems", u'\t', 100, {u"Customers", u"Orders", u"Items"}},
        {u"single", u'\t', 100, {u"single"}},
        {u"", u'\t', 100, {}},
        {u"a\t", u'\t', 100, {u"a"}}, // a trailing separator ends the list
        {u"\t", u'\t', 100, {u""}},
        {u"a\t\tb", u'\t', 100, {u"a", u"", u"b"}},
        {u"\ta", u'\t', 100, {u"", u"a"}},
        {std::u16string(150, u'x') + u"\tnext", u'\t', 100, {std::u16string(99, u'x'), u"next"}}, // cut, passed whole
        {u"ab\U0001F600,c", u',', 4, {u"ab", u"c"}}, // never half a surrogate pair
        {u"a,b", u'\0', 100, {u"a,b"}},             // separator 0: the rest is one token
    };
    for (const Case &c : cases) EXPECT_EQ(allTokens(c.list, c.separator, c.capacity), c.expected) << c.list.size();
}

TEST(TokenReader, PositionOutsideTheListAndBadArgumentsEndTheReading) {
    char16_t token[8];
    for (int32_t outside : {5, -1}) {
        int32_t position = outside;
        EXPECT_EQ(Ostrel_ReadToken(u"ab", &position, u',', token, 8), 0);
    }
    int32_t position = 0;
    EXPECT_EQ(Ostrel_ReadToken(nullptr, &position, u',', token, 8), 0);
    EXPECT_EQ(Ostrel_ReadToken(u"ab", nullptr, u',', token, 8), 0);
    EXPECT_EQ(Ostrel_ReadToken(u"ab", &position, u',', nullptr, 8), 0);
    EXPECT_EQ(Ostrel_ReadToken(u"ab", &position, u',', token, 0), 0);
    EXPECT_EQ(position, 0);
}

} // namespace
