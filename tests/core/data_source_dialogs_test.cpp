// Data source records in the registry, the data source and schema lists, and the
// three dialogs built on them, driven through the scripted driver.
#include "core/resource_ids.h"
#include "support/backend_test.h"
#include "support/data_source_record.h"
#include "support/scoped_environment.h"
#include "support/script_lines.h"
#include "support/scripted_run.h"
#include "tabra_connection.h"
#include "tabra_window.h"
#include "ostrel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace tabra::test {
namespace {

using core::ids::kDataSourceAndSchemaDialog;
using core::ids::kDataSourceDialog;
using core::ids::kErrorDialog;
using core::ids::kSchemaDialog;

constexpr char16_t kRoot[] = u"Software\\Ostrel Software\\Tabra";

// A record's data source name, user and password.
using Fields = std::array<std::u16string, 3>;
Fields fieldsOf(const DataSourceInfo &record) { return {record.DataSourceName, record.UserId, record.Password}; }

TEST(DataSourceRegistry, RecordsRoundTripWithDefaultsForMissingValues) {
    ScopedRegistryRoot registry;
    DataSourceInfo empty{};
    std::fill(std::begin(empty.DataSourceName), std::end(empty.DataSourceName), u'x');
    Tabra_ReadDataSourceFromRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Export", nullptr, &empty);
    EXPECT_EQ(fieldsOf(empty), (Fields{u"", u"", u""}));

    DataSourceInfo defaults = dataSourceRecord(u"Fallback", u"guest", u"");
    DataSourceInfo read{};
    Tabra_ReadDataSourceFromRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Export", &defaults, &read);
    EXPECT_EQ(fieldsOf(read), (Fields{u"Fallback", u"guest", u""}));

    DataSourceInfo written = dataSourceRecord(u"Lager Müller", u"jürgen", u"geheim \"1\"");
    Tabra_WriteDataSourceToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Export", &written);
    Tabra_WriteDataSourceToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Export", nullptr); // nothing happens
    Tabra_ReadDataSourceFromRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Export", &defaults, &read);
    EXPECT_EQ(fieldsOf(read), (Fields{u"Lager Müller", u"jürgen", u"geheim \"1\""}));
    Tabra_ReadDataSourceFromRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Export", nullptr, nullptr); // no crash

    // A field filled to its width is stored without running into the next field.
    DataSourceInfo full{};
    std::fill(std::begin(full.DataSourceName), std::end(full.DataSourceName), u'n');
    std::fill(std::begin(full.UserId), std::end(full.UserId), u'u');
    Tabra_WriteDataSourceToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Full", &full);
    Tabra_ReadDataSourceFromRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Full", nullptr, &read);
    EXPECT_EQ(fieldsOf(read), (Fields{std::u16string(99, u'n'), std::u16string(49, u'u'), u""}));
}

TEST(DataSourceRegistry, CurrentUserFirstThenLocalMachine) {
    ScopedRegistryRoot registry;
    DataSourceInfo machine = dataSourceRecord(u"MachineSource", u"admin");
    Tabra_WriteDataSourceToRegistry(HKEY_LOCAL_MACHINE, kRoot, 0, u"Chooser", &machine);
    DataSourceInfo read{};
    Tabra_ReadDataSourceFromHKCUorHKLM(kRoot, u"Chooser", nullptr, &read);
    EXPECT_EQ(std::u16string(read.DataSourceName), u"MachineSource");
    DataSourceInfo user = dataSourceRecord(u"UserSource", u"me");
    Tabra_WriteDataSourceToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Chooser", &user);
    Tabra_ReadDataSourceFromHKCUorHKLM(kRoot, u"Chooser", nullptr, &read);
    EXPECT_EQ(fieldsOf(read), (Fields{u"UserSource", u"me", u""}));
}

TEST(DataSourceRegistry, DatabaseObjects) {
    ScopedRegistryRoot registry;
    DbObjectInfo object{};
    object.DbObjectType = 77;
    Tabra_ReadDbObjectFromRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Export", nullptr, &object);
    EXPECT_EQ(std::u16string(object.DbObjectName), u"");
    EXPECT_EQ(object.DbObjectType, 0);
    DbObjectInfo view{};
    std::u16string(u"Order Details").copy(view.DbObjectName, 49);
    view.DbObjectType = 2;
    Tabra_WriteDbObjectToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Export", &view);
    Tabra_ReadDbObjectFromRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Export", nullptr, &object);
    EXPECT_EQ(std::u16string(object.DbObjectName), u"Order Details");
    EXPECT_EQ(object.DbObjectType, 2);
}

class DataSourceDialogTestDriverTest : public TestDriverTest {
protected:
    ScopedRegistryRoot registry_;
};

// What a dialog showed while it waited for the user.
struct Snapshot {
    std::u16string selected, user, password;
    int count = 0;
    int schemaControlsEnabled = -1; // of the schema field and the schema button
};

void takeSnapshot(HWND dialog, void *context) {
    auto *seen = static_cast<Snapshot *>(context);
    char16_t text[200] = {};
    HWND list = GetDlgItem(dialog, kDataSourceDialog.dataSources);
    Ostrel_GetBoxEntry(list, -1, text, 200);
    seen->selected = text;
    seen->count = Ostrel_GetBoxCount(list);
    GetDlgItemTextW(dialog, kDataSourceDialog.user, text, 200);
    seen->user = text;
    GetDlgItemTextW(dialog, kDataSourceDialog.password, text, 200);
    seen->password = text;
}

TEST_F(DataSourceDialogTestDriverTest, ShowsTheRecordAndAcceptsAWorkingLogin) {
    DataSourceInfo record = dataSourceRecord(dsn::TestDriver, u"alice", u"secret");
    record.Reserved[0] = 0x5A;
    Snapshot seen;
    ScriptedRun run;
    run.queueCallback(kDataSourceDialog.id, takeSnapshot, &seen);
    run.queue(onDialog(kDataSourceDialog.id, "set", kDataSourceDialog.user, "\"bob\""));
    run.queue(click(kDataSourceDialog.id, IDOK));
    EXPECT_EQ(Tabra_DataSourceDialog(&record), 1);
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(seen.selected, dsn::TestDriver);
    EXPECT_EQ(seen.user, u"alice");
    EXPECT_EQ(seen.password, u"secret");
    EXPECT_GE(seen.count, 10); // every private data source is listed
    EXPECT_EQ(fieldsOf(record), (Fields{dsn::TestDriver, u"bob", u"secret"}));
    EXPECT_EQ(record.Reserved[0], 0x5A);
    EXPECT_EQ(testDriverConnectionCounts().open(), 0); // the trial login was closed again

    // The user is remembered for the data source, the password never.
    char16_t remembered[50] = {};
    Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, kRoot, 0, u"DataSourceDialog", dsn::TestDriver, u"", remembered,
                                  50, 49);
    EXPECT_EQ(std::u16string(remembered), u"bob");
    EXPECT_EQ(readWholeFile(registry_.currentUserFile()).find("secret"), std::string::npos);
}

TEST_F(DataSourceDialogTestDriverTest, AVanishedDataSourceSelectsTheFirstWithItsRememberedUser) {
    // Learn which source is listed first, and remember a user for it.
    Snapshot first;
    {
        DataSourceInfo probe = dataSourceRecord(u"NoLongerThere");
        ScriptedRun run;
        run.queueCallback(kDataSourceDialog.id, takeSnapshot, &first);
        run.queue(click(kDataSourceDialog.id, IDCANCEL));
        EXPECT_EQ(Tabra_DataSourceDialog(&probe), 2);
    }
    ASSERT_FALSE(first.selected.empty());
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"DataSourceDialog", first.selected.c_str(), u"carol");

    DataSourceInfo record = dataSourceRecord(u"NoLongerThere", u"dave", u"pw");
    Snapshot seen;
    ScriptedRun run;
    run.queueCallback(kDataSourceDialog.id, takeSnapshot, &seen);
    run.queue(click(kDataSourceDialog.id, IDCANCEL));
    EXPECT_EQ(Tabra_DataSourceDialog(&record), 2);
    EXPECT_EQ(seen.selected, first.selected);
    EXPECT_EQ(seen.user, u"carol");
    EXPECT_EQ(seen.password, u"");
    EXPECT_EQ(std::u16string(record.UserId), u"dave"); // cancelled: the record is untouched
}

TEST_F(DataSourceDialogTestDriverTest, AFailedLoginKeepsTheDialogOpenWithWhatWasTyped) {
    std::u16string broken = addDataSource({{"Database", "/nonexistent/folder/db.sqlite"}});
    DataSourceInfo record = dataSourceRecord(broken);
    ScriptedRun run;
    const int32_t dialog = kDataSourceDialog.id, user = kDataSourceDialog.user, password = kDataSourceDialog.password;
    for (const std::string &line :
         {onDialog(dialog, "set", user, "\"erin\""), onDialog(dialog, "set", password, "\"typed\""), click(dialog, IDOK),
          click(kErrorDialog.id, IDOK), onDialog(dialog, "expect", user, "\"erin\""),
          onDialog(dialog, "expect", password, "\"typed\""),
          onDialog(dialog, "select", kDataSourceDialog.dataSources, quoted(dsn::TestDriver)), click(dialog, IDOK)})
        run.queue(line);
    EXPECT_EQ(Tabra_DataSourceDialog(&record), 1);
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(run.pending(), 0);
    EXPECT_EQ(std::u16string(record.DataSourceName), dsn::TestDriver);
    EXPECT_EQ(testDriverConnectionCounts().open(), 0);
}

TEST_F(DataSourceDialogTestDriverTest, NoSelectionIsRefusedAndADoubleClickAccepts) {
    DataSourceInfo record = dataSourceRecord(dsn::TestDriver);
    ScriptedRun run;
    run.queueCallback(kDataSourceDialog.id,
                      [](HWND dialog, void *) { Ostrel_SetBoxIndex(GetDlgItem(dialog, kDataSourceDialog.dataSources), -1); },
                      nullptr);
    run.queue(click(kDataSourceDialog.id, IDOK), answer(core::ids::kMessage.emptyDataSourceName, "ok"),
              onDialog(kDataSourceDialog.id, "doubleclick", kDataSourceDialog.dataSources, quoted(dsn::Access)));
    EXPECT_EQ(Tabra_DataSourceDialog(&record), 1);
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(std::u16string(record.DataSourceName), dsn::Access);
    EXPECT_EQ(Tabra_DataSourceDialog(nullptr), 2);
}

TEST_F(DataSourceDialogTestDriverTest, CombinedDialogEnablesSchemasOnlyWhereTheDatabaseHasThem) {
    DataSourceInfo record = dataSourceRecord(dsn::TestDriver);
    char16_t schema[100] = u"ignored";
    // What the dialog showed at the start and after the data source changed.
    Snapshot atStart, afterChange;
    auto snapshot = [](HWND dialog, void *context) {
        auto *s = static_cast<Snapshot *>(context);
        s->schemaControlsEnabled = IsWindowEnabled(GetDlgItem(dialog, kDataSourceAndSchemaDialog.schema)) +
                                   IsWindowEnabled(GetDlgItem(dialog, kDataSourceAndSchemaDialog.chooseSchema));
        char16_t text[100] = {};
        GetDlgItemTextW(dialog, kDataSourceAndSchemaDialog.dataSource, text, 100);
        s->selected = text;
    };
    ScriptedRun run;
    const int32_t combined = kDataSourceAndSchemaDialog.id;
    run.queueCallback(combined, snapshot, &atStart);
    run.queue(click(combined, kDataSourceAndSchemaDialog.chooseDataSource));
    run.queue(onDialog(kDataSourceDialog.id, "select", kDataSourceDialog.dataSources, quoted(dsn::Schemas)));
    run.queue(click(kDataSourceDialog.id, IDOK));
    run.queueCallback(combined, snapshot, &afterChange);
    run.queue(onDialog(combined, "set", kDataSourceAndSchemaDialog.schema, "\"main\""), click(combined, IDOK));
    EXPECT_EQ(Tabra_DataSourceAndSchemaDialog(nullptr, &record, schema, 100, nullptr), 1);
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(atStart.selected, dsn::TestDriver);
    EXPECT_EQ(atStart.schemaControlsEnabled, 0);
    EXPECT_EQ(afterChange.selected, dsn::Schemas);
    EXPECT_EQ(afterChange.schemaControlsEnabled, 2);
    EXPECT_EQ(std::u16string(record.DataSourceName), dsn::Schemas);
    EXPECT_EQ(std::u16string(schema), u"main");
    EXPECT_EQ(testDriverConnectionCounts().open(), 0);

    run.queue(click(combined, IDCANCEL));
    EXPECT_EQ(Tabra_DataSourceAndSchemaDialog(nullptr, &record, schema, 100, nullptr), 2);
    EXPECT_EQ(std::u16string(schema), u"main") << "cancelled: the schema is untouched";
}

class SchemaListTest : public BackendTest {};

TEST_P(SchemaListTest, ListsTheSchemasThatOwnTables) {
    auto connection = connect();
    if (backend() == Backend::PostgreSQL) {
        executeAll(connection, {u"CREATE SCHEMA lager", u"CREATE TABLE lager.artikel (id INTEGER)",
                                u"CREATE TABLE public.kunden (id INTEGER)", u"CREATE SCHEMA leer"});
    } else {
        executeSql(connection, u"CREATE TABLE kunden (id INTEGER)");
    }
    std::vector<std::u16string> listed;
    struct Context {
        SQLHDBC connection;
        std::vector<std::u16string> *listed;
        int32_t result = 0;
    } context{connection.handle(), &listed};
    ScriptedRun run;
    run.queueCallback(
        kSchemaDialog.id,
        [](HWND dialog, void *raw) {
            auto *c = static_cast<Context *>(raw);
            HWND list = GetDlgItem(dialog, kSchemaDialog.schemas);
            c->result = Tabra_FillSchemataBox(c->connection, list);
            char16_t text[100];
            for (int32_t i = 0; i < Ostrel_GetBoxCount(list); ++i) {
                Ostrel_GetBoxEntry(list, i, text, 100);
                c->listed->push_back(text);
            }
        },
        &context);
    bool postgres = backend() == Backend::PostgreSQL;
    if (postgres) run.queue(onDialog(kSchemaDialog.id, "select", kSchemaDialog.schemas, "\"lager\""));
    run.queue(click(kSchemaDialog.id, IDOK));
    char16_t schema[100] = u"public";
    EXPECT_EQ(Tabra_SelectDbaseSchema(nullptr, connection.handle(), schema), 1);
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(context.result, 1);
    if (postgres) {
        std::sort(listed.begin(), listed.end());
        EXPECT_EQ(listed, (std::vector<std::u16string>{u"lager", u"public"}));
        EXPECT_EQ(std::u16string(schema), u"lager");
    } else {
        EXPECT_TRUE(listed.empty());
        EXPECT_EQ(std::u16string(schema), u"public");
    }
    EXPECT_EQ(Tabra_FillSchemataBox(nullptr, nullptr), 2);
    EXPECT_EQ(Tabra_SelectDbaseSchema(nullptr, connection.handle(), nullptr), 2);
}

TABRA_INSTANTIATE_BACKEND_TEST(SchemaListTest);

} // namespace
} // namespace tabra::test
