// The update and delete records wizards played through the scripted driver on every
// backend, one scenario per behaviour: the table, a condition filled in the page's
// rows, the count on the summary or confirmation page, Finish; then the rows left or
// changed are exactly those the condition selects and the statement hook saw the exact
// statement. On the test driver an informational answer to the statement is a failure.
#include "catalog/catalog_test_support.h"
#include "query/resource_ids.h"
#include "tabra.h"
#include "wizards/records/resource_ids.h"
#include "wizards/resource_ids.h"

#include <cstring>

namespace tabra::test {
namespace {

namespace ids = wizards::records::ids;
using query::ids::kOperatorLabel;

enum class Wizard { Delete, Update };

// The change statements among those the hook saw, and the record counts.
std::vector<std::u16string> changes(const std::vector<std::u16string> &statements) {
    std::vector<std::u16string> found;
    for (const auto &s : statements)
        if (!s.starts_with(u"SELECT")) found.push_back(s);
    return found;
}
long counts(const std::vector<std::u16string> &statements) {
    return std::count_if(statements.begin(), statements.end(),
                         [](const std::u16string &s) { return s.starts_with(u"SELECT Count(*)"); });
}

// "dialog P: select C <operator label>"
std::string chooseOperator(int32_t page, int32_t control, int32_t label) {
    return onDialog(page, "select", control, test::quoted(resourceText(label)));
}

// "dialog P: expect C <the count text with n>"
std::string expectCount(int32_t page, int32_t control, int32_t stringId, int n) {
    std::u16string text = resourceText(stringId);
    text.replace(text.find(u"%d"), 2, toUtf16(std::to_string(n)));
    return onDialog(page, "expect", control, test::quoted(text));
}

struct Scenario {
    const char *name;
    Wizard wizard;
    std::vector<std::string> script;
    int32_t result;
    const char16_t *ordersIds; // delete: ids left in rw_orders; update: ids noted "checked"
    const char16_t *statement; // the change statement the hook saw (" for the quote), or null
    long counts;               // record counts the wizard ran
    std::vector<int32_t> messages;
    const char16_t *chosenTable = u"rw_orders";
    const char16_t *otherIds = nullptr; // delete: ids left in rw_other; update: ids labelled "relabelled"
    bool refuseChanges = false;
    int32_t objectType = TABRA_OBJECT_TABLE;
};

const std::vector<Scenario> &scenarios() {
    constexpr int32_t next = WIZZARD_ID_NEXT, back = WIZZARD_ID_BACK, finish = WIZZARD_ID_FINISH;
    const int32_t dTable = ids::kDeleteTablePage.id, dCondition = ids::kDeleteConditionPage.id,
                  summary = ids::kSummaryPage.id, uTable = ids::kUpdateTablePage.id,
                  uCondition = ids::kUpdateConditionPage.id, changes = ids::kAssignmentPage.id,
                  confirm = ids::kConfirmationPage.id, result = ids::kResultPage.id;
    const auto &rows = ids::kConditionRows;
    const int32_t tables = ids::kDeleteTablePage.tables, text = ids::kSummaryPage.summary;
    const auto &messages = wizards::ids::kMessage;
    const auto &s = ids::kString;
    auto condition = [&](int32_t page, const char *column, int32_t label, const char *value) {
        return std::vector<std::string>{onDialog(page, "select", rows[0].column, test::quoted(toUtf16(column))),
                                        chooseOperator(page, rows[0].operation, label),
                                        onDialog(page, "set", rows[0].value, test::quoted(toUtf16(value)))};
    };
    auto assignment = [&](const char *column, const char *value) {
        return std::vector<std::string>{onDialog(changes, "select", rows[0].column, test::quoted(toUtf16(column))),
                                        chooseOperator(changes, rows[0].operation, kOperatorLabel.setValue),
                                        onDialog(changes, "set", rows[0].value, test::quoted(toUtf16(value))),
                                        click(changes, next)};
    };
    auto joined = [](std::initializer_list<std::vector<std::string>> parts) {
        std::vector<std::string> all;
        for (const auto &part : parts) all.insert(all.end(), part.begin(), part.end());
        return all;
    };
    auto toResult = [&](int n) {
        return std::vector<std::string>{expectCount(confirm, ids::kConfirmationPage.confirmation, s.recordsToUpdate, n),
                                        click(confirm, next),
                                        expectCount(result, ids::kResultPage.result, s.recordsUpdated, n),
                                        click(result, finish)};
    };
    static const std::vector<Scenario> all = {
        {"DeletesWhatTheConditionSelects", Wizard::Delete,
         joined({{onDialog(dTable, "select", tables, "\"rw_orders\""), click(dTable, next)},
                 condition(dCondition, "Ship City", kOperatorLabel.equal, "Berlin"),
                 {click(dCondition, back), click(dTable, next), onDialog(dCondition, "expect", rows[0].value, "\"Berlin\""),
                  click(dCondition, next), expectCount(summary, text, s.recordsToDelete, 2), click(summary, finish)}}),
         1, u"2,4,5", u"DELETE from rw_orders WHERE ((\"Ship City\"='Berlin'))", 2, {}},
        {"DeleteWithoutConditionDeletesEveryRecord", Wizard::Delete,
         {click(dTable, next), click(dCondition, next), expectCount(summary, text, s.recordsToDelete, 5),
          click(summary, finish)},
         1, u"", u"DELETE from rw_orders", 2, {}},
        {"DeleteMatchingNothingStillRunsTheStatement", Wizard::Delete,
         joined({{click(dTable, next)}, condition(dCondition, "Ship City", kOperatorLabel.equal, "Paris"),
                 {click(dCondition, next), expectCount(summary, text, s.noRecordToDelete, 0), click(summary, finish)}}),
         1, u"1,2,3,4,5", u"DELETE from rw_orders WHERE ((\"Ship City\"='Paris'))", 1, {}},
        {"DeleteCancelledOnTheSummaryChangesNothing", Wizard::Delete,
         {click(dTable, next), click(dCondition, next), click(summary, IDCANCEL)}, 2, u"1,2,3,4,5", nullptr, 2, {}},
        {"DeleteRefusedByTheHookFailsQuietly", Wizard::Delete,
         {click(dTable, next), click(dCondition, next), click(summary, finish)}, 2, u"1,2,3,4,5",
         u"DELETE from rw_orders", 2, {}, u"rw_orders", nullptr, true},
        {"DeleteConditionIsEmptiedForAnotherTable", Wizard::Delete,
         joined({{click(dTable, next)}, condition(dCondition, "freight", kOperatorLabel.greater, "1"),
                 {click(dCondition, back), onDialog(dTable, "select", tables, "\"rw_other\""), click(dTable, next),
                  onDialog(dCondition, "expect", rows[0].column, "\"\""), click(dCondition, next),
                  expectCount(summary, text, s.recordsToDelete, 2), click(summary, finish)}}),
         1, u"1,2,3,4,5", u"DELETE from rw_other", 2, {}, u"rw_other", u""},
        {"NoTableToChooseShowsAMessage", Wizard::Delete,
         {click(dTable, next), answer(messages.nothingChosen, "ok"), click(dTable, IDCANCEL)}, 2, u"1,2,3,4,5",
         nullptr, 0, {messages.nothingChosen}, u"rw_orders", nullptr, false, TABRA_OBJECT_FORM}, // no catalog lists forms
        {"UpdatesWhatTheConditionSelects", Wizard::Update,
         joined({{onDialog(uTable, "select", tables, "\"rw_orders\""), click(uTable, next)},
                 condition(uCondition, "id", kOperatorLabel.greater, "3"), {click(uCondition, next)},
                 assignment("note", "checked"), toResult(2)}),
         1, u"4,5", u"UPDATE rw_orders SET note='checked' WHERE ((id > 3))", 1, {}},
        {"UpdateWithoutConditionChangesEveryRecord", Wizard::Update,
         joined({{click(uTable, next), click(uCondition, next)}, assignment("note", "checked"), toResult(5)}), 1,
         u"1,2,3,4,5", u"UPDATE rw_orders SET note='checked'", 1, {}},
        {"UpdateMatchingNothingKeepsTheConditionPage", Wizard::Update,
         joined({{click(uTable, next)}, condition(uCondition, "Ship City", kOperatorLabel.equal, "Paris"),
                 {click(uCondition, next), answer(messages.noMatchingRows, "ok"), click(uCondition, IDCANCEL)}}),
         2, u"", nullptr, 1, {messages.noMatchingRows}},
        {"UpdateWithoutAssignmentKeepsTheChangesPage", Wizard::Update,
         {click(uTable, next), click(uCondition, next), click(changes, next), answer(ids::kMessage.noAssignment, "ok"),
          click(changes, IDCANCEL)},
         2, u"", nullptr, 1, {ids::kMessage.noAssignment}},
        {"ChangingTheTableEmptiesConditionAndChanges", Wizard::Update,
         joined({{click(uTable, next)}, condition(uCondition, "freight", kOperatorLabel.greater, "100"),
                 {click(uCondition, next)},
                 {onDialog(changes, "select", rows[0].column, "\"note\""), click(changes, back), click(uCondition, back),
                  onDialog(uTable, "select", tables, "\"rw_other\""), click(uTable, next),
                  onDialog(uCondition, "expect", rows[0].column, "\"\""), click(uCondition, next),
                  onDialog(changes, "expect", rows[0].column, "\"\"")},
                 assignment("label", "relabelled"), toResult(2)}),
         1, u"", u"UPDATE rw_other SET label='relabelled'", 2, {}, u"rw_other", u"1,2"},
    };
    return all;
}

// Two tables of known rows: rw_orders (a column name that needs quoting, numbers, text)
// and rw_other.
void fillTables(const OdbcConnection &connection) {
    executeAll(connection, {u"DELETE FROM rw_orders", u"DELETE FROM rw_other",
                            u"INSERT INTO rw_orders VALUES (1, 'Berlin', 10.50, NULL)",
                            u"INSERT INTO rw_orders VALUES (2, 'Bonn', 150, 'x')",
                            u"INSERT INTO rw_orders VALUES (3, 'Berlin', 200, NULL)",
                            u"INSERT INTO rw_orders VALUES (4, 'K\u00f6ln', 0.25, NULL)",
                            u"INSERT INTO rw_orders VALUES (5, 'Bremen', 99, NULL)",
                            u"INSERT INTO rw_other VALUES (1, 'a')", u"INSERT INTO rw_other VALUES (2, 'b')"});
}

void createTables(const OdbcConnection &connection, const std::u16string &quote) {
    executeAll(connection, {u"CREATE TABLE rw_orders (id INTEGER, " + quote + u"Ship City" + quote +
                                u" VARCHAR(30), freight DECIMAL(10,2), note VARCHAR(40))",
                            u"CREATE TABLE rw_other (id INTEGER, label VARCHAR(20))"});
    fillTables(connection);
}

std::u16string idList(const OdbcConnection &connection, const std::u16string &query) {
    std::u16string found;
    for (const Row &row : queryRows(connection, query)) found += (found.empty() ? u"" : u",") + row[0].value_or(u"null");
    return found;
}

DbObjectInfo objectRecord(int32_t type) {
    DbObjectInfo object{};
    std::memset(object.Reserved, 0xA5, sizeof object.Reserved);
    std::u16string(u"rw_orders").copy(object.DbObjectName, 9);
    object.DbObjectType = type;
    return object;
}

int32_t runWizard(Wizard wizard, SQLHDBC connection, DbObjectInfo &object) {
    return wizard == Wizard::Delete ? Tabra_DeleteRecordsWizzard(connection, &object, 0)
                                    : Tabra_UpdateRecordsWizzard(connection, &object, 0);
}

class RecordsWizard : public BackendTest {};

TEST_P(RecordsWizard, ScenariosChangeExactlyTheSelectedRecords) {
    OdbcConnection connection = connect();
    std::u16string quote = infoText(connection, SQL_IDENTIFIER_QUOTE_CHAR);
    createTables(connection, quote);
    for (const Scenario &scenario : scenarios()) {
        SCOPED_TRACE(scenario.name);
        fillTables(connection);
        RecordingHook hook(true, [&](const std::u16string &s) {
            return scenario.refuseChanges && (s.starts_with(u"DELETE") || s.starts_with(u"UPDATE"));
        });
        DbObjectInfo object = objectRecord(scenario.objectType);
        const DbObjectInfo before = object;
        ScriptedRun run;
        for (const auto &line : scenario.script) run.queue(line);
        EXPECT_EQ(runWizard(scenario.wizard, connection.handle(), object), scenario.result);
        expectPlayed(run);

        std::u16string statement = scenario.statement ? scenario.statement : u"";
        std::replace(statement.begin(), statement.end(), u'"', quote.empty() ? u'"' : quote[0]);
        EXPECT_EQ(changes(hook.statements), scenario.statement ? std::vector<std::u16string>{statement}
                                                               : std::vector<std::u16string>{});
        EXPECT_EQ(counts(hook.statements), scenario.counts);
        std::vector<int32_t> shown;
        for (const auto &message : run.records(TABRA_RECORD_MESSAGE)) shown.push_back(message.id);
        EXPECT_EQ(shown, scenario.messages);

        bool deleting = scenario.wizard == Wizard::Delete;
        EXPECT_EQ(idList(connection, deleting ? u"SELECT id FROM rw_orders ORDER BY id"
                                           : u"SELECT id FROM rw_orders WHERE note = 'checked' ORDER BY id"),
                  scenario.ordersIds);
        EXPECT_EQ(idList(connection, deleting ? u"SELECT id FROM rw_other ORDER BY id"
                                           : u"SELECT id FROM rw_other WHERE label = 'relabelled' ORDER BY id"),
                  scenario.otherIds ? scenario.otherIds : deleting ? u"1,2" : u"");
        // The record comes back whole on 1, with the table chosen; on 2 it is untouched.
        DbObjectInfo expected = before;
        if (scenario.result == 1) {
            std::fill(std::begin(expected.DbObjectName), std::end(expected.DbObjectName), u'\0');
            std::u16string(scenario.chosenTable).copy(expected.DbObjectName, 49);
        }
        EXPECT_EQ(std::memcmp(&object, &expected, sizeof object), 0) << toUtf8(object.DbObjectName);
    }
}

TABRA_INSTANTIATE_BACKEND_TEST(RecordsWizard);

// A driver that answers the change statement with SQL_SUCCESS_WITH_INFO: the error
// dialog shows the statement, the delete wizard fails, the update wizard keeps the
// user on its confirmation page.
class RecordsWizardTestDriver : public TestDriverTest {};

TEST_F(RecordsWizardTestDriver, AnInformationalAnswerIsAFailure) {
    auto data = connect(dsn::SQLite);
    createTables(data, u"\"");
    const int32_t next = WIZZARD_ID_NEXT, error = core::ids::kErrorDialog.id;
    const struct {
        Wizard wizard;
        std::vector<std::string> script;
    } cases[] = {
        {Wizard::Delete,
         {click(ids::kDeleteTablePage.id, next), click(ids::kDeleteConditionPage.id, next),
          click(ids::kSummaryPage.id, WIZZARD_ID_FINISH), click(error, IDOK)}},
        {Wizard::Update,
         {click(ids::kUpdateTablePage.id, next), click(ids::kUpdateConditionPage.id, next),
          onDialog(ids::kAssignmentPage.id, "select", ids::kAssignmentRows[0].column, "\"note\""),
          chooseOperator(ids::kAssignmentPage.id, ids::kAssignmentRows[0].operation, kOperatorLabel.setNull),
          click(ids::kAssignmentPage.id, next), click(ids::kConfirmationPage.id, next), click(error, IDOK),
          click(ids::kConfirmationPage.id, IDCANCEL)}},
    };
    auto connection = connect(dsn::ExecInfo);
    for (const auto &c : cases) {
        fillTables(data); // the driver did run the statement it then answered with information
        ScriptedRun run;
        for (const auto &line : c.script) run.queue(line);
        DbObjectInfo object = objectRecord(TABRA_OBJECT_TABLE);
        EXPECT_EQ(runWizard(c.wizard, connection.handle(), object), 2);
        expectPlayed(run);
        EXPECT_TRUE(run.closedControlText(error, core::ids::kErrorDialog.statement)
                        .starts_with(c.wizard == Wizard::Delete ? u"DELETE from rw_orders" : u"UPDATE rw_orders SET"));
    }
    expectNoOpenStatements("informational answers");
}

} // namespace
} // namespace tabra::test
