// With the diagnostic switch asking to show statements, each statement is shown
// before it runs; OK lets it run and Cancel stops it. A host's hook is asked first.
#include "ostrel.h"
#include "support/scripted_run.h"

#include <gtest/gtest.h>

namespace tabra::test {
namespace {

struct DumpState {
    explicit DumpState(int32_t state) { Ostrel_SetDumpState(state); }
    ~DumpState() { Ostrel_SetDumpState(-1); }
};

TEST(StatementConfirmation, TheUserDecidesWhenTheSwitchShowsStatements) {
    DumpState show(OSTREL_DUMP_SHOW_STATEMENTS);
    ScriptedRun run;
    run.queue("message: answer ok", "message: answer cancel");
    EXPECT_EQ(Ostrel_DumpSqlStatement(u"DELETE FROM \"Order Details\"", 0), 1);
    EXPECT_NE(Ostrel_DumpSqlStatement(u"DROP TABLE Customers", 0), 1);
    EXPECT_FALSE(run.failed());
    auto shown = run.records(TABRA_RECORD_MESSAGE);
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0].text, u"DELETE FROM \"Order Details\"");
    EXPECT_EQ(shown[1].text, u"DROP TABLE Customers");
    EXPECT_EQ(shown[0].style & MB_TYPEMASK, static_cast<uint32_t>(MB_OKCANCEL));
}

TEST(StatementConfirmation, NothingIsShownWhenTheSwitchIsOff) {
    DumpState quiet(0);
    ScriptedRun run;
    EXPECT_EQ(Ostrel_DumpSqlStatement(u"SELECT 1", 0), 1);
    EXPECT_FALSE(run.failed());
    EXPECT_TRUE(run.records(TABRA_RECORD_MESSAGE).empty());
}

TEST(StatementConfirmation, AHostHookThatCancelsIsAskedBeforeTheUser) {
    DumpState show(OSTREL_DUMP_SHOW_STATEMENTS);
    Ostrel_SetStatementHook([](const char16_t *, void *) -> int32_t { return 0; }, nullptr);
    ScriptedRun run; // the user is never asked
    EXPECT_NE(Ostrel_DumpSqlStatement(u"DROP TABLE Customers", 0), 1);
    Ostrel_SetStatementHook(nullptr, nullptr);
    EXPECT_FALSE(run.failed());
    EXPECT_TRUE(run.records(TABRA_RECORD_MESSAGE).empty());
}

} // namespace
} // namespace tabra::test
