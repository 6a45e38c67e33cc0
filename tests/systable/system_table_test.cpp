// The system table store on the real databases: values of every kind come back as
// written, the 1000-character statement bounds what can be written, defaults, deletes,
// and nothing is ever shown. The store makes its table itself on each of them
// (PostgreSQL, which has no BLOB type, with a text value column).
#include "catalog/catalog_test_support.h"
#include "ostrel.h"
#include "tabra_systable.h"
#include "tabra_rowset.h"

namespace tabra::test {
namespace {

constexpr int32_t kOutputCapacity = 1200;

// The insert statement around the keys "o", "t", "i" without its value.
constexpr std::u16string_view kInsertFrame =
    u"INSERT INTO OstrelSysTable (Object,Type,ItemName,ItemValue) VALUES ('o','t','i','')";
constexpr size_t kLongestLiteral = 999 - kInsertFrame.size();

class SystemTableTest : public ConnectedBackendTest {
protected:
    std::u16string read(const char16_t *object, const char16_t *type, const char16_t *item,
                        const char16_t *fallback = u"<default>", int32_t capacity = kOutputCapacity,
                        int32_t expected = 1) {
        std::u16string output(static_cast<size_t>(capacity) + 4, u'#');
        EXPECT_EQ(Tabra_ReadSysTableString(hdbc(), object, type, item, fallback, output.data(), capacity), expected);
        for (size_t i = static_cast<size_t>(capacity); i < output.size(); ++i) EXPECT_EQ(output[i], u'#');
        return output.c_str();
    }
    std::u16string read(const char16_t *item) { return read(u"o", u"t", item); }
    int32_t write(const char16_t *item, std::u16string_view value) {
        return Tabra_WriteSysTableString(hdbc(), u"o", u"t", item, std::u16string(value).c_str());
    }
    // Rows of the table with raw ODBC (0 when there is no table).
    long rows(std::u16string_view where = u"1=1") {
        return std::stol(toUtf8(*queryValue(*connection_, u"SELECT COUNT(*) FROM OstrelSysTable WHERE " +
                                                              std::u16string(where))));
    }
};

TEST_P(SystemTableTest, ValuesComeBackAsWrittenAndAnOverwriteReplaces) {
    ScriptedRun run;
    std::u16string controls;
    for (char16_t c = 1; c < 32; ++c) controls += c;
    const std::vector<std::u16string> values = {
        u"plain",
        u"It's \"quoted\"\tC:\\x\r\nnext line",
        u"<" + controls + u">", // only characters up to 32 would be a blank value, which removes
        u"a\\tb \\x41 \\\\ \\Q \\ end\\", // backslash escapes of every kind as the value's own text
        u"''' '' '",
        u"\u00C4pfel \u00D8re \u00DF \u20AC \u4E2D\u6587 \U0001F600\U00010348",
        u"  leading and trailing  ",
        u"%s %d %%",
    };
    for (size_t i = 0; i < values.size(); ++i) {
        const std::u16string item = u"item" + toUtf16(std::to_string(i));
        ASSERT_EQ(write(item.c_str(), values[i]), 1) << toUtf8(values[i]);
        EXPECT_EQ(read(item.c_str()), values[i]) << toUtf8(values[i]);
    }
    EXPECT_EQ(rows(), static_cast<long>(values.size()));
    // Writing again replaces the row rather than adding one.
    ASSERT_EQ(write(u"item0", u"second"), 1);
    ASSERT_EQ(write(u"item0", u"third"), 1);
    EXPECT_EQ(read(u"item0"), u"third");
    EXPECT_EQ(rows(u"ItemName='item0'"), 1);
    expectNothingShown(run);
}

TEST_P(SystemTableTest, TheStatementBoundsWhatCanBeWritten) {
    ScriptedRun run;
    // Apostrophes are doubled in the statement: the value's literal is one longer than the value.
    std::u16string fits(kLongestLiteral - 1, u'v');
    fits.back() = u'\'';
    ASSERT_EQ(write(u"i", fits), 1);
    EXPECT_EQ(read(u"i"), fits);
    // One more character does not fit: nothing runs, and the earlier value is gone.
    EXPECT_EQ(write(u"i", fits + u"v"), 2);
    EXPECT_EQ(read(u"i"), u"<default>");
    // An escape takes two characters of the statement.
    const std::u16string tabs = u"x" + std::u16string(kLongestLiteral / 2, u'\t');
    EXPECT_EQ(write(u"i", tabs), 2);
    EXPECT_EQ(rows(), 0);
    // A read delivers capacity - 1 characters of the stored form, then decodes them.
    ASSERT_EQ(write(u"i", u"abcdefgh"), 1);
    EXPECT_EQ(read(u"o", u"t", u"i", u"", 5), u"abcd");
    ASSERT_EQ(write(u"i", u"ab\tcd"), 1); // stored as ab\tcd
    EXPECT_EQ(read(u"o", u"t", u"i", u"", 4), u"ab\\"); // a backslash that starts no escape stays
    EXPECT_EQ(read(u"o", u"t", u"i", u"", 5), u"ab\t");
    EXPECT_EQ(read(u"o", u"t", u"i", u"xyz", 2), u"x"); // too small for the row set: the default, cut
    expectNothingShown(run);
}

TEST_P(SystemTableTest, DefaultsAndBlankKeys) {
    ScriptedRun run;
    EXPECT_EQ(read(u"never written"), u"<default>");
    ASSERT_EQ(write(u"i", u"value"), 1);
    ASSERT_EQ(write(u"i", u""), 1); // an empty value removes the item
    EXPECT_EQ(read(u"i"), u"<default>");
    EXPECT_EQ(rows(), 0);
    ASSERT_EQ(write(u"i", u"value"), 1);
    EXPECT_EQ(write(u" ", u"other"), 1); // a blank item name writes nothing
    EXPECT_EQ(Tabra_WriteSysTableString(hdbc(), u"", u"t", u"i", u"other"), 1);
    EXPECT_EQ(Tabra_WriteSysTableString(hdbc(), u"o", nullptr, u"i", u"other"), 1);
    EXPECT_EQ(rows(), 1);
    // A blank object or type gives the default without asking the table.
    EXPECT_EQ(read(u" ", u"t", u"i"), u"<default>");
    EXPECT_EQ(read(u"o", u"", u"i"), u"<default>");
    EXPECT_EQ(read(u"o", u"t", u"i", nullptr), u"value");
    // No output, or no room: 0.
    EXPECT_EQ(Tabra_ReadSysTableString(hdbc(), u"o", u"t", u"i", u"d", nullptr, 10), 0);
    char16_t one[2] = {u'#', u'#'};
    EXPECT_EQ(Tabra_ReadSysTableString(hdbc(), u"o", u"t", u"i", u"d", one, 0), 0);
    EXPECT_EQ(one[0], u'#');
    expectNothingShown(run);
}

TEST_P(SystemTableTest, DeleteRemovesOneItemOrAllOfAnObjectAndType) {
    ScriptedRun run;
    for (auto [object, type, item] : {std::tuple{u"o", u"t", u"a"}, {u"o", u"t", u"b"}, {u"o", u"u", u"a"},
                                      {u"p", u"t", u"a"}})
        ASSERT_EQ(Tabra_WriteSysTableString(hdbc(), object, type, item, u"v"), 1);
    EXPECT_EQ(Tabra_DeleteSysTableItem(hdbc(), u"o", u"t", u"a"), 1);
    EXPECT_EQ(rows(u"Object='o' AND Type='t'"), 1);
    EXPECT_EQ(Tabra_DeleteSysTableItem(hdbc(), u"o", u"t", u" "), 1);
    EXPECT_EQ(rows(u"Object='o' AND Type='t'"), 0);
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(Tabra_DeleteSysTableItem(hdbc(), u"o", nullptr, nullptr), 1); // blank type: nothing
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(Tabra_DeleteSysTableItem(hdbc(), u"p", u"t", nullptr), 1);
    EXPECT_EQ(rows(), 1);
    expectNothingShown(run);
}

TEST_P(SystemTableTest, WithoutTheTableDeleteAnswersZeroAndCreatesNothing) {
    ScriptedRun run;
    EXPECT_EQ(Tabra_DeleteSysTableItem(hdbc(), u"o", u"t", u"i"), 0);
    EXPECT_EQ(Tabra_DeleteSysTableItem(hdbc(), u"o", u"t", nullptr), 0);
    EXPECT_EQ(read(u" ", u"t", u"i"), u"<default>"); // a blank key does not create it either
    EXPECT_EQ(OdbcEh_DoesTableExist(0, hdbc(), TABRA_TABLE_TYPE_ALL, nullptr, u"OstrelSysTable", 0), 0);
    expectNothingShown(run);
}

// MariaDB reads backslashes in literals as escapes unless the session says otherwise;
// the store's values survive both ways.
TEST_P(SystemTableTest, BackslashesSurviveEitherLiteralRuleOfTheMySqlFamily) {
    if (backend() != Backend::MariaDB) GTEST_SKIP() << "a MariaDB session setting";
    ScriptedRun run;
    const std::u16string value = u"C:\\new\\x41\t\\";
    ASSERT_EQ(write(u"escapes", value), 1);
    EXPECT_EQ(read(u"escapes"), value);
    executeSql(*connection_, u"SET SESSION sql_mode = CONCAT(@@SESSION.sql_mode, ',NO_BACKSLASH_ESCAPES')");
    ASSERT_EQ(write(u"plain", value), 1);
    EXPECT_EQ(read(u"plain"), value);
    EXPECT_EQ(read(u"escapes"), value);
    expectNothingShown(run);
}

// The table is made on first use, with a value column each database knows.
TEST_P(SystemTableTest, TheTableIsMadeOnFirstUse) {
    SQLHDBC handle = hdbc();
    ScriptedRun run;
    RecordingHook hook;
    char16_t output[100];
    EXPECT_EQ(Tabra_WriteSysTableString(handle, u"o", u"t", u"i", u"v"), 1);
    EXPECT_EQ(Tabra_ReadSysTableString(handle, u"o", u"t", u"i", u"fallback", output, 100), 1);
    EXPECT_EQ(std::u16string(output), u"v");
    const std::u16string valueType = backend() == Backend::PostgreSQL ? u"TEXT" : u"BLOB";
    const std::vector<std::u16string> expected = {
        u"CREATE TABLE OstrelSysTable (Object VARCHAR (100) NOT NULL, Type VARCHAR (50) NOT NULL, ItemName VARCHAR "
        u"(50) NOT NULL, ItemValue " + valueType + u")",
        u"DELETE FROM OstrelSysTable WHERE Object='o' AND Type='t' AND ItemName='i'",
        u"INSERT INTO OstrelSysTable (Object,Type,ItemName,ItemValue) VALUES ('o','t','i','v')",
        u"SELECT ItemValue FROM OstrelSysTable WHERE Object='o' AND Type='t' AND ItemName='i'",
    };
    auto seen = hook.statements;
    std::erase(seen, u"SELECT '\\\\'"); // MariaDB's literal rule
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(Tabra_DeleteSysTableItem(handle, u"o", u"t", u"i"), 1);
    EXPECT_EQ(Tabra_ReadSysTableString(handle, u"o", u"t", u"i", u"fallback", output, 100), 1);
    EXPECT_EQ(std::u16string(output), u"fallback");
    expectNothingShown(run);
}

TABRA_INSTANTIATE_BACKEND_TEST(SystemTableTest);

} // namespace
} // namespace tabra::test
