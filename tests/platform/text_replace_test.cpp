// Ostrel_Replace: every occurrence, left to right, no re-scan, within the capacity.
#include "ostrel_text.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

std::u16string replaced(std::u16string text, int32_t capacity, const char16_t *find, const char16_t *replace,
                        int32_t flags = 0, int32_t *count = nullptr) {
    // Terminated, then guard characters up to past the capacity.
    text.push_back(u'\0');
    if (text.size() < static_cast<std::size_t>(capacity) + 4)
        text.resize(static_cast<std::size_t>(capacity) + 4, u'#');
    const int32_t result = Ostrel_Replace(text.data(), capacity, find, replace, flags);
    if (count)
        *count = result;
    return std::u16string(text.c_str());
}

TEST(TextReplace, DoublesQuotesForSqlLiterals) {
    int32_t count = 0;
    EXPECT_EQ(replaced(u"It's Ann's", 100, u"'", u"''", 0, &count), u"It''s Ann''s");
    EXPECT_EQ(count, 2);
}

TEST(TextReplace, ReplacedTextIsNeverScannedAgain) {
    int32_t count = 0;
    EXPECT_EQ(replaced(u"aaa", 100, u"a", u"aa", 0, &count), u"aaaaaa");
    EXPECT_EQ(count, 3);
    // Matches do not overlap: "aaa" holds one "aa" followed by "a".
    EXPECT_EQ(replaced(u"aaa", 100, u"aa", u"X", 0, &count), u"Xa");
    EXPECT_EQ(count, 1);
}

TEST(TextReplace, NullReplacementRemovesAndNoMatchLeavesTheText) {
    int32_t count = -7;
    EXPECT_EQ(replaced(u"a-b-c", 100, u"-", nullptr, 0, &count), u"abc");
    EXPECT_EQ(count, 2);
    EXPECT_EQ(replaced(u"abc", 100, u"x", u"y", 0, &count), u"abc");
    EXPECT_EQ(count, 0);
}

TEST(TextReplace, GrowthIsCutAtTheCapacity) {
    std::array<char16_t, 12> buffer;
    buffer.fill(u'#');
    OstrelCopyString(buffer.data(), u"a'b'c", 8);
    EXPECT_EQ(Ostrel_Replace(buffer.data(), 8, u"'", u"'''", 0), 2);
    EXPECT_EQ(std::u16string(buffer.data()), u"a'''b''");
    EXPECT_EQ(buffer[8], u'#');
}

TEST(TextReplace, ACutNeverSplitsASurrogatePair) {
    EXPECT_EQ(replaced(u"ab", 3, u"b", u"\U0001F600"), u"a");
    EXPECT_EQ(replaced(u"ab", 4, u"b", u"\U0001F600"), u"a\U0001F600");
}

TEST(TextReplace, IgnoreCaseFlag) {
    EXPECT_EQ(replaced(u"Select select SELECT", 100, u"select", u"x", OSTREL_REPLACE_IGNORE_CASE), u"x x x");
    EXPECT_EQ(replaced(u"Select select SELECT", 100, u"select", u"x"), u"Select x SELECT");
}

TEST(TextReplace, BadArguments) {
    std::array<char16_t, 8> buffer{u'a'};
    EXPECT_EQ(Ostrel_Replace(nullptr, 8, u"a", u"b", 0), -1);
    EXPECT_EQ(Ostrel_Replace(buffer.data(), 0, u"a", u"b", 0), -1);
    EXPECT_EQ(Ostrel_Replace(buffer.data(), 8, nullptr, u"b", 0), -1);
    EXPECT_EQ(Ostrel_Replace(buffer.data(), 8, u"", u"b", 0), -1);
    EXPECT_EQ(std::u16string(buffer.data()), u"a");
}

} // namespace
