// Running a one-value statement.
#include "catalog/single_value_query.h"

#include "core/odbc/bound_column.h"
#include "core/odbc/statement_runner.h"

namespace tabra::catalog {

using odbc::RunResult;

std::optional<std::u16string> querySingleValue(SQLHDBC connection, const char16_t *text) {
    odbc::StatementRunner statement(connection, text);
    if (statement.run() != RunResult::Done) return std::nullopt;
    odbc::BoundText<100> value;
    if (statement.check(value.bind(statement.handle(), 1, 99)) != RunResult::Done ||
        statement.check(statement.fetch()) != RunResult::Done)
        return std::nullopt;
    if (value.isNull()) return std::u16string();
    return std::u16string(value.text);
}

} // namespace tabra::catalog
