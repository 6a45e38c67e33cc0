// The one-line encoding: reversible for every text, free of line breaks and control
// characters, stable, and bounded by its capacity.
#include "ostrel_text.h"
#include "platform/text/line_encoding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

using tabra::platform::decodeFromOneLine;
using tabra::platform::encodeOnOneLine;
using tabra::platform::LineEncoding;

namespace {

// Random text drawn mostly from the characters that need care.
std::u16string randomText(std::mt19937 &random) {
    static const std::vector<char16_t> awkward = {
        u'\\', u'\t', u'\n', u'\r', u'"', u'\'', u'x', u'u', u'0', u'F', u'q', u'Q', u'n',
        0x01,  0x1F,  0x7F,  0x85,  0x9F, 0xA0, 0x2028, 0x2029, 0xFFFD, 0xFEFF, u'a', u' '};
    std::uniform_int_distribution<int> length(0, 40);
    std::uniform_int_distribution<int> kind(0, 9);
    std::uniform_int_distribution<std::size_t> pick(0, awkward.size() - 1);
    std::uniform_int_distribution<int> bmp(1, 0xFFFF);
    std::u16string text;
    for (int i = length(random); i > 0; --i) {
        const int k = kind(random);
        if (k < 5) {
            text += awkward[pick(random)];
        } else if (k < 7) {
            text += u"\U0001F600"; // a well-formed pair
        } else if (k < 8) {
            text += static_cast<char16_t>(0xD800 + (random() % 0x800)); // any surrogate, maybe unpaired
        } else {
            text += static_cast<char16_t>(bmp(random));
        }
    }
    return text;
}

bool staysOnOneLine(const std::u16string &encoded) {
    for (char16_t c : encoded) {
        if (c < 0x20 || (c >= 0x7F && c <= 0x9F) || c == 0x2028 || c == 0x2029)
            return false;
    }
    return true;
}

bool hasUnpairedSurrogate(const std::u16string &text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF)
            ++i;
        else if (c >= 0xD800 && c <= 0xDFFF)
            return true;
    }
    return false;
}

TEST(LineEncoding, EveryTextDecodesBackThroughTheExportedPair) {
    std::mt19937 random(20240611);
    for (int round = 0; round < 5000; ++round) {
        const std::u16string text = randomText(random);
        for (int32_t mode : {OSTREL_ENCODE_GENERAL, OSTREL_ENCODE_QUOTE_SAFE}) {
            std::u16string buffer(400, u'#');
            const int32_t length = Ostrel_EncodeString(text.c_str(), buffer.data(), 400, mode);
            // Texts that hold a character 0 end there, as every C text does.
            const std::u16string terminated(text.c_str());
            ASSERT_GE(length, 0);
            const std::u16string encoded(buffer.c_str());
            ASSERT_EQ(static_cast<std::size_t>(length), encoded.size());
            ASSERT_TRUE(staysOnOneLine(encoded)) << "mode " << mode;
            ASSERT_FALSE(hasUnpairedSurrogate(encoded));
            if (mode == OSTREL_ENCODE_QUOTE_SAFE) {
                ASSERT_EQ(encoded.find_first_of(u"\"'"), std::u16string::npos);
            } else { // no surrogate at all: the text stays within the Basic Multilingual Plane
                ASSERT_TRUE(std::none_of(encoded.begin(), encoded.end(),
                                         [](char16_t c) { return c >= 0xD800 && c <= 0xDFFF; }));
            }
            ASSERT_EQ(Ostrel_DecodeString(buffer.data()), static_cast<int32_t>(terminated.size()));
            ASSERT_EQ(std::u16string(buffer.c_str()), terminated);
        }
    }
}

TEST(LineEncoding, EqualTextsGiveEqualEncodingsAndDifferentTextsDifferentOnes) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        const std::u16string a = randomText(random);
        const std::u16string b = randomText(random);
        EXPECT_EQ(encodeOnOneLine(a, LineEncoding::General), encodeOnOneLine(std::u16string(a), LineEncoding::General));
        if (a != b) {
            EXPECT_NE(encodeOnOneLine(a, LineEncoding::General), encodeOnOneLine(b, LineEncoding::General));
        }
    }
}

TEST(LineEncoding, WritesTheDocumentedEscapes) {
    EXPECT_EQ(encodeOnOneLine(u"It's\ta \"C:\\x\"\r\n", LineEncoding::General), u"It's\\ta \"C:\\\\x\"\\r\\n");
    EXPECT_EQ(encodeOnOneLine(u"It's \"x\"", LineEncoding::QuoteSafe), u"It\\Qs \\qx\\q");
    EXPECT_EQ(encodeOnOneLine(u"\x01\x7F\u0085", LineEncoding::General), u"\\x01\\x7F\\x85");
    const char16_t loneHigh[] = {u'a', 0xD83D, 0};
    EXPECT_EQ(encodeOnOneLine(loneHigh, LineEncoding::General), u"a\\uD83D");
    EXPECT_EQ(encodeOnOneLine(u"\u2028", LineEncoding::General), u"\\u2028");
    EXPECT_EQ(encodeOnOneLine(u"Grüße \U0001F600", LineEncoding::General), u"Grüße \\uD83D\\uDE00");
    EXPECT_EQ(encodeOnOneLine(u"Grüße \U0001F600", LineEncoding::QuoteSafe), u"Grüße \U0001F600");
}

TEST(LineEncoding, CapacityExactFitAndOneShort) {
    const char16_t *text = u"a\nb"; // encodes to the four characters a\nb
    char16_t buffer[8];
    EXPECT_EQ(Ostrel_EncodeString(text, buffer, 5, 0), 4);
    EXPECT_EQ(std::u16string(buffer), u"a\\nb");
    buffer[0] = u'#';
    EXPECT_EQ(Ostrel_EncodeString(text, buffer, 4, 0), -1);
    EXPECT_EQ(buffer[0], u'\0'); // a failed encoding leaves the empty text
    EXPECT_EQ(Ostrel_EncodeString(text, buffer, 0, 0), -1);
    EXPECT_EQ(Ostrel_EncodeString(text, nullptr, 8, 0), -1);
    EXPECT_EQ(Ostrel_EncodeString(nullptr, buffer, 8, 0), 0);
    EXPECT_EQ(buffer[0], u'\0');
}

TEST(LineEncoding, DecodingForeignTextKeepsStrayBackslashes) {
    EXPECT_EQ(decodeFromOneLine(u"end\\"), u"end\\");     // a trailing backslash
    EXPECT_EQ(decodeFromOneLine(u"\\x4"), u"\\x4");       // one hex digit only
    EXPECT_EQ(decodeFromOneLine(u"\\z"), u"\\z");         // no such escape
    EXPECT_EQ(decodeFromOneLine(u"a\\x00b"), u"a\\x00b"); // a zero would end the text
    EXPECT_EQ(decodeFromOneLine(u"\\x41\\u00e9"), u"A\u00e9");
    EXPECT_EQ(Ostrel_DecodeString(nullptr), -1);
}

} // namespace
