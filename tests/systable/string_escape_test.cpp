// The exported escape pair: the escape table, the cut that holds ten positions back,
// the decoder's rules for text the encoder never writes, and a seeded round trip over
// random texts.
#include "support/test_text.h"
#include "tabra_systable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace tabra::test {
namespace {

constexpr char16_t kGuard = u'#';

// Encodes text in place with the given capacity and returns the result; checks that
// nothing from position capacity on changed (the text itself, then guard characters).
std::u16string encoded(std::u16string_view text, int32_t capacity) {
    std::u16string buffer = std::u16string(text) + u'\0';
    buffer.resize(std::max(buffer.size(), static_cast<size_t>(capacity)) + 8, kGuard);
    const std::u16string before = buffer;
    Tabra_EncodeString(buffer.data(), capacity);
    for (size_t i = static_cast<size_t>(capacity); i < buffer.size(); ++i)
        EXPECT_EQ(buffer[i], before[i]) << "written past capacity " << capacity << " at " << i;
    return buffer.c_str();
}

std::u16string decoded(std::u16string text) {
    Tabra_DecodeString(text.data());
    return text.c_str();
}

TEST(StringEscape, EveryEscapeOfTheTableAndCharactersLeftAsTheyAre) {
    struct Case {
        std::u16string text, form;
    };
    const std::vector<Case> cases = {
        {u"It's\tC:\\x", u"It\\Qs\\tC:\\\\x"},
        {u"\t\n\r\"'\\", u"\\t\\n\\r\\q\\Q\\\\"},
        {u"\x01\x08\x0B\x0C\x0E\x1F", u"\\x01\\x08\\x0B\\x0C\\x0E\\x1F"},
        {u" ~\x7F\u00A0\u00E4\u00FF", u" ~\x7F\u00A0\u00E4\u00FF"},   // 32 up to 255 outside the table
        {u"\u0100\u20AC\u2028\U0001F600", u"\u0100\u20AC\u2028\U0001F600"}, // above 255: unchanged
        {u"", u""},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(encoded(c.text, 100), c.form) << toUtf8(c.text);
        EXPECT_EQ(decoded(c.form), c.text) << toUtf8(c.form);
    }
    // Every control character 1 to 31 decodes to itself.
    for (char16_t c = 1; c < 32; ++c) EXPECT_EQ(decoded(encoded(std::u16string(1, c), 20)), std::u16string(1, c));
}

TEST(StringEscape, EncodingHoldsTenPositionsBack) {
    const std::u16string longText(40, u'a');
    struct Case {
        std::u16string text;
        int32_t capacity;
        std::u16string form;
    };
    const std::vector<Case> cases = {
        {longText, 11, u"a"},                          // the second character finds 10 remaining
        {longText, 12, u"aa"},
        {longText, 10, u""},
        {longText, 1, u""},
        {u"\x01\x01\x01", 14, u"\\x01"},               // 14 - 4 = 10: the second one stops
        {u"\x01\x01\x01", 15, u"\\x01\\x01"},          // 15 - 4 = 11 still lets one through
        {u"\t\t\t", 13, u"\\t\\t"},
        {u"a\U0001F600", 12, u"a"},                    // the pair needs room for both halves
        {u"a\U0001F600", 13, u"a\U0001F600"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(encoded(c.text, c.capacity), c.form) << toUtf8(c.text) << " in " << c.capacity;
    // Null buffers and capacities below 1 leave everything alone.
    Tabra_EncodeString(nullptr, 10);
    Tabra_DecodeString(nullptr);
    char16_t untouched[] = u"a\tb";
    Tabra_EncodeString(untouched, 0);
    EXPECT_EQ(std::u16string(untouched), u"a\tb");
}

TEST(StringEscape, DecodingTextTheEncoderNeverWrites) {
    struct Case {
        std::u16string form, text;
    };
    const std::vector<Case> cases = {
        {u"\\x4", u"\\4"},             // fewer than two characters after x
        {u"\\x", u"\\"},
        {u"ab\\", u"ab"},              // a lone backslash at the end is dropped
        {u"\\z!", u"\\!"},             // any other letter: one backslash, the letter consumed
        {u"\\x41\\x7E", u"A~"},
        {u"\\x4a", std::u16string(1, static_cast<char16_t>(4 * 16 + (u'a' - u'0')))}, // lower case counts wrongly
        {u"\\X41", u"\\41"},
        {u"\\\\\\\\", u"\\\\"},
    };
    for (const auto &c : cases) EXPECT_EQ(decoded(c.form), c.text) << toUtf8(c.form);
}

// Random texts over an alphabet that has every kind of character the escape treats
// differently; each whose encoding fits comes back unchanged.
TEST(StringEscape, DecodingGivesBackEveryEncodedTextThatFits) {
    std::vector<std::u16string> alphabet = {u"a", u"Z", u"0", u" ", u"\\", u"'", u"\"", u"x", u"Q", u"\u00E4",
                                            u"\u00DF", u"\u00FF", u"\u20AC", u"\uFFFD", u"\U0001F600", u"\U00010348"};
    for (char16_t c = 1; c < 32; ++c) alphabet.emplace_back(1, c);
    std::mt19937 random(20240305);
    std::uniform_int_distribution<size_t> pick(0, alphabet.size() - 1);
    std::uniform_int_distribution<int> length(0, 60);
    for (int i = 0; i < 5000; ++i) {
        std::u16string text;
        for (int n = length(random); n > 0; --n) text += alphabet[pick(random)];
        // Worst case 4 per character plus the ten held back: this always fits.
        const int32_t capacity = static_cast<int32_t>(text.size() * 4 + 11);
        const std::u16string form = encoded(text, capacity);
        ASSERT_EQ(decoded(form), text) << toUtf8(text);
        // A tight capacity cuts the text at a whole character: what comes back is a prefix.
        const std::u16string cut = decoded(encoded(text, static_cast<int32_t>(form.size()) + 10 - 1));
        ASSERT_EQ(text.compare(0, cut.size(), cut), 0) << toUtf8(text);
    }
}

} // namespace
} // namespace tabra::test
