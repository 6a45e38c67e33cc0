// UTF-16 <-> UTF-8: round trips, replacement of ill-formed input, bounded output.
#include "ostrel_text.h"
#include "platform/text/case_folding.h"
#include "platform/text/utf_conversion.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

using namespace tabra::platform;

namespace {

const std::u16string kReplacement = u"\uFFFD";

TEST(UtfConversion, RoundTripsEveryPlane) {
    const std::u16string text = u"A\u00e9\u20ac\uFFFD\U0001F600\U0010FFFF";
    const std::string utf8 = toUtf8(text);
    EXPECT_EQ(utf8, "A\xC3\xA9\xE2\x82\xAC\xEF\xBF\xBD\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF");
    EXPECT_TRUE(isValidUtf8(utf8));
    EXPECT_EQ(fromUtf8(utf8), text);
}

TEST(UtfConversion, UnpairedSurrogatesBecomeReplacementCharacters) {
    const char16_t text[] = {u'a', 0xDC00, 0xD800, u'b', 0xD800, 0};
    EXPECT_FALSE(isWellFormedUtf16(text));
    EXPECT_EQ(fromUtf8(toUtf8(text)), u"a\uFFFD\uFFFDb\uFFFD");
    EXPECT_TRUE(isWellFormedUtf16(u"\U0001F600\uFFFD"));
}

TEST(UtfConversion, IllFormedUtf8GivesOneReplacementPerMaximalSubpart) {
    EXPECT_EQ(fromUtf8("\xC0\x80"), kReplacement + kReplacement);                // overlong
    EXPECT_EQ(fromUtf8("\xE0\x80\x80"), kReplacement + kReplacement + kReplacement); // overlong
    EXPECT_EQ(fromUtf8("\xED\xA0\x80"), kReplacement + kReplacement + kReplacement); // a surrogate
    EXPECT_EQ(fromUtf8("\xF4\x90\x80\x80"), std::u16string(4, u'\uFFFD'));          // above U+10FFFF
    EXPECT_EQ(fromUtf8("a\xE2\x82"), u"a" + kReplacement);                           // cut short
    EXPECT_EQ(fromUtf8("\xE2\x82x"), kReplacement + u"x");
    EXPECT_EQ(fromUtf8("\xFF"), kReplacement);
    EXPECT_FALSE(isValidUtf8("\xE2\x82"));
    EXPECT_FALSE(isValidUtf8("\xC0\x80"));
}

TEST(UtfConversion, ExportedCallsCutAtWholeCharacters) {
    char utf8[8];
    // "a€" is four bytes; capacity 3 holds "a" only, never half of the euro sign.
    EXPECT_EQ(Ostrel_Utf16ToUtf8(u"a\u20ac", utf8, 3), 1);
    EXPECT_STREQ(utf8, "a");
    EXPECT_EQ(Ostrel_Utf16ToUtf8(u"a\u20ac", utf8, 5), 4);
    EXPECT_STREQ(utf8, "a\xE2\x82\xAC");
    EXPECT_EQ(Ostrel_Utf16ToUtf8(nullptr, utf8, 8), 0);
    EXPECT_EQ(Ostrel_Utf16ToUtf8(u"a", nullptr, 8), -1);
    EXPECT_EQ(Ostrel_Utf16ToUtf8(u"a", utf8, 0), -1);

    char16_t utf16[4];
    EXPECT_EQ(Ostrel_Utf8ToUtf16("x\xF0\x9F\x98\x80", utf16, 3), 1); // the pair does not fit
    EXPECT_EQ(std::u16string(utf16), u"x");
    EXPECT_EQ(Ostrel_Utf8ToUtf16("x\xF0\x9F\x98\x80", utf16, 4), 3);
    EXPECT_EQ(std::u16string(utf16), u"x\U0001F600");
    EXPECT_EQ(Ostrel_Utf8ToUtf16("a", nullptr, 4), -1);
}

TEST(CaseFolding, ComparesBeyondAsciiAndIndependentOfTheLocale) {
    EXPECT_TRUE(equalIgnoringCase(u"Software\\Tabra", u"SOFTWARE\\tabra"));
    EXPECT_TRUE(equalIgnoringCase(u"Grüße Ärger", u"GRÜßE äRGER"));
    EXPECT_TRUE(equalIgnoringCase(u"σ", u"Σ"));
    EXPECT_FALSE(equalIgnoringCase(u"a", u"b"));
    EXPECT_FALSE(equalIgnoringCase(u"ab", u"a"));
    EXPECT_TRUE(equalIgnoringCase(u"\U0001F600", u"\U0001F600"));
}

} // namespace
