// Row-set transfers on the test driver: file errors, tolerated states, the statement
// hook, bad arguments, progress with abort, boxes and list views, and statement
// handle accounting on every path.
#include "row_set_test_support.h"

#include <sys/stat.h>

#include <cstdlib>

namespace tabra::test {
namespace {

class RowSetTestDriverTest : public TestDriverTest {
protected:
    void SetUp() override {
        TestDriverTest::SetUp();
        connection_.emplace(connect(dsn::TestDriver));
        executeAll(*connection_, {u"CREATE TABLE items (id INTEGER, name VARCHAR(20), code VARCHAR(10))",
                           u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 250) "
                           u"INSERT INTO items SELECT i, 'item ' || i, CASE WHEN i % 2 = 0 THEN 'c' || i END FROM n"});
    }
    // Exports to name on connection; the result.
    static int32_t exportTo(SQLHDBC connection, const std::u16string &name, const char16_t *statement,
                            int32_t *count = nullptr, uint32_t flags = 0, const char16_t *tolerated = nullptr) {
        return OdbcEh_SelectRowSetToFile(0, connection, statement, nullptr, nullptr, name.c_str(), count, tolerated,
                                         flags);
    }
    SQLHDBC hdbc() const { return connection_->handle(); }
    static constexpr const char16_t *kFirstTwo = u"SELECT id, name FROM items WHERE id <= 2 ORDER BY id";
    std::optional<OdbcConnection> connection_;
    ScratchFolder scratch_;
};

// The file error shown for a target: its message (by string id) names the file.
void expectFileError(const ScriptedRun &run, int32_t stringId, const std::u16string &name) {
    auto shown = run.records(TABRA_RECORD_MESSAGE);
    ASSERT_EQ(shown.size(), 1u) << run.report();
    EXPECT_EQ(shown[0].id, stringId);
    EXPECT_EQ(shown[0].caption, u"File Error");
    EXPECT_NE(shown[0].text.find(name), std::u16string::npos) << toUtf8(shown[0].text);
}

TEST_F(RowSetTestDriverTest, FileErrorsAreShownAndLeaveNothingBehind) {
    std::ofstream(scratch_.path() / "plain.txt") << "plain";
    std::filesystem::create_directory(scratch_.path() / "folder");
    struct Case {
        std::string target;
        int32_t message;
    };
    const Case cases[] = {
        {"missing/out.txt", OSTREL_FILE_ERROR_STRINGS + OSTREL_FILE_ERROR_NOT_FOUND}, // ENOENT
        {"plain.txt/out.txt", OSTREL_FILE_ERROR_STRINGS + OSTREL_FILE_ERROR_OTHER},   // ENOTDIR
        {"folder", OSTREL_FILE_ERROR_STRINGS + OSTREL_FILE_ERROR_OTHER},              // EISDIR
    };
    for (const auto &c : cases) {
        ScriptedRun run;
        run.queue(answer(c.message, "ok"));
        auto name = scratch_.file(c.target);
        int32_t count = 5;
        EXPECT_EQ(exportTo(hdbc(), name, kFirstTwo, &count), 2) << c.target;
        EXPECT_EQ(count, 0);
        expectFileError(run, c.message, name);
    }
    auto left = scratch_.entries();
    std::sort(left.begin(), left.end());
    EXPECT_EQ(left, (std::vector<std::string>{"folder", "plain.txt"}));
    EXPECT_EQ(fileBytes(scratch_.file("plain.txt")), "plain");
    expectNoOpenStatements("file errors");
}

// An existing file the user may not write. Root may write any file, so for root the
// check runs in a child process that gave up root; a file marked immutable stops root
// itself (a different error: not permitted, code 6).
TEST_F(RowSetTestDriverTest, AFileThatMayNotBeWrittenStaysAsItWas) {
    auto name = scratch_.file("locked.txt");
    std::ofstream(toUtf8(name)) << "old";
    ::chmod(toUtf8(name).c_str(), 0444);
    auto check = [&]() {
        ScriptedRun run;
        constexpr int32_t denied = OSTREL_FILE_ERROR_STRINGS + OSTREL_FILE_ERROR_ACCESS;
        run.queue(answer(denied, "ok"));
        bool refused = exportTo(hdbc(), name, kFirstTwo) == 2;
        bool shown = run.records(TABRA_RECORD_MESSAGE, denied).size() == 1 && !run.failed();
        return refused && shown && fileBytes(name) == "old" && scratch_.entries().size() == 1;
    };
    if (::geteuid() != 0) {
        EXPECT_TRUE(check());
    } else {
        ::chmod(scratch_.path().c_str(), 0777);
        EXPECT_TRUE(inChild(check, true)) << "the unprivileged export did not fail as it should";
        std::string immutable = "chattr +i '" + toUtf8(name) + "' 2>/dev/null";
        if (std::system(immutable.c_str()) == 0) {
            ScriptedRun run;
            constexpr int32_t other = OSTREL_FILE_ERROR_STRINGS + OSTREL_FILE_ERROR_OTHER;
            run.queue(answer(other, "ok"));
            EXPECT_EQ(exportTo(hdbc(), name, kFirstTwo), 2);
            expectFileError(run, other, name);
            std::system(("chattr -i '" + toUtf8(name) + "'").c_str());
        }
    }
    EXPECT_EQ(fileBytes(name), "old");
    EXPECT_EQ(scratch_.entries(), std::vector<std::string>{"locked.txt"});
    expectNoOpenStatements("locked file");
}

TEST_F(RowSetTestDriverTest, AFailedTransferKeepsTheOldFileAndASuccessfulOneReplacesIt) {
    auto name = scratch_.file("out.txt");
    std::ofstream(toUtf8(name)) << "old";
    ::chmod(toUtf8(name).c_str(), 0640);
    {
        ScriptedRun run;
        run.queue(click(core::ids::kErrorDialog.id, IDOK));
        EXPECT_EQ(exportTo(hdbc(), name, u"SELECT id FROM no_such_table"), 2);
        EXPECT_EQ(errorDialogsShown(run), 1u);
        EXPECT_FALSE(run.failed()) << run.report();
    }
    EXPECT_EQ(fileBytes(name), "old");
    EXPECT_EQ(scratch_.entries(), std::vector<std::string>{"out.txt"});
    ScriptedRun run;
    EXPECT_EQ(exportTo(hdbc(), name, kFirstTwo), 1);
    EXPECT_EQ(fileBytes(name), utf16le(u"1\titem 1\n2\titem 2"));
    struct stat info {};
    ::stat(toUtf8(name).c_str(), &info);
    EXPECT_EQ(info.st_mode & 0777, 0640u) << "the replacement keeps the permissions";
    EXPECT_EQ(scratch_.entries(), std::vector<std::string>{"out.txt"});
    expectNothingShown(run);
    expectNoOpenStatements("replace");
}

TEST_F(RowSetTestDriverTest, ToleratedStatesAreSilentAndOthersAreShown) {
    auto dataSource = addDataSource({{"FailPattern", "FROM items"}, {"FailState", "42S02"}});
    auto connection = connect(dataSource);
    SQLHDBC failing = connection.handle();
    auto name = scratch_.file("out.txt");
    TestListBox box;
    char16_t buffer[100];
    const char16_t *statement = u"SELECT id FROM items";
    // The driver manager of an ODBC 2 environment reports 42S02 in its ODBC 2 form.
    for (const char16_t *tolerated : {u"S0002", u"01000,S0002", u"*", static_cast<const char16_t *>(nullptr)}) {
        bool silent = tolerated != nullptr;
        ScriptedRun run;
        if (!silent)
            for (int i = 0; i < 5; ++i) run.queue(click(core::ids::kErrorDialog.id, IDOK));
        EXPECT_EQ(OdbcEh_PerformSqlStatement(0, failing, u"DELETE FROM items", tolerated), silent ? 1 : 2);
        EXPECT_EQ(exportTo(failing, name, statement, nullptr, 0, tolerated), 2);
        EXPECT_EQ(OdbcEh_SelectRowSetToBuffer(0, failing, statement, nullptr, nullptr, buffer, 100, tolerated, 0), 2);
        EXPECT_EQ(OdbcEh_SelectRowSetToBox(0, failing, statement, box.handle(), tolerated, 0), 2);
        EXPECT_EQ(OdbcEh_SelectRowSetToListView(0, failing, statement, box.handle(), tolerated, 0), 2);
        EXPECT_EQ(errorDialogsShown(run), silent ? 0u : 5u);
        EXPECT_FALSE(run.failed()) << run.report();
    }
    EXPECT_TRUE(scratch_.entries().empty());
    expectNoOpenStatements("tolerated");
}

TEST_F(RowSetTestDriverTest, RefusedStatementsAndBadArgumentsGiveTwoQuietly) {
    auto name = scratch_.file("out.txt");
    TestListBox box;
    char16_t buffer[100];
    ScriptedRun run;
    {
        RecordingHook refuse(false);
        EXPECT_EQ(OdbcEh_PerformSqlStatement(0, hdbc(), u"DELETE FROM items", nullptr), 2);
        EXPECT_EQ(exportTo(hdbc(), name, kFirstTwo), 2);
        EXPECT_EQ(OdbcEh_SelectRowSetToBuffer(0, hdbc(), kFirstTwo, nullptr, nullptr, buffer, 100, nullptr, 0), 2);
        EXPECT_EQ(OdbcEh_SelectRowSetToBox(0, hdbc(), kFirstTwo, box.handle(), nullptr, 0), 2);
        EXPECT_EQ(OdbcEh_SelectRowSetToListView(0, hdbc(), kFirstTwo, box.handle(), nullptr, 0), 2);
        EXPECT_EQ(refuse.statements.size(), 5u);
    }
    EXPECT_EQ(queryValue(*connection_, u"SELECT count(*) FROM items"), u"250") << "the refused DELETE did not run";
    for (const char16_t *blank : {static_cast<const char16_t *>(nullptr), u"", u" \t\n"}) {
        EXPECT_EQ(OdbcEh_PerformSqlStatement(0, hdbc(), blank, nullptr), 2);
        EXPECT_EQ(exportTo(hdbc(), name, blank), 2);
        EXPECT_EQ(OdbcEh_SelectRowSetToBox(0, hdbc(), blank, box.handle(), nullptr, 0), 2);
        EXPECT_EQ(OdbcEh_SelectRowSetToListView(0, hdbc(), blank, box.handle(), nullptr, 0), 2);
        EXPECT_EQ(OdbcEh_SelectRowSetToFile(0, hdbc(), kFirstTwo, nullptr, nullptr, blank, nullptr, nullptr, 0), 2);
    }
    EXPECT_EQ(OdbcEh_PerformSqlStatement(0, nullptr, u"DELETE FROM items", nullptr), 2);
    EXPECT_EQ(exportTo(nullptr, name, kFirstTwo), 2);
    EXPECT_EQ(OdbcEh_SelectRowSetToBox(0, hdbc(), kFirstTwo, nullptr, nullptr, 0), 2);
    EXPECT_EQ(OdbcEh_SelectRowSetToListView(0, hdbc(), kFirstTwo, nullptr, nullptr, 0), 2);
    EXPECT_EQ(OdbcEh_SelectRowSetToBuffer(0, hdbc(), kFirstTwo, nullptr, nullptr, nullptr, 100, nullptr, 0), 2);
    buffer[0] = u'#';
    EXPECT_EQ(OdbcEh_SelectRowSetToBuffer(0, hdbc(), kFirstTwo, nullptr, nullptr, buffer, 2, nullptr, 0), 2);
    expectNothingShown(run);
    EXPECT_TRUE(scratch_.entries().empty());
    expectNoOpenStatements("refused and bad arguments");
}

TEST_F(RowSetTestDriverTest, ProgressCountsRecordsAndAnAbortKeepsThoseWritten) {
    auto name = scratch_.file("out.txt");
    const char16_t *all = u"SELECT id FROM items ORDER BY id";
    {
        ScriptedRun run;
        run.queue("progress: abort at 150");
        int32_t count = 250;
        EXPECT_EQ(exportTo(hdbc(), name, all, &count, TABRA_ROWSET_HEADER | TABRA_ROWSET_PROGRESS), 1);
        // Header and rows 1 to 200: the abort is seen at the step after 200 records.
        EXPECT_EQ(count, 201);
        std::u16string expected = u"id";
        for (int i = 1; i <= 200; ++i) expected += u"\n" + toUtf16(std::to_string(i));
        EXPECT_EQ(fileBytes(name), utf16le(expected));
        TabraScriptRecord progress{};
        ASSERT_TRUE(TabraScript_GetRecord(TabraScript_FindRecord(TABRA_RECORD_PROGRESS, -1, 0), &progress));
        EXPECT_EQ(progress.maximum, 250);
        EXPECT_EQ(progress.value, 201);
        EXPECT_EQ(progress.code, 1u) << "aborted";
        EXPECT_EQ(std::u16string(progress.text), u"201 of 250 records written");
        EXPECT_EQ(run.pending(), 0);
    }
    {
        ScriptedRun run;
        int32_t count = 250;
        EXPECT_EQ(exportTo(hdbc(), name, all, &count, TABRA_ROWSET_PROGRESS), 1);
        EXPECT_EQ(count, 250);
        auto shown = run.records(TABRA_RECORD_PROGRESS);
        ASSERT_EQ(shown.size(), 1u);
        EXPECT_EQ(shown[0].text, u"201 of 250 records written");
        count = 100; // not above 100: no indicator
        EXPECT_EQ(exportTo(hdbc(), name, all, &count, TABRA_ROWSET_PROGRESS), 1);
        EXPECT_EQ(count, 250);
        EXPECT_EQ(run.records(TABRA_RECORD_PROGRESS).size(), 1u);
        EXPECT_FALSE(run.failed()) << run.report();
    }
    expectNoOpenStatements("progress");
}

TEST_F(RowSetTestDriverTest, BoxesGetTextsAndItemData) {
    ScriptedRun run;
    TestListBox box;
    Ostrel_AddBoxEntry(box.handle(), u"stale", 9, -1, 0);
    const char16_t *firstThree = u"SELECT name, id, code FROM items WHERE id <= 3 ORDER BY id";
    EXPECT_EQ(OdbcEh_SelectRowSetToBox(0, hdbc(), u"SELECT name FROM items WHERE id <= 3 ORDER BY id", box.handle(),
                                       nullptr, 0),
              1);
    EXPECT_EQ(box.entries(), (std::vector<std::u16string>{u"item 1", u"item 2", u"item 3"}));
    EXPECT_EQ(Ostrel_GetItemData(box.handle(), 1), 0) << "one column: no item data";
    EXPECT_EQ(OdbcEh_SelectRowSetToBox(0, hdbc(), firstThree, box.handle(), nullptr, 0), 1);
    EXPECT_EQ(box.entries().size(), 3u);
    EXPECT_EQ(Ostrel_GetItemData(box.handle(), 2), 3) << "column 2 as a number";
    EXPECT_EQ(OdbcEh_SelectRowSetToBox(0, hdbc(), u"SELECT name, code FROM items WHERE id <= 2 ORDER BY id",
                                       box.handle(), nullptr, static_cast<int8_t>(0x80)),
              1);
    EXPECT_EQ(Ostrel_GetItemData(box.handle(), 0), 0) << "NULL in column 2: no copy";
    auto *copy = reinterpret_cast<char16_t *>(Ostrel_GetItemData(box.handle(), 1));
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(std::u16string(copy), u"c2");
    std::free(copy);
    auto cursors = run.records(TABRA_RECORD_CURSOR);
    ASSERT_GE(cursors.size(), 2u);
    EXPECT_EQ(cursors[0].id, IDC_WAIT);
    EXPECT_NE(cursors.back().id, IDC_WAIT) << "the cursor is restored";
    expectNothingShown(run);
    expectNoOpenStatements("boxes");
}

TEST_F(RowSetTestDriverTest, ListViewsGetSubItemsAndKeys) {
    ScriptedRun run;
    TestModule module;
    module.add(DialogBuilder(801, u"Rows").listView(1));
    HWND dialog = createModeless(module, 801, plainProcedure());
    HWND view = GetDlgItem(dialog, 1);
    auto cell = [&](int32_t item, int32_t subItem) { return listViewText(view, item, subItem); };
    auto param = [&](int32_t item) {
        LVITEMW query{};
        query.mask = LVIF_PARAM;
        query.iItem = item;
        SendMessageW(view, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&query));
        return query.lParam;
    };
    const char16_t *rows = u"SELECT id, name, code FROM items WHERE id <= 2 ORDER BY id";
    EXPECT_EQ(OdbcEh_SelectRowSetToListView(0, hdbc(), rows, view, nullptr, 0), 1);
    EXPECT_EQ(SendMessageW(view, LVM_GETITEMCOUNT, 0, 0), 2);
    EXPECT_EQ(cell(0, 0) + u"|" + cell(0, 1) + u"|" + cell(0, 2), u"1|item 1|") << "NULL as empty text";
    EXPECT_EQ(cell(1, 2), u"c2");
    EXPECT_EQ(param(1), 0);
    EXPECT_EQ(OdbcEh_SelectRowSetToListView(0, hdbc(), rows, view, nullptr, TABRA_ROWSET_KEY_NUMBER), 1);
    EXPECT_EQ(SendMessageW(view, LVM_GETITEMCOUNT, 0, 0), 2) << "emptied first";
    EXPECT_EQ(cell(1, 0) + u"|" + cell(1, 1), u"item 2|c2");
    EXPECT_EQ(param(1), 2);
    EXPECT_EQ(OdbcEh_SelectRowSetToListView(0, hdbc(), u"SELECT code, name FROM items WHERE id <= 2 ORDER BY id", view,
                                            nullptr, TABRA_ROWSET_KEY_TEXT),
              1);
    EXPECT_EQ(param(0), 0) << "NULL key: no copy";
    auto *copy = reinterpret_cast<char16_t *>(param(1));
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(std::u16string(copy), u"c2");
    std::free(copy);
    EXPECT_EQ(cell(1, 0), u"item 2");
    DestroyWindow(dialog);
    expectNothingShown(run);
    expectNoOpenStatements("list views");
}

} // namespace
} // namespace tabra::test
