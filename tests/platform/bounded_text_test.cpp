// Bounded copy, append and the blank test: capacities at the edges, surrogate pairs
// at the cut, and never a write past the capacity.
#include "ostrel_text.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

constexpr char16_t kGuard = u'#';

// "a" + U+1F600 (a surrogate pair) + "b": the pair sits at indexes 1 and 2.
const char16_t kWithPair[] = u"a\U0001F600b";
const char16_t kLoneHigh[] = {u'x', 0xD800, u'y', 0};

struct Bounded {
    const char16_t *start;  // the destination's text before the call (copy: none)
    const char16_t *source;
    int32_t capacity;
    int32_t result;
    std::u16string text;    // the destination afterwards
};

// Runs the call on a buffer pre-filled with guard characters, so writes past the
// capacity show.
template <class Call> void expectBounded(const Bounded &c, Call call) {
    std::array<char16_t, 20> buffer;
    buffer.fill(kGuard);
    if (c.start) std::char_traits<char16_t>::copy(buffer.data(), c.start, std::char_traits<char16_t>::length(c.start) + 1);
    EXPECT_EQ(call(buffer.data(), c.source, c.capacity), c.result) << c.capacity;
    if (c.result >= 0) {
        EXPECT_EQ(std::u16string(buffer.data()), c.text) << c.capacity;
        EXPECT_EQ(buffer[static_cast<std::size_t>(c.capacity)], kGuard) << "written past capacity " << c.capacity;
    } else {
        EXPECT_EQ(buffer[0], c.start ? c.start[0] : kGuard) << "a refused call writes nothing";
    }
}

TEST(BoundedCopy, CutsAtTheCapacityOnWholeCharacters) {
    const Bounded cases[] = {
        {nullptr, u"abc", 0, -1, u""},   {nullptr, u"abc", -5, -1, u""},     {nullptr, u"abc", 1, 0, u""},
        {nullptr, u"abc", 2, 1, u"a"},   {nullptr, u"abcd", 5, 4, u"abcd"},  {nullptr, u"abcd", 4, 3, u"abc"},
        {nullptr, nullptr, 3, 0, u""},   {nullptr, kWithPair, 3, 1, u"a"},   {nullptr, kWithPair, 4, 3, u"a\U0001F600"},
        {nullptr, kLoneHigh, 3, 2, std::u16string(kLoneHigh, 2)}, // no low partner: the cut may end on it
    };
    for (const Bounded &c : cases) expectBounded(c, OstrelCopyString);
    EXPECT_EQ(OstrelCopyString(nullptr, u"abc", 4), -1);
}

TEST(BoundedAppend, AppendsAndCutsAtTheCapacity) {
    const Bounded cases[] = {
        {u"abc", u"def", 16, 6, u"abcdef"}, {u"abc", nullptr, 16, 3, u"abc"}, {u"abc", u"", 16, 3, u"abc"},
        {u"abc", u"defgh", 6, 5, u"abcde"}, {u"abcde", u"x", 6, 5, u"abcde"}, // a full destination stays
        {u"ab", u"\U0001F600", 4, 2, u"ab"}, // room for one more character: the pair is dropped whole
        {u"abc", u"a", 0, -1, u""},
        {u"#####", u"x", 4, 3, u"###"}, // no terminator within the capacity: terminated first
    };
    for (const Bounded &c : cases) expectBounded(c, OstrelAppendString);
    EXPECT_EQ(OstrelAppendString(nullptr, u"a", 4), -1);
}

TEST(BlankText, NullEmptyAndLowCodesAreBlank) {
    EXPECT_EQ(Ostrel_IsBlankString(nullptr), 1);
    EXPECT_EQ(Ostrel_IsBlankString(u""), 1);
    EXPECT_EQ(Ostrel_IsBlankString(u" \t\r\n\x01 "), 1);
    EXPECT_EQ(Ostrel_IsBlankString(u"  x  "), 0);
    EXPECT_EQ(Ostrel_IsBlankString(u"!"), 0);      // 33, the first non-blank code
    EXPECT_EQ(Ostrel_IsBlankString(u"\u00A0"), 0); // a no-break space is above 32
}

} // namespace
