// The system table's value column by database type, on the test driver's data sources
// that name other products (SQLite underneath takes any type name).
#include "catalog/catalog_test_support.h"
#include "tabra_systable.h"

namespace tabra::test {
namespace {

class SystemTableTestDriverTest : public TestDriverTest {};

TEST_F(SystemTableTestDriverTest, TheValueColumnTypeFollowsTheDatabaseType) {
    struct Case {
        const char16_t *dataSource;
        std::u16string valueType;
    };
    const Case cases[] = {{dsn::Access, u"MEMO"},
                          {dsn::SqlServer, u"VARCHAR (5000)"},
                          {dsn::Oracle, u"BLOB"},
                          {dsn::MySql, u"BLOB"}};
    for (const auto &c : cases) {
        auto connection = connect(c.dataSource);
        {
            auto reset = connect(dsn::TestDriver);
            executeSql(reset, u"DROP TABLE IF EXISTS OstrelSysTable");
        }
        ScriptedRun run;
        RecordingHook hook;
        ASSERT_EQ(Tabra_CreateSystemTable(connection.handle()), 1) << toUtf8(c.dataSource);
        ASSERT_EQ(hook.statements.size(), 1u);
        EXPECT_EQ(hook.statements[0], u"CREATE TABLE OstrelSysTable (Object VARCHAR (100) NOT NULL, Type VARCHAR (50) "
                                      u"NOT NULL, ItemName VARCHAR (50) NOT NULL, ItemValue " +
                                          c.valueType + u")");
        // The store works on it, and a second creation fails where everyone sees it.
        char16_t output[50];
        EXPECT_EQ(Tabra_WriteSysTableString(connection.handle(), u"o", u"t", u"i", u"It's\t\u00E4"), 1);
        EXPECT_EQ(Tabra_ReadSysTableString(connection.handle(), u"o", u"t", u"i", u"", output, 50), 1);
        EXPECT_EQ(std::u16string(output), u"It's\t\u00E4");
        expectNothingShown(run);
        run.queue(click(core::ids::kErrorDialog.id, IDOK));
        EXPECT_EQ(Tabra_CreateSystemTable(connection.handle()), 2);
        EXPECT_EQ(errorDialogsShown(run), 1u);
    }
}

TEST_F(SystemTableTestDriverTest, AStatementRefusedByTheHookLeavesTheDefault) {
    auto connection = connect(dsn::TestDriver);
    ScriptedRun run;
    RecordingHook refusing(false);
    char16_t output[20];
    EXPECT_EQ(Tabra_ReadSysTableString(connection.handle(), u"o", u"t", u"i", u"kept", output, 20), 2);
    EXPECT_EQ(std::u16string(output), u"kept");
    EXPECT_EQ(Tabra_WriteSysTableString(connection.handle(), u"o", u"t", u"i", u"v"), 2);
    expectNothingShown(run);
}

} // namespace
} // namespace tabra::test
