// The table rebuild: reads the table's definition, indexes and triggers from SQLite's
// schema table, then runs the plan in one transaction and checks it before the commit.
#include "admin/table_admin/table_rebuild.h"

#include "admin/table_admin/resource_ids.h"
#include "core/diagnostics/odbc_error_display.h"
#include "core/odbc/statement_runner.h"
#include "core/resource_ids.h"
#include "platform/text/case_folding.h"
#include "rowset/row_set_reader.h"
#include "sqltext/sql92_names.h"
#include "tabra_connection.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tabra::admin::table_admin {
namespace {

using odbc::Acceptance;
using odbc::RunResult;
using odbc::StatementRunner;

constexpr int32_t kNameCapacity = 300;
// A schema statement longer than this would be cut, fail to parse and be refused.
constexpr int32_t kSchemaTextCapacity = 100000;
// The most free names tried for the new table.
constexpr int kNameAttempts = 100;

using Row = std::vector<std::u16string>; // NULL reads as the empty text
using Rows = std::vector<Row>;

// Every statement of the rebuild is judged strictly: the rebuild is one change.
RunResult runChange(SQLHDBC connection, const std::u16string &text) {
    StatementRunner statement(connection, text.c_str(), {.acceptance = Acceptance::Strict});
    return statement.run();
}

// Runs a query and reads every row as text.
RunResult runQuery(SQLHDBC connection, const std::u16string &text, Rows &rows) {
    rows.clear();
    StatementRunner statement(connection, text.c_str(), {.acceptance = Acceptance::Strict});
    RunResult result = statement.run();
    if (result != RunResult::Done) return result;
    std::optional<SQLSMALLINT> columns = statement.columnCount();
    if (!columns) return RunResult::Failed;
    rowset::RowSetReader reader(statement.handle(), kSchemaTextCapacity, *columns);
    for (;;) {
        SQLRETURN rc = reader.nextRow();
        if (rc == SQL_NO_DATA) return RunResult::Done;
        if (statement.check(rc) != RunResult::Done) return RunResult::Failed;
        Row &row = rows.emplace_back();
        for (SQLSMALLINT column = 1; column <= *columns; ++column) {
            rowset::FetchedValue value;
            if (statement.check(reader.read(static_cast<SQLUSMALLINT>(column), value)) != RunResult::Done)
                return RunResult::Failed;
            row.emplace_back(value.isNull() ? u"" : std::u16string(value.text, value.length));
        }
    }
}

// The first value of a query answering one row.
RunResult runValue(SQLHDBC connection, const std::u16string &text, std::u16string &value) {
    Rows rows;
    RunResult result = runQuery(connection, text, rows);
    value = result == RunResult::Done && !rows.empty() && !rows[0].empty() ? rows[0][0] : u"";
    return result;
}

// A text as an SQL string literal.
std::u16string literal(std::u16string_view text) {
    std::u16string quoted = u"'";
    for (char16_t c : text) {
        quoted += c;
        if (c == u'\'') quoted += c;
    }
    return quoted + u'\'';
}

void showMessage(int32_t message, const std::u16string &first, const std::u16string &second = {},
                 const std::u16string &third = {}) {
    ShowMessage(message, first.c_str(), second.c_str(), third.c_str());
}

// What the plan needs to know before anything changes.
struct Plan {
    std::u16string table;          // prepared for SQL
    std::u16string newTable;       // a free name, prepared
    std::u16string createNew;      // the changed definition under the new name
    std::u16string columns;        // the columns to copy, prepared and joined
    std::vector<std::u16string> dependents; // CREATE INDEX and CREATE TRIGGER statements
    bool foreignKeysOn = false;
    bool legacyRenameOn = false;
};

// A name for the new table that no object of the database has.
std::optional<std::u16string> freeName(SQLHDBC connection, const char16_t *table, RunResult &result) {
    Rows names;
    result = runQuery(connection, u"SELECT name FROM sqlite_master", names);
    if (result != RunResult::Done) return std::nullopt;
    std::set<std::u16string> taken;
    for (const Row &row : names) taken.insert(platform::foldedCopy(row[0]));
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        std::u16string candidate = std::u16string(table) + u"_rebuilt";
        if (attempt > 0) {
            std::string number = std::to_string(attempt);
            candidate += std::u16string(number.begin(), number.end());
        }
        if (!taken.contains(platform::foldedCopy(candidate))) return candidate;
    }
    return std::nullopt;
}

// Reads the table's definition and what depends on it and applies the change. Nothing
// is changed yet; a refusal of the change shows the message for "not possible".
RunResult preparePlan(SQLHDBC connection, const char16_t *table, const DefinitionChange &change, Plan &plan) {
    const std::u16string name = literal(table);
    std::u16string createOld;
    RunResult result = runValue(
        connection, u"SELECT sql FROM sqlite_master WHERE type = 'table' AND name = " + name + u" COLLATE NOCASE",
        createOld);
    if (result != RunResult::Done) return result;
    std::optional<TableDefinition> definition = TableDefinition::parse(createOld);
    std::optional<std::u16string> newName = definition && change(*definition) ? freeName(connection, table, result)
                                                                               : std::nullopt;
    if (result != RunResult::Done) return result;
    if (!newName) {
        ShowMessage(core::ids::kMessage.notPossibleHere, nullptr, nullptr, nullptr);
        return RunResult::Failed;
    }
    plan.table = sqltext::prepareNameForSql92(connection, table, kNameCapacity);
    plan.newTable = sqltext::prepareNameForSql92(connection, newName->c_str(), kNameCapacity);
    plan.createNew = definition->createStatement(plan.newTable);

    Rows rows;
    // table_info leaves generated columns out: they cannot be written and are computed again.
    if ((result = runQuery(connection, u"PRAGMA table_info(" + plan.table + u")", rows)) != RunResult::Done)
        return result;
    for (const Row &row : rows) {
        if (!plan.columns.empty()) plan.columns += u", ";
        plan.columns += sqltext::prepareNameForSql92(connection, row.at(1).c_str(), kNameCapacity);
    }
    if ((result = runQuery(connection,
                           u"SELECT sql FROM sqlite_master WHERE tbl_name = " + name +
                               u" COLLATE NOCASE AND type IN ('index', 'trigger') AND sql IS NOT NULL ORDER BY type",
                           rows)) != RunResult::Done)
        return result;
    for (const Row &row : rows) plan.dependents.push_back(row[0]);

    std::u16string value;
    if ((result = runValue(connection, u"PRAGMA foreign_keys", value)) != RunResult::Done) return result;
    plan.foreignKeysOn = value == u"1";
    if ((result = runValue(connection, u"PRAGMA legacy_alter_table", value)) != RunResult::Done) return result;
    plan.legacyRenameOn = value == u"1";
    return RunResult::Done;
}

// The row count of a table, or nullopt after a failure (shown) or a refusal.
RunResult countRows(SQLHDBC connection, const std::u16string &table, std::u16string &count) {
    return runValue(connection, u"SELECT Count(*) FROM " + table, count);
}

// The tables of foreign key violations that involve the table, as the check after the
// rebuild finds them (a child row without its parent, or a reference that no longer
// names a key: the check fails then, and that failure is shown).
RunResult checkReferences(SQLHDBC connection, const char16_t *table, std::u16string &failing) {
    Rows violations;
    RunResult result = runQuery(connection, u"PRAGMA foreign_key_check", violations);
    if (result != RunResult::Done) return result;
    std::set<std::u16string> tables;
    for (const Row &row : violations) // table, rowid, parent, constraint
        if (platform::equalIgnoringCase(row.at(0), table) || platform::equalIgnoringCase(row.at(2), table))
            tables.insert(row[0]);
    failing.clear();
    for (const std::u16string &name : tables) failing += (failing.empty() ? u"" : u", ") + name;
    return RunResult::Done;
}

// The statements inside the transaction, in order; stops at the first that does not
// go through, and at a check that does not hold (after its message).
RunResult runPlan(SQLHDBC connection, const char16_t *table, Plan &plan) {
    std::u16string before, after, failing;
    RunResult result = countRows(connection, plan.table, before);
    if (result != RunResult::Done) return result;
    const std::u16string copy = u"INSERT INTO " + plan.newTable + u" (" + plan.columns + u") SELECT " + plan.columns +
                                u" FROM " + plan.table;
    for (const std::u16string &text : {plan.createNew, copy, u"DROP TABLE " + plan.table})
        if ((result = runChange(connection, text)) != RunResult::Done) return result;
    // The legacy rename leaves views and triggers that name the old table alone (they
    // name the new one again afterwards); the current one would refuse to rename
    // while a view names a table that is missing at that moment.
    if (!plan.legacyRenameOn) {
        if ((result = runChange(connection, u"PRAGMA legacy_alter_table = ON")) != RunResult::Done) return result;
        plan.legacyRenameOn = true;
    }
    if ((result = runChange(connection, u"ALTER TABLE " + plan.newTable + u" RENAME TO " + plan.table)) !=
        RunResult::Done)
        return result;
    for (const std::u16string &text : plan.dependents)
        if ((result = runChange(connection, text)) != RunResult::Done) return result;
    if ((result = countRows(connection, plan.table, after)) != RunResult::Done) return result;
    if (after != before) {
        showMessage(ids::kMessage.rebuildRowsDiffer, table, before, after);
        return RunResult::Failed;
    }
    if ((result = checkReferences(connection, table, failing)) != RunResult::Done) return result;
    if (!failing.empty()) {
        showMessage(ids::kMessage.rebuildBreaksReferences, table, failing);
        return RunResult::Failed;
    }
    return RunResult::Done;
}

bool setAutocommit(SQLHDBC connection, SQLULEN mode) {
    SQLRETURN rc = SQLSetConnectAttrW(connection, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(mode), 0);
    if (SQL_SUCCEEDED(rc)) return true;
    diagnostics::showOdbcError(SQL_HANDLE_DBC, connection, nullptr);
    return false;
}

bool endTransaction(SQLHDBC connection, SQLSMALLINT completion) {
    if (SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection, completion))) return true;
    diagnostics::showOdbcError(SQL_HANDLE_DBC, connection, nullptr);
    return false;
}

// The plan in a transaction of its own: committed when every step held, else rolled
// back; autocommit is on again afterwards, as it was before.
RunResult runInTransaction(SQLHDBC connection, const char16_t *table, Plan &plan) {
    if (!setAutocommit(connection, SQL_AUTOCOMMIT_OFF)) return RunResult::Failed;
    RunResult result = runPlan(connection, table, plan);
    if (result == RunResult::Done && !endTransaction(connection, SQL_COMMIT)) result = RunResult::Failed;
    if (result != RunResult::Done) endTransaction(connection, SQL_ROLLBACK);
    setAutocommit(connection, SQL_AUTOCOMMIT_ON);
    return result;
}

bool commitsEachStatement(SQLHDBC connection) {
    SQLULEN mode = SQL_AUTOCOMMIT_ON;
    return !SQL_SUCCEEDED(SQLGetConnectAttrW(connection, SQL_ATTR_AUTOCOMMIT, &mode, 0, nullptr)) ||
           mode == SQL_AUTOCOMMIT_ON;
}

} // namespace

RebuildResult rebuildTable(SQLHDBC connection, const char16_t *table, const DefinitionChange &change) {
    // In manual-commit mode the caller's open work would be committed or rolled back
    // with the rebuild, and foreign key enforcement cannot be switched inside it.
    if (!commitsEachStatement(connection)) {
        showMessage(ids::kMessage.rebuildNeedsAutocommit, table);
        return RebuildResult::Failed;
    }
    Plan plan;
    RunResult result = preparePlan(connection, table, change, plan);
    const bool legacyRenameWasOn = plan.legacyRenameOn;
    if (result == RunResult::Done && plan.foreignKeysOn)
        result = runChange(connection, u"PRAGMA foreign_keys = OFF");
    if (result == RunResult::Done) {
        result = runInTransaction(connection, table, plan);
        // Settings are not part of the transaction: put back what the plan changed.
        if (plan.legacyRenameOn && !legacyRenameWasOn) runChange(connection, u"PRAGMA legacy_alter_table = OFF");
        if (plan.foreignKeysOn) runChange(connection, u"PRAGMA foreign_keys = ON");
    }
    switch (result) {
    case RunResult::Done: return RebuildResult::Done;
    case RunResult::Refused: return RebuildResult::Refused;
    default: return RebuildResult::Failed;
    }
}

} // namespace tabra::admin::table_admin
