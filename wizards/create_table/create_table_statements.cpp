// What the create table wizard runs after Finish, one way per mode:
//   key column only      CREATE TABLE new (Id <auto-increment type>)
//   copy structure       the database's empty copy statement ("SELECT * INTO new FROM
//                        source WHERE 3=5", or CREATE TABLE ... AS SELECT), or, where
//                        that loses the column types, CREATE TABLE new (<the source's
//                        columns as declared>)
//   default definition   CREATE TABLE new (<string 2161>), then ALTER TABLE new ADD Id
//                        <auto-increment type> where the database has one; where ALTER
//                        TABLE cannot add a key column (SQLite) the Id column is part
//                        of the CREATE TABLE instead, last, as the ALTER would put it.
#include "catalog/column_definitions.h"
#include "core/module/module_state.h"
#include "core/odbc/statement_runner.h"
#include "core/resource_ids.h"
#include "platform/text/bounded_text.h"
#include "sqltext/sql92_names.h"
#include "sqltext/statement_formatter.h"
#include "tabra_connection.h"
#include "wizards/create_table/create_table_wizard.h"

namespace tabra::wizards::create_table {
namespace {

using odbc::RunResult;
using odbc::StatementRunner;

constexpr odbc::RunPolicy kStrict{.acceptance = odbc::Acceptance::Strict};

// The sizes of the statements, in characters.
constexpr int32_t kKeyColumnSize = 300;
constexpr int32_t kCopySize = 200;
constexpr int32_t kDefinitionSize = 400;
constexpr int32_t kColumnDefinitionCapacity = 200;
// A copy written from the column catalog: the prepared name and the columns as declared.
constexpr int32_t kDeclaredCopySize = 30000;

bool run(SQLHDBC connection, const std::u16string &text) {
    return StatementRunner(connection, text.c_str(), kStrict).run() == RunResult::Done;
}

bool createKeyColumnOnly(SQLHDBC connection, const connection::Capabilities &database, const std::u16string &name) {
    return run(connection, sqltext::formatStatement(connection, u"CREATE TABLE %t (Id %s)",
                                                    {name.c_str(), database.autoIncrementType}, kKeyColumnSize));
}

bool copyStructure(SQLHDBC connection, const connection::Capabilities &database, const std::u16string &name,
                   const std::u16string &source) {
    if (database.copyKeepsColumnTypes)
        return run(connection, sqltext::formatStatement(connection, database.copyStructureStatement,
                                                        {name.c_str(), source.c_str()}, kCopySize));
    auto columns = catalog::declaredColumnDefinitions(connection, source.c_str());
    if (!columns) return false;
    std::u16string text = u"CREATE TABLE " + sqltext::prepareNameForSql92(connection, name.c_str(), kCopySize) + u" (" +
                          *columns + u")";
    return run(connection, std::u16string(platform::boundedPrefix(text, kDeclaredCopySize)));
}

bool createDefaultDefinition(SQLHDBC connection, const connection::Capabilities &database,
                             const std::u16string &name) {
    char16_t columns[kColumnDefinitionCapacity] = {};
    module::LoadTranslatedString(module::resourceLibrary(), ids::kString.defaultColumns, columns,
                                 kColumnDefinitionCapacity);
    if (database.hasAutoIncrement() && !database.alterTableAddsKeyColumn)
        return run(connection, sqltext::formatStatement(connection, u"CREATE TABLE %t (%s, Id %s)",
                                                        {name.c_str(), columns, database.autoIncrementType},
                                                        kDefinitionSize));

    // Both statements in one buffer, on one statement handle.
    char16_t text[kDefinitionSize] = {};
    auto write = [&](const char16_t *format, const char16_t *argument) {
        platform::writeBounded(text, kDefinitionSize,
                               sqltext::formatStatement(connection, format, {name.c_str(), argument}, kDefinitionSize));
    };
    write(u"CREATE TABLE %t (%s)", columns);
    StatementRunner statement(connection, text, kStrict);
    if (statement.run() != RunResult::Done) return false;
    if (!database.hasAutoIncrement()) return true;
    // The table stays when the key column cannot be added; the failure is shown.
    write(u"ALTER TABLE %t ADD Id %s", database.autoIncrementType);
    return statement.passHook() == RunResult::Done && statement.execute() == RunResult::Done;
}

} // namespace

bool modeSupported(const connection::Capabilities &database, int32_t mode) {
    if (mode == ids::kModePage.keyColumnOnly) return database.hasAutoIncrement();
    if (mode == ids::kModePage.copyStructure) return database.tableCopyAllowed();
    return mode == ids::kModePage.defaultDefinition;
}

bool createTable(SQLHDBC connection, const connection::Capabilities &database, int32_t mode,
                 const std::u16string &name, const std::u16string &source) {
    if (!modeSupported(database, mode)) {
        ShowMessage(core::ids::kMessage.notPossibleHere, nullptr, nullptr, nullptr);
        return false;
    }
    if (mode == ids::kModePage.keyColumnOnly) return createKeyColumnOnly(connection, database, name);
    if (mode == ids::kModePage.copyStructure) return copyStructure(connection, database, name, source);
    return createDefaultDefinition(connection, database, name);
}

} // namespace tabra::wizards::create_table
