// Message boxes: texts from the string table with inserts, buttons and icon from the
// string's entry, answers the script gives, and what happens without the string.
#include "window_test_support.h"

using namespace tabra::test;

namespace {

class MessageBox : public ScriptedTest {
protected:
    MessageBox() {
        module.addString(2900, u"Tabra");
        module.addString(1617, u"Table %1 has no columns.", MB_OK | MB_ICONERROR);
        module.addString(1703, u"Delete column %1 of %2 (%3%%)?", MB_YESNOCANCEL | MB_ICONQUESTION);
        module.addString(1704, u"%2, then %1: %4 stays", MB_YESNO | MB_ICONQUESTION);
    }
    int32_t show(int32_t textId, const char16_t *a = nullptr, const char16_t *b = nullptr, const char16_t *c = nullptr) {
        OstrelMessageBoxRequest request{};
        request.module = module.handle();
        request.captionId = 2900;
        request.textId = textId;
        request.translationModule = u"TABRADLL";
        request.insert1 = a;
        request.insert2 = b;
        request.insert3 = c;
        request.flag = 1;
        request.messageCode = 0x8004A01F;
        return Ostrel_Message_Box(&request);
    }
    TestModule module;
};

TEST_F(MessageBox, InsertsButtonsAndCaptionComeFromTheStrings) {
    queue("message 1703: answer no", "message 1704: answer yes", "message: answer ok");
    EXPECT_EQ(show(1703, u"Price", u"Orders", u"50"), IDNO);
    EXPECT_EQ(show(1704, u"one", nullptr), IDYES);
    EXPECT_EQ(show(1617, u"Empty"), IDOK);
    EXPECT_FALSE(TabraScript_Failed()) << report();
    auto messages = recordsOf(TABRA_RECORD_MESSAGE);
    ASSERT_EQ(messages.size(), 3u);
    EXPECT_EQ(std::u16string(messages[0].text), u"Delete column Price of Orders (50%)?");
    EXPECT_EQ(std::u16string(messages[0].caption), u"Tabra");
    EXPECT_EQ(messages[0].style, MB_YESNOCANCEL | MB_ICONQUESTION);
    EXPECT_EQ(messages[0].code, 0x8004A01Fu);
    EXPECT_EQ(messages[0].id, 1703);
    EXPECT_EQ(std::u16string(messages[1].text), u", then one: %4 stays") << "a missing insert is empty; %4 is no insert";
    EXPECT_EQ(messages[2].style, MB_OK | MB_ICONERROR);
}

TEST_F(MessageBox, AnAnswerTheBoxDoesNotOfferFailsTheRun) {
    queue("message 1704: answer cancel");
    EXPECT_EQ(show(1704), IDNO) << "the cancel-like answer of a Yes/No box is No";
    EXPECT_TRUE(TabraScript_Failed());
    EXPECT_NE(report().find("offers only yes, no"), std::string::npos) << report();
}

TEST_F(MessageBox, AMessageForAnotherStringIsTheWrongPrompt) {
    queue("message 1617: answer ok");
    EXPECT_EQ(show(1703, u"x"), IDCANCEL);
    EXPECT_TRUE(TabraScript_Failed());
    EXPECT_EQ(TabraScript_PendingCount(), 1);
}

TEST_F(MessageBox, WithoutItsStringTheUserStillLearnsWhatHappened) {
    queue("message 4711: answer ok");
    OstrelMessageBoxRequest request{};
    request.module = nullptr;
    request.textId = 4711;
    request.insert1 = u"Orders";
    EXPECT_EQ(Ostrel_Message_Box(&request), IDOK);
    auto messages = recordsOf(TABRA_RECORD_MESSAGE);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(std::u16string(messages[0].text), u"Message 4711\nOrders");
    EXPECT_EQ(messages[0].style, MB_OK | MB_ICONERROR);
    EXPECT_EQ(Ostrel_Message_Box(nullptr), 0);
}

TEST_F(MessageBox, PlainMessageBoxesAndTheirDefaults) {
    queue("message: answer retry");
    EXPECT_EQ(MessageBoxW(nullptr, u"/opt/lib/en/tabraRes.rc", u"Fatal Error: File not found", MB_RETRYCANCEL), IDRETRY);
    queue("message 0: answer ok");
    EXPECT_EQ(MessageBoxW(nullptr, nullptr, nullptr, MB_ICONERROR), IDOK);
    auto messages = recordsOf(TABRA_RECORD_MESSAGE);
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(std::u16string(messages[0].caption), u"Fatal Error: File not found");
    EXPECT_EQ(std::u16string(messages[1].caption), u"Error") << "Win32's caption when none is given";
    EXPECT_EQ(std::u16string(messages[1].text), u"");
    EXPECT_FALSE(TabraScript_Failed()) << report();
}

} // namespace
