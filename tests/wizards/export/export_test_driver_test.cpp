// The export file on the test driver: a file that cannot be opened shows the message
// of its error number and leaves nothing behind (an existing file stays as it was); a
// value that cannot be read shows the driver's error and ends the export with 1 and
// the rows written up to that column.
#include "export_test_support.h"

#include <sys/resource.h>
#include <sys/stat.h>

namespace tabra::test {
namespace {

using exporting::ExportWizardState;

class ExportTestDriverTest : public TestDriverTest {
protected:
    void SetUp() override {
        TestDriverTest::SetUp();
        executeAll(connect(dsn::TestDriver), {u"CREATE TABLE items (id INTEGER PRIMARY KEY, name VARCHAR(20))",
                                              u"INSERT INTO items VALUES (1, 'fine')",
                                              u"INSERT INTO items VALUES (2, 'broken')",
                                              u"INSERT INTO items VALUES (3, 'never read')"});
    }
    ExportWizardState itemsState(SQLHDBC connection, const std::string &file) const {
        ExportWizardState state;
        state.connection = connection;
        std::u16string(u"items").copy(state.object.DbObjectName, 5);
        EXPECT_TRUE(state.fields.load(connection, u"items"));
        state.recordCount = 3;
        state.fileName = scratch_.file(file);
        return state;
    }
    ScratchFolder scratch_;
};

// The export fails with message `message` naming the file, and writes nothing.
bool refusedWith(const ExportWizardState &state, int32_t message) {
    ScriptedRun run;
    run.queue(answer(message, "ok"));
    bool refused = exporting::writeExportFile(state) == 2;
    auto shown = run.records(TABRA_RECORD_MESSAGE, message);
    return refused && !run.failed() && shown.size() == 1 &&
           shown[0].text.find(state.fileName) != std::u16string::npos;
}

TEST_F(ExportTestDriverTest, AFileThatCannotBeOpenedShowsItsMessageAndLeavesNothing) {
    auto connection = connect(dsn::TestDriver);
    EXPECT_TRUE(refusedWith(itemsState(connection.handle(), "missing/out.txt"), exportIds::kMessage.fileNotOpened));

    // Permission denied: an existing file the user may not write stays as it was.
    ExportWizardState locked = itemsState(connection.handle(), "locked.txt");
    std::ofstream(toUtf8(locked.fileName)) << "old";
    ::chmod(toUtf8(locked.fileName).c_str(), 0444);
    ::chmod(scratch_.path().c_str(), 0777);
    if (::geteuid() == 0)
        EXPECT_TRUE(inChild([&] { return refusedWith(locked, exportIds::kMessage.fileAccessDenied); }, true));
    else
        EXPECT_TRUE(refusedWith(locked, exportIds::kMessage.fileAccessDenied));
    EXPECT_EQ(fileBytes(locked.fileName), "old");

    // Too many open files: no descriptor is left below the process's limit.
    ExportWizardState crowded = itemsState(connection.handle(), "crowded.txt");
    EXPECT_TRUE(inChild([&] {
        int lowestFree = ::dup(0);
        ::close(lowestFree);
        rlimit limit{static_cast<rlim_t>(lowestFree), static_cast<rlim_t>(lowestFree)};
        return ::setrlimit(RLIMIT_NOFILE, &limit) == 0 && refusedWith(crowded, exportIds::kMessage.tooManyFiles);
    }));
    EXPECT_EQ(scratch_.entries(), std::vector<std::string>{"locked.txt"});
    expectNoOpenStatements("file errors");
}

TEST_F(ExportTestDriverTest, AValueThatCannotBeReadEndsTheExportWithTheRowsWritten) {
    auto connection = connect(addDataSource({{"FailValue", "broken"}}));
    ExportWizardState state = itemsState(connection.handle(), "items.txt");
    ScriptedRun run;
    run.queue(click(core::ids::kErrorDialog.id, IDOK));
    EXPECT_EQ(exporting::writeExportFile(state), 1);
    EXPECT_EQ(errorDialogsShown(run), 1u);
    EXPECT_EQ(run.closedControlText(core::ids::kErrorDialog.id, core::ids::kErrorDialog.statement),
              u"SELECT id, name FROM items") << "the statement's error, with its text";
    EXPECT_FALSE(run.failed()) << run.report();
    EXPECT_EQ(fileBytes(state.fileName), utf16le(u"id\tname\r\n1\tfine\r\n2\t"));
    expectNoOpenStatements("read error");
}

// The SELECT: the written fields in list order, names quoted where the data source
// needs it, the condition in parentheses; the initial headings turn "." and blanks
// into "-".
TEST_F(ExportTestDriverTest, TheSelectNamesTheWrittenColumnsAndTheCondition) {
    auto connection = connect(dsn::TestDriver);
    executeAll(connection, {u"CREATE TABLE prices (id INTEGER, \"unit price\" DOUBLE, \"v.a.t\" DOUBLE)",
                            u"INSERT INTO prices VALUES (1, 2.5, 0.19)", u"INSERT INTO prices VALUES (2, 4, 0.07)"});
    ExportWizardState state = itemsState(connection.handle(), "prices.txt");
    std::u16string(u"prices").copy(state.object.DbObjectName, 7);
    ASSERT_TRUE(state.fields.load(connection.handle(), u"prices"));
    state.fields.at(2)->selected = false;
    state.condition = u"id\tGT\t1\t4\n";
    state.recordCount = 1;
    RecordingHook hook;
    ScriptedRun run;
    EXPECT_EQ(exporting::writeExportFile(state), 1);
    EXPECT_EQ(hook.statements, std::vector<std::u16string>{u"SELECT id, \"unit price\" FROM prices WHERE ((id > 1))"});
    EXPECT_EQ(fileBytes(state.fileName), utf16le(u"id\tunit-price\r\n2\t4,0\r\n"));
    EXPECT_EQ(state.fields.at(2)->heading, u"v-a-t");
}

} // namespace
} // namespace tabra::test
