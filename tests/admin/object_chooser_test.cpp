// The database object chooser played by the scripted driver: every tool of the
// tables and views pages reached on SQLite, PostgreSQL and MariaDB with the effects
// checked in the database, and the dialog's edge cases on the test driver.
#include "admin/driver_info/resource_ids.h"
#include "admin/object_chooser/resource_ids.h"
#include "admin/resource_ids.h"
#include "admin/sql_performer/resource_ids.h"
#include "admin/table_admin/resource_ids.h"
#include "admin/table_name/resource_ids.h"
#include "catalog/catalog_test_support.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "query/view_editor/view_editor.h"
#include "support/data_source_record.h"
#include "support/private_data_sources.h"
#include "support/scoped_environment.h"
#include "support/script_lines.h"
#include "support/scripted_run.h"
#include "tabra.h"
#include "query/resource_ids.h"
#include "wizards/add_records/resource_ids.h"
#include "wizards/create_table/resource_ids.h"
#include "wizards/export/resource_ids.h"
#include "wizards/import/resource_ids.h"
#include "wizards/records/resource_ids.h"

namespace tabra::test {
namespace {

namespace ids = admin::object_chooser::ids;
using ids::kChooserDialog;
using ids::kTablesPage;
using ids::kViewsPage;

// What the list of the page shown holds, and how many pages there are.
struct ChooserView {
    std::vector<std::u16string> entries;
    int32_t pages = 0;
    bool okEnabled = false;
};

void lookAtChooser(HWND dialog, void *views) {
    HWND tab = GetDlgItem(dialog, kChooserDialog.pages);
    HWND page = Ostrel_GetTabControlPage(tab, -1);
    HWND list = GetDlgItem(page, kTablesPage.list) != nullptr ? GetDlgItem(page, kTablesPage.list)
                                                              : GetDlgItem(page, kViewsPage.list);
    ChooserView view{{}, static_cast<int32_t>(SendMessageW(tab, TCM_GETITEMCOUNT, 0, 0)),
                     IsWindowEnabled(GetDlgItem(dialog, IDOK)) != 0};
    for (int32_t i = 0; i < Ostrel_GetBoxCount(list); ++i) {
        char16_t name[100] = {};
        Ostrel_GetBoxEntry(list, i, name, 100);
        view.entries.emplace_back(name);
    }
    static_cast<std::vector<ChooserView> *>(views)->push_back(std::move(view));
}

// A user who presses OK although it is disabled.
void forceOk(HWND dialog, void *) { SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0); }

DbObjectDialogRequest chooserRequest(const DataSource &source, int32_t pages, const char16_t *object = u"") {
    DbObjectDialogRequest request{};
    request.DataSource = dataSourceRecord(source.name, source.user, source.password);
    std::u16string_view(object).copy(request.DbObject.DbObjectName, 49);
    request.PageMask = pages;
    request.DialogOptions = TABRA_CHOOSER_OPTION_OK | TABRA_CHOOSER_OPTION_DATA_SOURCE;
    request.TablesButtons = request.ViewsButtons = -1;
    return request;
}

void setViewsOnly(int32_t value) {
    Ostrel_WriteLongToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, u"LastUsed", u"VrimViewsOnly", value);
}

class ChooserRun {
public:
    int32_t choose(DbObjectDialogRequest &request) {
        int32_t result = Tabra_DbObjectDialog(&request);
        expectPlayed(run);
        return result;
    }
    void look() { run.queueCallback(kChooserDialog.id, lookAtChooser, &seen); }
    bool noticed(int32_t stringId) const { return !run.records(TABRA_RECORD_NOTICE, stringId).empty(); }

    ScopedRegistryRoot registry;
    ScriptedRun run;
    std::vector<ChooserView> seen;
};

class ObjectChooserTest : public BackendTest, protected ChooserRun {
protected:
    OdbcConnection prepared() {
        auto connection = connect();
        executeAll(connection, {u"CREATE TABLE orders (id INTEGER, item VARCHAR(20))",
                                u"INSERT INTO orders VALUES (1, 'tea')", u"INSERT INTO orders VALUES (2, 'milk')",
                                u"INSERT INTO orders VALUES (3, 'rice')"});
        return connection;
    }
    bool exists(const OdbcConnection &connection, int32_t type, const char16_t *name) {
        return Tabra_DoesTableExist(connection.handle(), type, name) == 1;
    }
};

// Each tool opens on the object under the cursor and is left again; the chooser stays.
TEST_P(ObjectChooserTest, PageAndDialogButtonsReachTheirTools) {
    auto connection = prepared();
    executeAll(connection, {u"CREATE VIEW orders_v AS SELECT item FROM orders"});
    setViewsOnly(0);
    const int32_t viewEditor = query::ids::kViewEditorDialog.id;
    const struct {
        int32_t page, button;
        std::vector<std::string> leave; // the tool's lines that close it again
    } tools[] = {
        {kTablesPage.id, kTablesPage.create, {click(wizards::create_table::ids::kModePage.id, IDCANCEL)}},
        {kTablesPage.id, kTablesPage.administer, {click(admin::table_admin::ids::kTableAdminDialog.id, IDOK)}},
        {kTablesPage.id, kTablesPage.import, {click(wizards::importing::ids::kSourceKindPage.id, IDCANCEL)}},
        {kTablesPage.id, kTablesPage.exportRows, {click(wizards::exporting::ids::kTablePage.id, IDCANCEL)}},
        {kTablesPage.id, kTablesPage.addRecords, {click(wizards::add_records::ids::kDestinationTablePage.id, IDCANCEL)}},
        {kTablesPage.id, kTablesPage.deleteRecords, {click(wizards::records::ids::kDeleteTablePage.id, IDCANCEL)}},
        {kTablesPage.id, kTablesPage.updateRecords, {click(wizards::records::ids::kUpdateTablePage.id, IDCANCEL)}},
        {kTablesPage.id, kChooserDialog.driverInformation, {click(admin::driver_info::ids::kDriverInfoDialog.id, IDOK)}},
        {kTablesPage.id, kChooserDialog.sqlPerformer,
         {click(admin::sql_performer::ids::kConnectionPerformerDialog.id, IDCANCEL)}},
        {kViewsPage.id, kViewsPage.create, {click(viewEditor, IDCANCEL)}},
        {kViewsPage.id, kViewsPage.edit, {answer(ids::kMessage.noStoredStatement, "ok"), click(viewEditor, IDCANCEL)}},
        {kViewsPage.id, kViewsPage.exportRows, {click(wizards::exporting::ids::kTablePage.id, IDCANCEL)}},
        {kViewsPage.id, kViewsPage.deleteRecords, {click(wizards::records::ids::kDeleteTablePage.id, IDCANCEL)}},
        {kViewsPage.id, kViewsPage.updateRecords, {click(wizards::records::ids::kUpdateTablePage.id, IDCANCEL)}},
    };
    int32_t shownPage = kTablesPage.id;
    for (const auto &tool : tools) {
        if (tool.page != shownPage) run.queue(onDialog(kChooserDialog.id, "select", kChooserDialog.pages, "#1"));
        shownPage = tool.page;
        run.queue(click(tool.page, tool.button));
        for (const std::string &line : tool.leave) run.queue(line);
    }
    run.queue(click(kViewsPage.id, kViewsPage.open));
    auto request = chooserRequest(dataSource(), TABRA_CHOOSER_PAGE_TABLES | TABRA_CHOOSER_PAGE_VIEWS, u"orders");
    EXPECT_EQ(choose(request), 1);
    EXPECT_EQ(request.Action, TABRA_CHOOSER_ACTION_OPEN);
    EXPECT_EQ(std::u16string(request.DbObject.DbObjectName), u"orders_v");
    EXPECT_EQ(request.DbObject.DbObjectType, TABRA_OBJECT_VIEW);
    EXPECT_EQ(std::u16string(request.DataSource.DataSourceName), dataSource().name) << "copied back";
}

TEST_P(ObjectChooserTest, CopiesATableWithItsRowsAndDeletesIt) {
    auto connection = prepared();
    run.queue(click(kTablesPage.id, kTablesPage.copy));
    run.queue(onDialog(admin::table_name::ids::kTableNameDialog.id, "set", admin::table_name::ids::kTableNameDialog.name,
                       "\"orders_copy\""));
    run.queue(click(admin::table_name::ids::kTableNameDialog.id, IDOK));
    look();
    run.queue(click(kTablesPage.id, kTablesPage.remove));
    run.queue(answer(catalog::ids::kMessage.confirmDropTable, "yes"));
    look();
    run.queue(click(kChooserDialog.id, IDCANCEL));
    auto request = chooserRequest(dataSource(), TABRA_CHOOSER_PAGE_TABLES, u"orders");
    EXPECT_EQ(choose(request), 2);
    EXPECT_EQ(request.Action, TABRA_CHOOSER_ACTION_CANCELLED);

    ASSERT_EQ(seen.size(), 2u);
    EXPECT_NE(std::ranges::find(seen[0].entries, u"orders_copy"), seen[0].entries.end());
    EXPECT_EQ(std::ranges::find(seen[1].entries, u"orders_copy"), seen[1].entries.end());
    EXPECT_TRUE(noticed(ids::kString.tableDeleted));
    EXPECT_FALSE(exists(connection, TABRA_TABLE_TYPE_TABLE, u"orders_copy")) << "the copy was deleted";
    EXPECT_EQ(queryValue(connection, u"SELECT Count(*) FROM orders"), u"3");
}

TEST_P(ObjectChooserTest, ListsEditorViewsAloneUntilAskedAndCopiesAndDeletesViews) {
    auto connection = prepared();
    executeAll(connection, {u"CREATE VIEW plain_v AS SELECT item FROM orders"});
    query::view_editor::ViewEditState made;
    made.connection = connection.handle();
    made.name = u"made_v";
    made.statement = u"SELECT id FROM orders";
    ASSERT_EQ(query::view_editor::createView(made), 1);

    look();
    run.queue(onDialog(kViewsPage.id, "uncheck", kViewsPage.editorViewsOnly));
    look();
    run.queue(onDialog(kViewsPage.id, "select", kViewsPage.list, "\"made_v\""));
    run.queue(click(kViewsPage.id, kViewsPage.copy));
    run.queue(onDialog(kViewsPage.id, "select", kViewsPage.list, "\"plain_v\""));
    run.queue(click(kViewsPage.id, kViewsPage.remove));
    run.queue(answer(admin::ids::kMessage.confirmDropView, "yes"));
    look();
    run.queue(click(kChooserDialog.id, IDOK));
    auto request = chooserRequest(dataSource(), TABRA_CHOOSER_PAGE_VIEWS);
    EXPECT_EQ(choose(request), 1);

    ASSERT_EQ(seen.size(), 3u);
    EXPECT_EQ(seen[0].entries, std::vector<std::u16string>{u"made_v"}) << "a view made by plain SQL is not listed";
    EXPECT_EQ(seen[1].entries.size(), 2u);
    EXPECT_EQ(seen[2].entries, (std::vector<std::u16string>{u"made_v", u"made_v_Copy"}));
    EXPECT_TRUE(noticed(ids::kString.viewCreated) && noticed(ids::kString.viewDeleted));
    EXPECT_TRUE(exists(connection, TABRA_TABLE_TYPE_VIEW, u"made_v_Copy"));
    EXPECT_FALSE(exists(connection, TABRA_TABLE_TYPE_VIEW, u"plain_v"));
    EXPECT_EQ(request.DbObject.DbObjectType, TABRA_OBJECT_VIEW);
    EXPECT_EQ(Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, u"LastUsed", u"VrimViewsOnly", 1),
              0);
}

TABRA_INSTANTIATE_BACKEND_TEST(ObjectChooserTest);

class ObjectChooserEdgeTest : public TestDriverTest, protected ChooserRun {
protected:
    static DataSource source(std::u16string_view name) { return {std::u16string(name), u"", u""}; }
};

TEST_F(ObjectChooserEdgeTest, PageMaskTwoShowsTheViewsAloneAndOkHandsBackAView) {
    executeAll(connect(dsn::TestDriver), {u"CREATE VIEW plain_v AS SELECT 1 AS one"});
    setViewsOnly(0);
    look();
    run.queue(click(kViewsPage.id, IDOK));
    auto request = chooserRequest(source(dsn::TestDriver), TABRA_CHOOSER_PAGE_VIEWS);
    EXPECT_EQ(choose(request), 1);
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen[0].pages, 1);
    EXPECT_EQ(request.Action, TABRA_CHOOSER_ACTION_OK);
    EXPECT_EQ(request.DbObject.DbObjectType, TABRA_OBJECT_VIEW);
    EXPECT_EQ(std::u16string(request.DbObject.DbObjectName), u"plain_v");
}

TEST_F(ObjectChooserEdgeTest, OkWithAnEmptyListDoesNothing) {
    look();
    run.queueCallback(kChooserDialog.id, forceOk, nullptr);
    run.queue(click(kChooserDialog.id, IDCANCEL));
    auto request = chooserRequest(source(dsn::TestDriver), TABRA_CHOOSER_PAGE_TABLES);
    request.Action = TABRA_CHOOSER_ACTION_OPEN;
    EXPECT_EQ(choose(request), 2);
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_FALSE(seen[0].okEnabled);
    EXPECT_EQ(request.Action, TABRA_CHOOSER_ACTION_CANCELLED);
}

// With no button enabled by the mask, the buttons that follow the selection are
// enabled anyway while a table is selected; the others stay as the mask left them.
void readTablesButtons(HWND dialog, void *enabled) {
    HWND page = Ostrel_GetTabControlPage(GetDlgItem(dialog, kChooserDialog.pages), 0);
    for (int32_t button : {kTablesPage.open, kTablesPage.administer, kTablesPage.remove, kTablesPage.copy,
                           kTablesPage.exportRows, kTablesPage.create, kTablesPage.import, kTablesPage.addRecords,
                           kTablesPage.deleteRecords, kTablesPage.updateRecords})
        static_cast<std::vector<bool> *>(enabled)->push_back(IsWindowEnabled(GetDlgItem(page, button)) != 0);
}

TEST_F(ObjectChooserEdgeTest, TheSelectionEnablesItsButtonsWhateverTheMask) {
    executeAll(connect(dsn::TestDriver), {u"CREATE TABLE orders (id INTEGER)"});
    std::vector<bool> enabled;
    run.queueCallback(kChooserDialog.id, readTablesButtons, &enabled);
    run.queue(click(kChooserDialog.id, IDCANCEL));
    auto request = chooserRequest(source(dsn::TestDriver), TABRA_CHOOSER_PAGE_TABLES);
    request.TablesButtons = 0;
    choose(request);
    EXPECT_EQ(enabled, (std::vector<bool>{true, true, true, true, true, false, false, false, false, false}));
}

TEST_F(ObjectChooserEdgeTest, AFailedConnectionLeavesTheDialogUsableWithEmptyLists) {
    run.queue(click(core::ids::kErrorDialog.id, IDOK));
    look();
    run.queue(click(kChooserDialog.id, IDCANCEL));
    auto request = chooserRequest(source(u"TabraNoSuchSource"), TABRA_CHOOSER_PAGE_TABLES | TABRA_CHOOSER_PAGE_VIEWS);
    EXPECT_EQ(choose(request), 2);
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen[0].pages, 2);
    EXPECT_TRUE(seen[0].entries.empty());
}

TEST_F(ObjectChooserEdgeTest, ADataSourceWithoutSchemasClearsAndStoresTheSchema) {
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, u"LastUsedDbaseSchema", dsn::SQLite,
                                 u"old");
    run.queue(click(kChooserDialog.id, kChooserDialog.changeDataSource));
    run.queue(onDialog(core::ids::kDataSourceDialog.id, "select", core::ids::kDataSourceDialog.dataSources,
                       quoted(dsn::SQLite)));
    run.queue(click(core::ids::kDataSourceDialog.id, IDOK));
    run.queue(click(kChooserDialog.id, IDCANCEL));
    auto request = chooserRequest(source(dsn::Schemas), TABRA_CHOOSER_PAGE_TABLES);
    std::u16string_view(u"main").copy(request.Schema, 99);
    EXPECT_EQ(choose(request), 2);
    EXPECT_EQ(std::u16string(request.DataSource.DataSourceName), dsn::SQLite);
    EXPECT_EQ(std::u16string(request.Schema), u"");
    char16_t stored[100] = {};
    Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, u"LastUsedDbaseSchema", dsn::SQLite,
                                  u"missing", stored, 100, 99);
    EXPECT_EQ(std::u16string(stored), u"");
}

TEST_F(ObjectChooserEdgeTest, AFailingViewDropStillRefreshesWithItsNotice) {
    auto failing = addDataSource({{"FailPattern", "DROP VIEW"}});
    executeAll(connect(dsn::TestDriver), {u"CREATE VIEW plain_v AS SELECT 1 AS one"});
    setViewsOnly(0);
    run.queue(click(kViewsPage.id, kViewsPage.remove));
    run.queue(answer(admin::ids::kMessage.confirmDropView, "yes"));
    run.queue(click(core::ids::kErrorDialog.id, IDOK));
    look();
    run.queue(click(kChooserDialog.id, IDCANCEL));
    auto request = chooserRequest(source(failing), TABRA_CHOOSER_PAGE_VIEWS);
    choose(request);
    EXPECT_TRUE(noticed(ids::kString.viewDeleted));
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen[0].entries, std::vector<std::u16string>{u"plain_v"}) << "the view is still there and listed";
}

// Forms and reports: the library lists none, so the host's own entry is added to the
// list; its buttons end the dialog with their action, a double click does nothing.
struct HostPageCase {
    int32_t pageMask, page, list;
    const char *action; // "click" or "doubleclick"
    int32_t control;    // the button clicked, or the list double-clicked
    int32_t result, requestAction;
};
constexpr HostPageCase kHostPageCases[] = {
    {TABRA_CHOOSER_PAGE_FORMS, 10003, 1010, "click", 1041, 1, TABRA_CHOOSER_ACTION_OPEN},
    {TABRA_CHOOSER_PAGE_FORMS, 10003, 1010, "click", 1039, 1, TABRA_CHOOSER_ACTION_SECOND_CHOICE},
    {TABRA_CHOOSER_PAGE_REPORTS, 10017, 1046, "click", 1035, 1, TABRA_CHOOSER_ACTION_SECOND_CHOICE},
    {TABRA_CHOOSER_PAGE_FORMS, 10003, 1010, "doubleclick", 1010, 2, TABRA_CHOOSER_ACTION_CANCELLED},
    {TABRA_CHOOSER_PAGE_REPORTS, 10017, 1046, "doubleclick", 1046, 2, TABRA_CHOOSER_ACTION_CANCELLED},
};

struct HostList {
    int32_t list;
    int32_t entriesBefore = -1;
};

void addHostEntry(HWND dialog, void *context) {
    auto *host = static_cast<HostList *>(context);
    HWND box = GetDlgItem(Ostrel_GetTabControlPage(GetDlgItem(dialog, kChooserDialog.pages), 0), host->list);
    host->entriesBefore = Ostrel_GetBoxCount(box);
    Ostrel_AddBoxEntry(box, u"Monthly", 0, -1, 0);
}

TEST_F(ObjectChooserEdgeTest, FormsAndReportsButtonsEndWithTheirActionAndDoubleClicksDoNothing) {
    for (const HostPageCase &c : kHostPageCases) {
        SCOPED_TRACE(std::string(c.action) + " " + std::to_string(c.control) + " on " + std::to_string(c.page));
        HostList host{c.list};
        run.queueCallback(kChooserDialog.id, addHostEntry, &host);
        run.queue(onDialog(c.page, "select", c.list, "\"Monthly\""));
        run.queue(onDialog(c.page, c.action, c.control, c.control == c.list ? "\"Monthly\"" : ""));
        if (c.result == 2) run.queue(click(kChooserDialog.id, IDCANCEL));
        auto request = chooserRequest(source(dsn::TestDriver), c.pageMask);
        request.Action = -1;
        EXPECT_EQ(choose(request), c.result);
        EXPECT_EQ(host.entriesBefore, 0);
        EXPECT_EQ(request.Action, c.requestAction);
        if (c.result == 1) {
            EXPECT_EQ(request.DbObject.DbObjectType, c.pageMask);
            EXPECT_EQ(std::u16string(request.DbObject.DbObjectName), u"Monthly");
        }
    }
}

// With the list empty the buttons are disabled, and a forced one finds no selection.
void forceSecondChoice(HWND dialog, void *) {
    HWND page = Ostrel_GetTabControlPage(GetDlgItem(dialog, kChooserDialog.pages), 0);
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(page, 1039)));
    SendMessageW(page, WM_COMMAND, MAKEWPARAM(1039, BN_CLICKED), 0);
}

TEST_F(ObjectChooserEdgeTest, AFormsButtonWithoutAnEntryLeavesTheDialogOpen) {
    run.queueCallback(kChooserDialog.id, forceSecondChoice, nullptr);
    run.queue(click(kChooserDialog.id, IDCANCEL));
    auto request = chooserRequest(source(dsn::TestDriver), TABRA_CHOOSER_PAGE_FORMS);
    EXPECT_EQ(choose(request), 2);
    EXPECT_EQ(request.Action, TABRA_CHOOSER_ACTION_CANCELLED);
}

} // namespace
} // namespace tabra::test
