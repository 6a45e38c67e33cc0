// The registry's text form: everything written reads back, and a file the parser
// cannot read whole is refused rather than half-read.
#include "platform/registry/registry_file_format.h"

#include <gtest/gtest.h>

using namespace tabra::platform;

namespace {

RegistryKeyPath key(std::u16string_view path) { return *RegistryKeyPath::parse(path); }

std::u16string textOf(const RegistryDocument &document, std::u16string_view path, std::u16string_view name) {
    const RegistryValue *value = document.findValue(key(path), name);
    return value ? value->asText() : u"<missing>";
}

TEST(RegistryFileFormat, AwkwardNamesAndValuesSurviveTheRoundTrip) {
    const char16_t loneSurrogate[] = {u'a', 0xDC01, u'b', 0};
    const std::u16string awkward[] = {
        u"",
        u"plain",
        u"line one\nline two\r\n",
        u"\"quoted\" and 'single'",
        u"C:\\path\\to\\file",
        u"trailing backslash\\",
        u"tab\there \x01\x1F\x7F",
        u"Grüße \U0001F600 \u4e2d\u6587",
        u"  leading and trailing blanks  ",
        u"[looks like a section]",
        u"; looks like a comment",
        u"\"name\"=\"looks like a value\"",
        loneSurrogate,
    };
    RegistryDocument document;
    int index = 0;
    for (const auto &text : awkward) {
        const std::u16string name = u"v" + std::u16string(1, static_cast<char16_t>(u'A' + index++)) + text;
        document.setText(key(u"Software\\Ostrel Software\\Tabra"), name, text);
    }
    document.setNumber(key(u"Software\\Ostrel Software\\Tabra"), u"", 0xFFFFFFFFu);
    document.setText(key(u"Software\\Grüße [x]"), u"=", u"=");

    const std::string text = formatRegistryText(document);
    const auto parsed = parseRegistryText(text);
    ASSERT_TRUE(parsed.has_value()) << text;
    index = 0;
    for (const auto &value : awkward) {
        const std::u16string name = u"v" + std::u16string(1, static_cast<char16_t>(u'A' + index++)) + value;
        EXPECT_EQ(textOf(*parsed, u"Software\\Ostrel Software\\Tabra", name), value);
    }
    EXPECT_EQ(textOf(*parsed, u"Software\\Ostrel Software\\Tabra", u""), u"-1");
    EXPECT_EQ(textOf(*parsed, u"software\\GRÜSSE [x]", u"="), u"<missing>"); // ß is not SS
    EXPECT_EQ(textOf(*parsed, u"software\\GRÜßE [X]", u"="), u"=");
    // Re-formatting the parsed document gives the same text: the form is stable.
    EXPECT_EQ(formatRegistryText(*parsed), text);
}

TEST(RegistryFileFormat, ReadsWhatAPersonWouldWrite) {
    const auto parsed = parseRegistryText("; my settings\r\n"
                                          "\r\n"
                                          "  [Software\\Tabra]  \r\n"
                                          "\"Name\"=\"first\"\r\n"
                                          "# another comment\n"
                                          "\"name\"=\"second\"\n"
                                          "\"Count\"=dword:2A\n"
                                          "@=\"default\"\n"
                                          "[Software\\Tabra\\Empty]\n");
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(textOf(*parsed, u"Software\\Tabra", u"NAME"), u"second"); // the later line wins
    int32_t number = 0;
    ASSERT_TRUE(parsed->findValue(key(u"Software\\Tabra"), u"count")->asNumber(number));
    EXPECT_EQ(number, 42);
    EXPECT_EQ(textOf(*parsed, u"Software\\Tabra", u""), u"default");
    EXPECT_EQ(parsed->keys().size(), 2u); // a key without values is kept
    EXPECT_TRUE(parseRegistryText("").has_value());
}

TEST(RegistryFileFormat, RefusesDamagedText) {
    const char *damaged[] = {
        "\"Name\"=\"before any section\"\n",
        "[Key]\nnot a value line\n",
        "[Key]\n\"Name\"=\"unterminated\n",
        "[Key]\n\"Name\"=\"bad escape \\z\"\n",
        "[Key]\n\"Name\"=\"zero \\x00\"\n",
        "[Key]\n\"Name\"=\"short \\x4\"\n",
        "[Key]\n\"Name\"=dword:123456789\n",
        "[Key]\n\"Name\"=dword:\n",
        "[Key]\n\"Name\"=dword:12 garbage\n",
        "[Key]\n\"Name\"=\"value\" trailing\n",
        "[Key]\n\"Name\"\n",
        "[Key\n",
        "[Key\x01]\n",
        "[Key]\n\"Name\"=\"invalid \xC3\x28 utf-8\"\n",
    };
    for (const char *text : damaged)
        EXPECT_FALSE(parseRegistryText(text).has_value()) << text;
    EXPECT_FALSE(parseRegistryText(std::string_view("[Key]\n\"A\"=\"a\0b\"\n", 16)).has_value());
}

} // namespace
