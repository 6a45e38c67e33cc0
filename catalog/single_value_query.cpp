// Running a one-value statement.
#include "catalog/single_value_query.h"

#include "catalog/bound_column.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/statement_handle.h"
#include "ostrel.h"
#include "tabra_connection.h"

namespace tabra::catalog {

using odbc::sqlText;
using odbc::StatementHandle;
using odbc::succeeded;

std::optional<std::u16string> querySingleValue(SQLHDBC connection, const char16_t *text, int32_t hookCapacity) {
    StatementHandle statement;
    if (!succeeded(statement.allocate(connection))) {
        Tabra_DisplayErrorHdbc(connection);
        return std::nullopt;
    }
    if (Ostrel_DumpSqlStatement(text, hookCapacity) != 1) return std::nullopt;
    BoundText<100> value;
    if (!succeeded(SQLExecDirectW(statement.get(), sqlText(text), SQL_NTS)) ||
        !succeeded(value.bind(statement.get(), 1, 99)) || !succeeded(SQLFetch(statement.get()))) {
        Tabra_DisplayErrorHstmt(statement.get(), text);
        return std::nullopt;
    }
    if (value.isNull()) return std::u16string();
    return std::u16string(value.text);
}

} // namespace tabra::catalog
