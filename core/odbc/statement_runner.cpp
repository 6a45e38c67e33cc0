// The statement runner's steps.
#include "core/odbc/statement_runner.h"

#include "core/connection/text_transport.h"
#include "core/diagnostics/diagnostic_state.h"
#include "core/diagnostics/odbc_error_display.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/result_column_attribute.h"
#include "core/resource_ids.h"
#include "ostrel_hook.h"
#include "platform/text/utf_conversion.h"
#include "tabra_connection.h"

#include <clocale>
#include <string>

namespace tabra::odbc {

StatementRunner::StatementRunner(SQLHDBC connection, const char16_t *text, RunPolicy policy)
    : connection_(connection), text_(text), policy_(policy) {}

bool StatementRunner::accepts(SQLRETURN rc) const {
    return rc == SQL_SUCCESS || (rc == SQL_SUCCESS_WITH_INFO && policy_.acceptance != Acceptance::Strict);
}

RunResult StatementRunner::allocate() {
    // The ODBC 2 call, as the library's ODBC 2 environment has it throughout.
    SQLHSTMT fresh = SQL_NULL_HSTMT;
    SQLRETURN rc = SQLAllocStmt(connection_, &fresh);
    if (SQL_SUCCEEDED(rc)) handle_.reset(fresh);
    if (accepts(rc)) return RunResult::Done;
    if (shown()) diagnostics::showOdbcError(SQL_HANDLE_DBC, connection_, nullptr);
    handle_.reset();
    return RunResult::Failed;
}

RunResult StatementRunner::passHook() {
    // The text is terminated: capacity 0 tells the hook so.
    if (Ostrel_DumpSqlStatement(text_, 0) == 1) return RunResult::Done;
    handle_.reset();
    return RunResult::Refused;
}

RunResult StatementRunner::execute() {
    // A text that would reach the driver changed is not sent: the user is told why,
    // whatever the policy, as the statement would otherwise store something else.
    if (text_ != nullptr && !connection::textSurvives(connection_, text_)) {
        const char *characterType = std::setlocale(LC_CTYPE, nullptr);
        const std::u16string shownType = platform::fromUtf8(characterType != nullptr ? characterType : "");
        ShowMessage(core::ids::kMessage.textNotCarried, shownType.c_str(), nullptr, nullptr);
        handle_.reset();
        return RunResult::Failed;
    }
    return check(SQLExecDirectW(handle_.get(), sqlText(text_), SQL_NTS));
}

RunResult StatementRunner::run() {
    RunResult result = allocate();
    if (result == RunResult::Done) result = passHook();
    if (result == RunResult::Done) result = execute();
    return result;
}

RunResult StatementRunner::check(SQLRETURN rc) { return accepts(rc) ? RunResult::Done : fail(rc); }

RunResult StatementRunner::fail(SQLRETURN rc) {
    if (diagnostics::isLastStateInList(SQL_HANDLE_STMT, handle_.get(), policy_.tolerated, rc))
        return RunResult::Tolerated;
    if (shown()) diagnostics::showOdbcError(SQL_HANDLE_STMT, handle_.get(), text_);
    return RunResult::Failed;
}

SQLRETURN StatementRunner::fetch() { return SQLFetch(handle_.get()); }

std::optional<SQLSMALLINT> StatementRunner::columnCount() {
    // Asked as an attribute, with the ODBC 3 call as a fallback for a driver that
    // refuses the first; the diagnostics shown are those of the last call.
    auto count = resultColumnAttribute(handle_.get(), 0, SQL_COLUMN_COUNT);
    if (count && *count >= 0) return static_cast<SQLSMALLINT>(*count);
    fail(SQL_ERROR);
    return std::nullopt;
}

std::optional<SQLLEN> StatementRunner::rowCount() {
    SQLLEN rows = 0;
    if (check(SQLRowCount(handle_.get(), &rows)) != RunResult::Done) return std::nullopt;
    return rows;
}

} // namespace tabra::odbc
