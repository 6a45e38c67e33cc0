// Ostrel_Replace: every occurrence, left to right, no re-scan, within the capacity.
#include "ostrel_text.h"
#include "support/test_text.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

TEST(TextReplace, ReplacesEveryOccurrenceOnceWithinTheCapacity) {
    struct Case {
        const char16_t *text;
        int32_t capacity;
        const char16_t *find, *replace;
        int32_t flags, count;
        const char16_t *expected;
    };
    const Case cases[] = {
        {u"It's Ann's", 100, u"'", u"''", 0, 2, u"It''s Ann''s"}, // SQL literals
        {u"aaa", 100, u"a", u"aa", 0, 3, u"aaaaaa"},            // replaced text is never scanned again
        {u"aaa", 100, u"aa", u"X", 0, 1, u"Xa"},                // matches do not overlap
        {u"a-b-c", 100, u"-", nullptr, 0, 2, u"abc"},           // a null replacement removes
        {u"abc", 100, u"x", u"y", 0, 0, u"abc"},
        {u"a'b'c", 8, u"'", u"'''", 0, 2, u"a'''b''"},          // growth is cut at the capacity
        {u"ab", 3, u"b", u"\U0001F600", 0, 1, u"a"},            // never half a surrogate pair
        {u"ab", 4, u"b", u"\U0001F600", 0, 1, u"a\U0001F600"},
        {u"Select select SELECT", 100, u"select", u"x", OSTREL_REPLACE_IGNORE_CASE, 3, u"x x x"},
        {u"Select select SELECT", 100, u"select", u"x", 0, 1, u"Select x SELECT"},
    };
    for (const Case &c : cases) {
        // Terminated, then guard characters past the capacity.
        std::u16string buffer = std::u16string(c.text) + u'\0';
        buffer.resize(std::max<std::size_t>(buffer.size(), static_cast<std::size_t>(c.capacity) + 4), u'#');
        EXPECT_EQ(Ostrel_Replace(buffer.data(), c.capacity, c.find, c.replace, c.flags), c.count) << tabra::test::toUtf8(c.expected);
        EXPECT_EQ(std::u16string(buffer.c_str()), c.expected);
        if (c.capacity < 100) {
            EXPECT_EQ(buffer[static_cast<std::size_t>(c.capacity)], u'#');
        }
    }
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
