// A table's column definitions from the column catalog.
#include "catalog/column_definitions.h"

#include "catalog/catalog_calls.h"
#include "core/odbc/bound_column.h"
#include "core/odbc/statement_runner.h"
#include "platform/text/case_folding.h"
#include "sqltext/sql92_names.h"

namespace tabra::catalog {
namespace {

// Column and type names of up to 128 characters, as SQL allows them.
constexpr int32_t kNameCapacity = 129;
constexpr int32_t kPreparedCapacity = 2 * kNameCapacity + 3;

} // namespace

std::optional<std::u16string> declaredColumnDefinitions(SQLHDBC connection, const char16_t *table) {
    if (connection == SQL_NULL_HDBC || table == nullptr || table[0] == u'\0') return std::nullopt;
    odbc::StatementRunner statement(connection, nullptr);
    if (statement.allocate() != odbc::RunResult::Done ||
        statement.check(callColumns(statement.handle(), nullptr, table)) != odbc::RunResult::Done)
        return std::nullopt;
    odbc::BoundText<kNameCapacity> tableName, column, type;
    tableName.bind(statement.handle(), 3);
    column.bind(statement.handle(), 4);
    type.bind(statement.handle(), 6);
    std::u16string definitions;
    while (SQL_SUCCEEDED(statement.fetch())) {
        // The table argument is a pattern: "_" in it matches any character.
        if (!platform::equalIgnoringCase(tableName.text, table)) continue;
        if (!definitions.empty()) definitions += u", ";
        definitions += sqltext::prepareNameForSql92(connection, column.text, kPreparedCapacity);
        if (!type.isNull() && type.text[0] != u'\0') definitions += u" " + std::u16string(type.text);
    }
    if (definitions.empty()) return std::nullopt;
    return definitions;
}

} // namespace tabra::catalog
