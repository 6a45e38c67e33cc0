// The common road of the row-set operations: a statement handle for one call, the
// statement hook, execution, the number of result columns, and failures reported
// through the caller's error context unless the caller tolerates their SQLSTATE.
#pragma once

#include "core/odbc/statement_handle.h"

#include <sql.h>
#include <sqlext.h>

#include <cstdint>
#include <optional>

namespace tabra::catalog {

// How a step of a row-set operation ended.
enum class StepResult {
    Done,      // the step succeeded
    Tolerated, // an ODBC failure whose SQLSTATE the caller listed: nothing was shown
    Failed,    // a failure that was shown, a refusal of the statement hook, or bad arguments
};

// A row-set statement in the making. The handle is dropped with the object.
class RowSetStatement {
public:
    RowSetStatement(int32_t context, SQLHDBC connection, const char16_t *text, const char16_t *tolerated)
        : context_(context), connection_(connection), text_(text), tolerated_(tolerated) {}

    // Allocates the statement handle (a failure is shown for the connection) and hands
    // the text to the statement hook (a refusal fails quietly).
    StepResult prepare();
    // Runs the text (SQLExecDirectW).
    StepResult execute();
    // The number of result columns (SQL_DESC_COUNT); nullopt after a failure, which
    // reportFailure has dealt with (tolerated tells which kind it was).
    std::optional<SQLSMALLINT> columnCount(StepResult &failure);

    // prepare, execute and columnCount in one: the column count, or nullopt after any
    // failure (shown unless tolerated).
    std::optional<SQLSMALLINT> open();

    // Shows the statement's diagnostics with the text unless the caller tolerates the
    // SQLSTATE; answers Tolerated or Failed accordingly.
    StepResult reportFailure(SQLRETURN rc);

    SQLHSTMT handle() const { return handle_.get(); }
    const char16_t *text() const { return text_; }

private:
    int32_t context_;
    SQLHDBC connection_;
    const char16_t *text_;
    const char16_t *tolerated_;
    odbc::StatementHandle handle_;
};

} // namespace tabra::catalog
