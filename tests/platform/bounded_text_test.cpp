// Bounded copy, append and the blank test: capacities at the edges, surrogate pairs
// at the cut, and never a write past the capacity.
#include "ostrel_text.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

constexpr char16_t kGuard = u'#';

// A buffer pre-filled with a guard character, so writes past the capacity show.
template <std::size_t N> std::array<char16_t, N> guarded() {
    std::array<char16_t, N> buffer;
    buffer.fill(kGuard);
    return buffer;
}

// "a" + U+1F600 (a surrogate pair) + "b": the pair sits at indexes 1 and 2.
const char16_t kWithPair[] = u"a\U0001F600b";

TEST(BoundedCopy, CapacityBelowOneOrNullDestinationWritesNothing) {
    auto buffer = guarded<4>();
    EXPECT_EQ(OstrelCopyString(buffer.data(), u"abc", 0), -1);
    EXPECT_EQ(OstrelCopyString(buffer.data(), u"abc", -5), -1);
    EXPECT_EQ(buffer[0], kGuard);
    EXPECT_EQ(OstrelCopyString(nullptr, u"abc", 4), -1);
}

TEST(BoundedCopy, SmallCapacitiesCutAndTerminate) {
    auto buffer = guarded<4>();
    EXPECT_EQ(OstrelCopyString(buffer.data(), u"abc", 1), 0);
    EXPECT_EQ(buffer[0], u'\0');
    EXPECT_EQ(buffer[1], kGuard);

    buffer = guarded<4>();
    EXPECT_EQ(OstrelCopyString(buffer.data(), u"abc", 2), 1);
    EXPECT_EQ(std::u16string(buffer.data()), u"a");
    EXPECT_EQ(buffer[2], kGuard);
}

TEST(BoundedCopy, ExactFitKeepsEverythingAndOneLessCuts) {
    auto buffer = guarded<5>();
    EXPECT_EQ(OstrelCopyString(buffer.data(), u"abcd", 5), 4);
    EXPECT_EQ(std::u16string(buffer.data()), u"abcd");

    buffer = guarded<5>();
    EXPECT_EQ(OstrelCopyString(buffer.data(), u"abcd", 4), 3);
    EXPECT_EQ(std::u16string(buffer.data()), u"abc");
    EXPECT_EQ(buffer[4], kGuard);
}

TEST(BoundedCopy, NullSourceCopiesTheEmptyText) {
    auto buffer = guarded<3>();
    EXPECT_EQ(OstrelCopyString(buffer.data(), nullptr, 3), 0);
    EXPECT_EQ(buffer[0], u'\0');
}

TEST(BoundedCopy, ACutNeverSplitsASurrogatePair) {
    // Room for two characters: "a" and the high half would fit, the pair does not.
    auto buffer = guarded<6>();
    EXPECT_EQ(OstrelCopyString(buffer.data(), kWithPair, 3), 1);
    EXPECT_EQ(std::u16string(buffer.data()), u"a");
    EXPECT_EQ(buffer[3], kGuard);

    buffer = guarded<6>();
    EXPECT_EQ(OstrelCopyString(buffer.data(), kWithPair, 4), 3);
    EXPECT_EQ(std::u16string(buffer.data()), u"a\U0001F600");
}

TEST(BoundedCopy, LoneSurrogatesAreCopiedLikeAnyCharacter) {
    const char16_t lone[] = {u'x', 0xD800, u'y', 0};
    std::array<char16_t, 3> buffer{};
    // The high surrogate has no low partner after it, so the cut may end on it.
    EXPECT_EQ(OstrelCopyString(buffer.data(), lone, 3), 2);
    EXPECT_EQ(buffer[1], 0xD800);
}

TEST(BoundedAppend, AppendsAndReturnsTheWholeLength) {
    std::array<char16_t, 16> buffer{};
    OstrelCopyString(buffer.data(), u"abc", 16);
    EXPECT_EQ(OstrelAppendString(buffer.data(), u"def", 16), 6);
    EXPECT_EQ(std::u16string(buffer.data()), u"abcdef");
    EXPECT_EQ(OstrelAppendString(buffer.data(), nullptr, 16), 6);
    EXPECT_EQ(OstrelAppendString(buffer.data(), u"", 16), 6);
}

TEST(BoundedAppend, CutsAtTheCapacityAndNeverWritesPastIt) {
    auto buffer = guarded<8>();
    OstrelCopyString(buffer.data(), u"abc", 6);
    EXPECT_EQ(OstrelAppendString(buffer.data(), u"defgh", 6), 5);
    EXPECT_EQ(std::u16string(buffer.data()), u"abcde");
    EXPECT_EQ(buffer[6], kGuard);

    // A full destination stays as it is.
    EXPECT_EQ(OstrelAppendString(buffer.data(), u"x", 6), 5);
    EXPECT_EQ(std::u16string(buffer.data()), u"abcde");
}

TEST(BoundedAppend, ADestinationWithoutTerminatorIsTerminatedFirst) {
    auto buffer = guarded<6>(); // "####" with no terminator within capacity 4
    EXPECT_EQ(OstrelAppendString(buffer.data(), u"x", 4), 3);
    EXPECT_EQ(std::u16string(buffer.data()), u"###");
    EXPECT_EQ(buffer[4], kGuard);
}

TEST(BoundedAppend, ACutNeverSplitsASurrogatePair) {
    std::array<char16_t, 8> buffer{};
    OstrelCopyString(buffer.data(), u"ab", 8);
    // Capacity 4 leaves room for one more character: the pair is dropped whole.
    EXPECT_EQ(OstrelAppendString(buffer.data(), u"\U0001F600", 4), 2);
    EXPECT_EQ(std::u16string(buffer.data()), u"ab");
}

TEST(BoundedAppend, BadArguments) {
    std::array<char16_t, 4> buffer{};
    EXPECT_EQ(OstrelAppendString(nullptr, u"a", 4), -1);
    EXPECT_EQ(OstrelAppendString(buffer.data(), u"a", 0), -1);
}

TEST(BlankText, NullEmptyAndLowCodesAreBlank) {
    EXPECT_EQ(Ostrel_IsBlankString(nullptr), 1);
    EXPECT_EQ(Ostrel_IsBlankString(u""), 1);
    EXPECT_EQ(Ostrel_IsBlankString(u" \t\r\n\x01 "), 1);
    EXPECT_EQ(Ostrel_IsBlankString(u"  x  "), 0);
    EXPECT_EQ(Ostrel_IsBlankString(u"!"), 0);         // 33, the first non-blank code
    EXPECT_EQ(Ostrel_IsBlankString(u"\u00A0"), 0);    // a no-break space is above 32
}

} // namespace
