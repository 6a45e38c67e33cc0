// A table's columns from the column catalog.
#include "catalog/table_columns.h"

#include "catalog/catalog_calls.h"
#include "core/odbc/bound_column.h"
#include "core/odbc/statement_runner.h"
#include "platform/text/bounded_text.h"

namespace tabra::catalog {
namespace {

constexpr int32_t kColumnNameDeclared = 100;
constexpr SQLUSMALLINT kColumnNameColumn = 4;
constexpr SQLUSMALLINT kDataTypeColumn = 5;
constexpr SQLUSMALLINT kColumnSizeColumn = 7;

} // namespace

std::optional<std::vector<CatalogColumn>> tableColumns(SQLHDBC connection, const char16_t *table) {
    odbc::StatementRunner statement(connection, nullptr);
    if (statement.allocate() != odbc::RunResult::Done ||
        statement.check(callColumns(statement.handle(), nullptr, table)) != odbc::RunResult::Done)
        return std::nullopt;
    odbc::BoundText<kColumnNameDeclared> name;
    odbc::BoundShort type;
    SQLINTEGER size = 0;
    SQLLEN sizeIndicator = 0;
    if (statement.check(name.bind(statement.handle(), kColumnNameColumn)) != odbc::RunResult::Done ||
        statement.check(type.bind(statement.handle(), kDataTypeColumn)) != odbc::RunResult::Done ||
        statement.check(SQLBindCol(statement.handle(), kColumnSizeColumn, SQL_C_SLONG, &size, 0, &sizeIndicator)) !=
            odbc::RunResult::Done)
        return std::nullopt;
    std::vector<CatalogColumn> columns;
    while (SQL_SUCCEEDED(statement.fetch()))
        columns.push_back({std::u16string(platform::viewOfBuffer(name.text, kColumnNameDeclared)), type.value,
                           sizeIndicator == SQL_NULL_DATA ? 0 : size});
    return columns;
}

} // namespace tabra::catalog
