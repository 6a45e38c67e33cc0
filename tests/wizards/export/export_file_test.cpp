// The export file's bytes on every backend: separators by kind, the decimal
// character, delimiters as they stand, NULLs, the header line (also empty), dates in
// the German, US and ISO orders, the row count as the bound, an abort from the
// progress indicator, and a read-back by independent tools of a text with a character
// of every Unicode plane the driver carries.
#include "export_test_support.h"

namespace tabra::test {
namespace {

using exportIds::kFilePage;
using exporting::ExportWizardState;

class ExportFileTest : public ExportBackendTest {};

TEST_P(ExportFileTest, EachFormatWritesExactlyItsBytes) {
    const std::u16string wide = wideText();
    struct Case {
        const char *name;
        const char *timeLocale; // the user's date order
        void (*format)(ExportWizardState &);
        std::u16string expected;
    };
    const Case cases[] = {
        {"tab, comma, header, ISO dates", "C.UTF-8", [](ExportWizardState &) {},
         u"id\tname\tnote\tamount\tborn\r\n"
         u"1\tM\u00fcller; \"Ann\"\tline one\nline two\twith tab\t12,5\t1999-12-31\r\n"
         u"2\t\tends with \"\t\t\r\n"
         u"3\t" + wide + u"\t\t-3,25\t2024-02-29\r\n"},
        {"blank, point, no header, German dates", "de_DE.UTF-8",
         [](ExportWizardState &s) {
             s.format.separatorKind = kFilePage.separatorBlank;
             s.format.decimalKind = kFilePage.decimalPoint;
             s.format.headerLine = false;
             s.format.valueForm = kFilePage.valuesAsShown; // writes the same text
         },
         u"1 M\u00fcller; \"Ann\" line one\nline two\twith tab 12.5 31.12.1999\r\n"
         u"2  ends with \"  \r\n"
         u"3 " + wide + u"  -3.25 29.02.2024\r\n"},
        {"no separator, US dates", "en_US.UTF-8",
         [](ExportWizardState &s) { s.format.separatorKind = kFilePage.separatorNone; },
         u"idnamenoteamountborn\r\n"
         u"1M\u00fcller; \"Ann\"line one\nline two\twith tab12,512/31/1999\r\n"
         u"2ends with \"\r\n"
         u"3" + wide + u"-3,2502/29/2024\r\n"},
        {"own characters, delimiters around values, NULLs without them", "C.UTF-8",
         [](ExportWizardState &s) {
             s.format.separatorKind = kFilePage.separatorOwn;
             s.format.ownSeparator = u";";
             s.format.decimalKind = kFilePage.decimalOwn;
             s.format.ownDecimal = u":";
             s.format.leadingDelimiter = s.format.trailingDelimiter = u'"';
             s.fields.at(1)->heading = u"Full name";
         },
         u"\"id\";\"Full name\";\"note\";\"amount\";\"born\"\r\n"
         u"\"1\";\"M\u00fcller; \"Ann\"\";\"line one\nline two\twith tab\";\"12:5\";\"1999-12-31\"\r\n"
         u"\"2\";;\"ends with \"\";;\r\n"
         u"\"3\";\"" + wide + u"\";\"\";\"-3:25\";\"2024-02-29\"\r\n"},
        {"an empty header line, own decimal not given, at most the counted rows", "C.UTF-8",
         [](ExportWizardState &s) {
             for (std::size_t i : {1u, 2u, 4u}) s.fields.at(i)->selected = false;
             s.fields.at(0)->heading.clear();
             s.fields.at(3)->heading.clear();
             s.format.decimalKind = kFilePage.decimalOwn;
             s.recordCount = 2;
         },
         u"\t\r\n1\t12.5\r\n2\t\r\n"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        ScriptedRun run;
        ScopedTimeLocale dates(c.timeLocale);
        ExportWizardState state = peopleState();
        c.format(state);
        EXPECT_EQ(exporting::writeExportFile(state), 1);
        EXPECT_EQ(fileText(state), utf16le(c.expected)) << toUtf8(c.expected);
        expectNothingShown(run);
    }
}

// The user's abort after the first row keeps that row, without its line end.
TEST_P(ExportFileTest, AnAbortLeavesTheLastRowWithoutItsLineEnd) {
    ScriptedRun run;
    run.queue("progress: abort");
    ExportWizardState state = peopleState();
    EXPECT_EQ(exporting::writeExportFile(state), 1);
    EXPECT_EQ(fileText(state), utf16le(u"id\tname\tnote\tamount\tborn\r\n1\tM\u00fcller; \"Ann\"\tline one\nline "
                                       u"two\twith tab\t12,5\t1999-12-31"));
    auto progress = run.records(TABRA_RECORD_PROGRESS);
    ASSERT_EQ(progress.size(), 1u);
    EXPECT_EQ(progress[0].value, 1);
    EXPECT_EQ(progress[0].code, 1u) << "aborted";
    EXPECT_EQ(run.pending(), 0);
}

// Every plane: the characters at the start of each plane the driver carries (and a few
// where UTF-8 changes its length), with line feeds, separators and delimiters of other
// formats inside. iconv must decode the file as UTF-16LE and Python's split must give
// the values a plain wide-character fetch gives.
TEST_P(ExportFileTest, OtherProgramsReadBackEveryPlane) {
    std::u16string bmp = u"A\u00fc\u00d8\u07ff\u0800\u20ac\ud7fb\ue000\ufffd\uff21";
    std::vector<std::u16string> values{bmp, u"line\nfeed; \"quoted\" 'single' |bar|", u""};
    if (backend() != Backend::SQLite)
        for (char32_t plane = 1; plane <= 16; ++plane) {
            char32_t c = plane << 16 | (plane == 14 ? 1 : 0);
            values.push_back(u"p" + toUtf16(std::to_string(plane)) + u":" +
                             std::u16string{static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)),
                                            static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF))});
        }
    executeAll(*connection_, {u"CREATE TABLE corpus (id INTEGER PRIMARY KEY, val VARCHAR(100))"});
    for (std::size_t i = 0; i < values.size(); ++i) {
        std::u16string literal;
        for (char16_t c : values[i]) literal += c == u'\'' ? u"''" : std::u16string(1, c);
        executeAll(*connection_,
                   {u"INSERT INTO corpus VALUES (" + toUtf16(std::to_string(i)) + u", '" + literal + u"')"});
    }
    executeAll(*connection_, {u"INSERT INTO corpus VALUES (99, NULL)"});
    ScriptedRun run;
    ExportWizardState state;
    state.connection = connection_->handle();
    std::u16string(u"corpus").copy(state.object.DbObjectName, 6);
    ASSERT_TRUE(state.fields.load(state.connection, u"corpus"));
    state.recordCount = static_cast<int32_t>(values.size()) + 1;
    state.fileName = scratch_.file("corpus.txt");
    ASSERT_EQ(exporting::writeExportFile(state), 1);
    std::vector<std::vector<std::string>> expected{{"id", "val"}};
    for (const auto &row : queryRows(*connection_, u"SELECT id, val FROM corpus ORDER BY id"))
        expected.push_back({toUtf8(*row[0]), row[1] ? toUtf8(*row[1]) : ""});
    static const char *kSplitter = R"(rows = [line.split('\t') for line in text.split('\r\n')[:-1]]
assert not text.startswith('\ufeff')
)";
    EXPECT_EQ(readWithTools(state.fileName, kSplitter), expected);
    expectNothingShown(run);
}

TABRA_INSTANTIATE_BACKEND_TEST(ExportFileTest);

} // namespace
} // namespace tabra::test
