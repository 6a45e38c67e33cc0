// The statement hook and the diagnostic switch.
#include "ostrel_hook.h"
#include "ostrel_registry.h"
#include "support/scoped_environment.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tabra::test;

namespace {

// What the test callback saw, and what it answers.
struct Recorder {
    std::vector<std::u16string> statements;
    int32_t answer = 1;
};

int32_t record(const char16_t *statement, void *context) {
    auto *recorder = static_cast<Recorder *>(context);
    recorder->statements.emplace_back(statement);
    return recorder->answer;
}

class StatementHook : public ::testing::Test {
protected:
    ~StatementHook() override {
        Ostrel_SetStatementHook(nullptr, nullptr);
        Ostrel_SetDumpState(-1);
    }
    ScopedRegistryRoot registry_;
    ScopedEnvironmentVariable noEnvironmentState_{"TABRA_DUMP_STATE", nullptr};
    Recorder recorder_;
};

TEST_F(StatementHook, WithoutACallbackEveryStatementRuns) {
    EXPECT_EQ(Ostrel_DumpSqlStatement(u"SELECT 1", 0), 1);
    EXPECT_EQ(Ostrel_DumpSqlStatement(nullptr, 0), 2);
}

TEST_F(StatementHook, TheCallbackSeesEachStatementAndDecides) {
    Ostrel_SetStatementHook(record, &recorder_);
    EXPECT_EQ(Ostrel_DumpSqlStatement(u"DELETE FROM \"Orders\"", 500), 1);
    recorder_.answer = 0;
    EXPECT_EQ(Ostrel_DumpSqlStatement(u"DROP TABLE \"Orders\"", 0), 2);
    recorder_.answer = 7; // anything but 1 cancels
    EXPECT_EQ(Ostrel_DumpSqlStatement(u"DROP TABLE \"Items\"", 0), 2);
    EXPECT_EQ(recorder_.statements,
              (std::vector<std::u16string>{u"DELETE FROM \"Orders\"", u"DROP TABLE \"Orders\"", u"DROP TABLE \"Items\""}));

    Ostrel_SetStatementHook(nullptr, &recorder_);
    EXPECT_EQ(Ostrel_DumpSqlStatement(u"SELECT 1", 0), 1);
    EXPECT_EQ(recorder_.statements.size(), 3u);
}

TEST_F(StatementHook, TheCapacityBoundsAnUnterminatedBuffer) {
    Ostrel_SetStatementHook(record, &recorder_);
    const char16_t unterminated[] = {u'S', u'E', u'L', u'E', u'C', u'T', u'#', u'#'};
    EXPECT_EQ(Ostrel_DumpSqlStatement(unterminated, 6), 1);
    ASSERT_EQ(recorder_.statements.size(), 1u);
    EXPECT_EQ(recorder_.statements[0], u"SELECT");
}

TEST_F(StatementHook, DumpStateComesFromOverrideThenEnvironmentThenRegistry) {
    EXPECT_EQ(Ostrel_GetDumpState(0), 0);

    ASSERT_EQ(Ostrel_WriteLongToHKCU(u"Software\\Ostrel Software\\Tabra", u"DumpState", OSTREL_DUMP_SHOW_INFO), 1);
    EXPECT_EQ(Ostrel_GetDumpState(0), OSTREL_DUMP_SHOW_INFO);
    {
        ScopedEnvironmentVariable state("TABRA_DUMP_STATE", "3");
        EXPECT_EQ(Ostrel_GetDumpState(0), 3);
        Ostrel_SetDumpState(0);
        EXPECT_EQ(Ostrel_GetDumpState(0), 0);
        Ostrel_SetDumpState(-1);
        EXPECT_EQ(Ostrel_GetDumpState(0), 3);
    }
    for (const char *unusable : {"", "two", "3x", "-1", "99999999999"}) {
        ScopedEnvironmentVariable state("TABRA_DUMP_STATE", unusable);
        EXPECT_EQ(Ostrel_GetDumpState(0), OSTREL_DUMP_SHOW_INFO) << unusable;
    }
}

TEST_F(StatementHook, ShowingStatementsStillAsksTheCallbackFirst) {
    Ostrel_SetDumpState(OSTREL_DUMP_SHOW_STATEMENTS);
    Ostrel_SetStatementHook(record, &recorder_);
    recorder_.answer = 0;
    EXPECT_EQ(Ostrel_DumpSqlStatement(u"UPDATE t SET a = 1", 0), 2);
    EXPECT_EQ(recorder_.statements.size(), 1u);
}

} // namespace
