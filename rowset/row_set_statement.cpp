// Allocation, hook, execution and the column count of row-set statements.
#include "rowset/row_set_statement.h"

#include "catalog/result_column_attribute.h"
#include "core/odbc/odbc_text.h"
#include "ostrel.h"
#include "tabra_connection.h"

namespace tabra::catalog {

using odbc::sqlText;
using odbc::succeeded;

StepResult RowSetStatement::prepare() {
    if (!succeeded(handle_.allocate(connection_))) {
        OdbcEh_HandleErrorHdbc(context_, connection_);
        return StepResult::Failed;
    }
    if (Ostrel_DumpSqlStatement(text_, 0) != 1) {
        handle_.reset();
        return StepResult::Failed;
    }
    return StepResult::Done;
}

StepResult RowSetStatement::execute() {
    SQLRETURN rc = SQLExecDirectW(handle_.get(), sqlText(text_), SQL_NTS);
    return succeeded(rc) ? StepResult::Done : reportFailure(rc);
}

std::optional<SQLSMALLINT> RowSetStatement::columnCount(StepResult &failure) {
    // The count is asked as an attribute, with the second call as a fallback for a
    // driver that refuses the first; the diagnostics shown are those of the last call.
    auto count = resultColumnAttribute(handle_.get(), 0, SQL_COLUMN_COUNT);
    if (count && *count >= 0) return static_cast<SQLSMALLINT>(*count);
    failure = reportFailure(SQL_ERROR);
    return std::nullopt;
}

std::optional<SQLSMALLINT> RowSetStatement::open() {
    if (prepare() != StepResult::Done || execute() != StepResult::Done) return std::nullopt;
    StepResult failure = StepResult::Failed;
    return columnCount(failure);
}

StepResult RowSetStatement::reportFailure(SQLRETURN rc) {
    if (Tabra_IsLastErrorInList(SQL_HANDLE_STMT, handle_.get(), tolerated_, rc) == 1) return StepResult::Tolerated;
    OdbcEh_HandleErrorHstmt(context_, handle_.get(), text_);
    return StepResult::Failed;
}

} // namespace tabra::catalog
