// Row-set files on the real databases: exact bytes for each flag, separators, empty
// results, the buffer form, and a read-back by independent tools.
#include "row_set_test_support.h"

namespace tabra::test {
namespace {

class RowSetFileTest : public ConnectedBackendTest {
protected:
    void prepare(const OdbcConnection &connection) override {
        std::u16string timestamp = backend() == Backend::PostgreSQL ? u"TIMESTAMP" : u"DATETIME";
        executeAll(connection,
                   {u"CREATE TABLE people (id INTEGER, name VARCHAR(40), note VARCHAR(200), amount INTEGER, "
                    u"price DECIMAL(10,2), seen " + timestamp + u")",
                    u"INSERT INTO people VALUES (1, 'O''Neil', 'a\tb\nc', NULL, 12.50, '2024-03-05 14:07:09')",
                    u"INSERT INTO people VALUES (2, NULL, 'M\u00fcller', 7, NULL, NULL)",
                    u"INSERT INTO people VALUES (3, '', '" + wideText() + u"', 0, -3.25, '1999-12-31 23:59:59')"});
    }
    std::u16string wideText() const { return test::wideText(backend()); }
    // 12.50 as the database writes a DECIMAL(10,2).
    std::u16string twelveFifty() const { return backend() == Backend::SQLite ? u"12.5" : u"12.50"; }
    // The SQLite driver calls a DECIMAL column VARCHAR, so its values are written as
    // text: quoted with flag 1, and NULL as two quotes instead of the number 0.
    std::u16string quotedNumber(std::u16string_view number) const {
        if (backend() != Backend::SQLite) return number.empty() ? u"0" : std::u16string(number);
        return u"'" + std::u16string(number) + u"'";
    }

    struct Export {
        int32_t result = 0;
        int32_t count = -1;
        std::string bytes;
    };
    Export exportRows(uint32_t flags, const char16_t *statement = kAllPeople, const char16_t *fields = nullptr,
                      const char16_t *records = nullptr) {
        Export out;
        auto name = scratch_.file("people.txt");
        std::filesystem::remove(toUtf8(name));
        out.result = OdbcEh_SelectRowSetToFile(0, connection_->handle(), statement, fields, records, name.c_str(),
                                               &out.count, nullptr, flags);
        out.bytes = fileBytes(name);
        return out;
    }

    static constexpr const char16_t *kAllPeople = u"SELECT id, name, note, amount, price, seen FROM people ORDER BY id";
    ScratchFolder scratch_;
};

TEST_P(RowSetFileTest, EachFlagWritesExactlyItsForm) {
    ScriptedRun run;
    std::u16string wide = wideText(), twelve = twelveFifty();
    struct Case {
        uint32_t flags;
        std::u16string expected;
        int32_t count;
    };
    const Case cases[] = {
        {0,
         u"1\tO'Neil\ta\tb\nc\t\t" + twelve + u"\t2024-03-05 14:07:09\n2\t\tM\u00fcller\t7\t\t\n3\t\t" + wide +
             u"\t0\t-3.25\t1999-12-31 23:59:59",
         3},
        {TABRA_ROWSET_QUOTE_TEXT | TABRA_ROWSET_HEADER | TABRA_ROWSET_ZERO_NUMBERS | TABRA_ROWSET_DIGIT_DATES,
         u"id\tname\tnote\tamount\tprice\tseen\n1\t'O''Neil'\t'a\tb\nc'\t0\t" + quotedNumber(twelve) +
             u"\t'20240305140709'\n2\t''\t'M\u00fcller'\t7\t" + quotedNumber(u"") + u"\t''\n3\t''\t'" + wide +
             u"'\t0\t" + quotedNumber(u"-3.25") + u"\t'19991231235959'",
         4},
        {TABRA_ROWSET_ENCODE_TEXT | TABRA_ROWSET_DIGIT_DATES,
         u"1\tO\\QNeil\ta\\tb\\nc\t\t" + twelve + u"\t20240305140709\n2\t\tM\u00fcller\t7\t\t\n3\t\t" + wide +
             u"\t0\t-3.25\t19991231235959",
         3},
    };
    for (const auto &c : cases) {
        auto out = exportRows(c.flags);
        EXPECT_EQ(out.result, 1) << "flags " << c.flags;
        EXPECT_EQ(out.count, c.count) << "flags " << c.flags;
        EXPECT_EQ(out.bytes, utf16le(c.expected)) << "flags " << c.flags << ": " << toUtf8(c.expected);
        // The buffer form holds the same text.
        std::u16string buffer(c.expected.size() + 2, u'#');
        EXPECT_EQ(OdbcEh_SelectRowSetToBuffer(0, connection_->handle(), kAllPeople, nullptr, nullptr, buffer.data(),
                                              static_cast<int32_t>(buffer.size()), nullptr, c.flags),
                  1);
        EXPECT_EQ(buffer, c.expected + std::u16string(2, u'\0')) << "flags " << c.flags;
    }
    expectNothingShown(run);
}

TEST_P(RowSetFileTest, SeparatorsAndEmptyResults) {
    ScriptedRun run;
    auto custom = exportRows(TABRA_ROWSET_HEADER, u"SELECT id, name FROM people ORDER BY id", u";", u"\r\n");
    EXPECT_EQ(custom.bytes, utf16le(u"id;name\r\n1;O'Neil\r\n2;\r\n3;"));
    EXPECT_EQ(custom.count, 4);
    auto headerOnly = exportRows(TABRA_ROWSET_HEADER, u"SELECT id, name FROM people WHERE id < 0");
    EXPECT_EQ(headerOnly.result, 1);
    EXPECT_EQ(headerOnly.bytes, utf16le(u"id\tname")) << "no line feed after the only record";
    EXPECT_EQ(headerOnly.count, 1);
    auto nothing = exportRows(0, u"SELECT id FROM people WHERE id < 0");
    EXPECT_EQ(nothing.result, 1);
    EXPECT_EQ(nothing.bytes, "");
    EXPECT_EQ(nothing.count, 0);
    expectNothingShown(run);
}

TEST_P(RowSetFileTest, TheBufferHoldsTheFileTextCutAtWholeCharacters) {
    ScriptedRun run;
    const char16_t *statement = u"SELECT note FROM people WHERE id = 3";
    std::u16string wide = wideText();
    std::u16string buffer(40, u'#');
    EXPECT_EQ(OdbcEh_SelectRowSetToBuffer(0, connection_->handle(), statement, nullptr, nullptr, buffer.data(), 40,
                                          nullptr, TABRA_ROWSET_QUOTE_TEXT),
              1);
    EXPECT_EQ(buffer, u"'" + wide + u"'" + std::u16string(40 - wide.size() - 2, u'\0'));
    // Cut: capacity - 1 characters at most, and never half a surrogate pair.
    for (int32_t capacity : {3, 8, 9, 10}) {
        std::u16string cut(static_cast<size_t>(capacity), u'#');
        EXPECT_EQ(OdbcEh_SelectRowSetToBuffer(0, connection_->handle(), statement, nullptr, nullptr, cut.data(),
                                              capacity, nullptr, 0),
                  1);
        std::u16string kept = wide.substr(0, static_cast<size_t>(capacity - 1));
        if (!kept.empty() && kept.back() >= 0xD800 && kept.back() <= 0xDBFF) kept.pop_back();
        EXPECT_EQ(cut, kept + std::u16string(static_cast<size_t>(capacity) - kept.size(), u'\0')) << capacity;
    }
    std::u16string small(2, u'#');
    EXPECT_EQ(OdbcEh_SelectRowSetToBuffer(0, connection_->handle(), statement, nullptr, nullptr, small.data(), 2,
                                          nullptr, 0),
              2);
    expectNothingShown(run);
}

TEST_P(RowSetFileTest, OtherProgramsReadTheFileBack) {
    ScriptedRun run;
    auto name = scratch_.file("people.txt");
    int32_t count = 0;
    ASSERT_EQ(OdbcEh_SelectRowSetToFile(0, connection_->handle(), kAllPeople, nullptr, nullptr, name.c_str(), &count,
                                        nullptr, TABRA_ROWSET_QUOTE_TEXT | TABRA_ROWSET_HEADER),
              1);
    // What the tools read must be what the database holds, fetched here on its own.
    std::vector<std::vector<std::string>> expected{{"id", "name", "note", "amount", "price", "seen"}};
    for (const auto &row : queryRows(*connection_, kAllPeople)) {
        expected.emplace_back();
        for (const auto &value : row) expected.back().push_back(value ? toUtf8(*value) : "");
    }
    EXPECT_EQ(readWithTools(name), expected);
    EXPECT_EQ(count, 4);
    expectNothingShown(run);
}

TABRA_INSTANTIATE_BACKEND_TEST(RowSetFileTest);

} // namespace
} // namespace tabra::test
