// The statement runner: the one road every statement of the library takes. A
// statement handle is allocated from the caller's connection, the statement text
// passes the statement hook, it is executed directly, each result is judged by a
// stated policy, and a failure is reported where it happens (or tolerated, or kept
// quiet, as the policy says). The handle lives as long as the runner and is dropped on
// every path; results are read through it before that.
//
// The steps always go in this order: allocate, hook, execute. run() takes all three;
// a caller that has something to do between them (open its target file, show a wait
// notice) calls them one by one. Catalog calls and prepared statements use the same
// allocation and the same judging: allocate(), then check() on the call's result.
//
//     StatementRunner statement(connection, text, {.tolerated = u"S0002,42S02"});
//     switch (statement.run()) {
//     case RunResult::Done: ... read with statement.fetch(), statement.handle() ...
//     case RunResult::Tolerated: ... failed with a listed state, nothing shown
//     case RunResult::Refused: case RunResult::Failed: ... shown, or quietly refused
//     }
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstdint>
#include <optional>

#include "core/odbc/statement_handle.h"

namespace tabra::odbc {

// Which results of an ODBC call count as success.
enum class Acceptance {
    // SQL_SUCCESS and SQL_SUCCESS_WITH_INFO; the information is not shown.
    InformationalAccepted,
    // SQL_SUCCESS only: SQL_SUCCESS_WITH_INFO and SQL_NO_DATA are failures as well and
    // are shown with the statement's diagnostics (the statements the user runs or
    // confirms: data changes, table administration).
    Strict,
};

// Whether a failure reaches the user.
enum class Reporting {
    Shown, // the ODBC error dialog, with the statement text for a statement's failure
    Quiet, // nothing is shown; the step still answers Failed
};

struct RunPolicy {
    Acceptance acceptance = Acceptance::InformationalAccepted;
    Reporting reporting = Reporting::Shown;
    // SQLSTATEs whose failures the caller expects, as the row-set operations take them:
    // comma-separated states compared without regard to case ("S0002,42S02"), "*" for
    // every state, a list holding "NOINFO" for an informational result. A failure of
    // the statement with such a state is not shown and answers Tolerated. Null or
    // blank: none. An allocation failure is never tolerated (it has no statement).
    const char16_t *tolerated = nullptr;
};

// How a step ended.
enum class RunResult {
    Done,      // the step succeeded by the policy
    Tolerated, // the statement failed with a state of the tolerated list; nothing shown
    Refused,   // the statement hook did not answer 1: nothing shown, the handle dropped
    Failed,    // any other failure: shown (unless the policy is quiet)
};

class StatementRunner {
public:
    // A run of text on connection under policy. text must stay valid and terminated
    // while the runner lives; it may be null for a handle that only serves a catalog
    // call (failures are then shown without a statement text). Nothing happens before
    // the first step.
    StatementRunner(SQLHDBC connection, const char16_t *text, RunPolicy policy = {});

    StatementRunner(const StatementRunner &) = delete;
    StatementRunner &operator=(const StatementRunner &) = delete;
    StatementRunner(StatementRunner &&) = default; // the handle moves with it

    // Step 1: a statement handle from the connection (SQLAllocStmt). A failure is
    // reported for the connection handle, shown unless the policy is quiet: Failed.
    RunResult allocate();
    // Step 2, after allocate(): hands the text to the statement hook
    // (Ostrel_DumpSqlStatement). Any answer but 1 drops the handle: Refused, never shown.
    RunResult passHook();
    // Step 3, after passHook(): SQLExecDirectW(text, SQL_NTS), judged by check().
    RunResult execute();
    // The three steps; stops at the first that does not answer Done.
    RunResult run();

    // Judges the result of a call made on the handle (a catalog call, a prepare, a bind,
    // a fetch): Done when the policy accepts rc, else fail(rc).
    RunResult check(SQLRETURN rc);
    // Reports a failure of the statement: Tolerated when its SQLSTATE is tolerated (rc
    // tells an informational result for "NOINFO"), else shown with the text unless
    // quiet, Failed.
    RunResult fail(SQLRETURN rc);

    // Reading results, while the handle lives. fetch() answers SQLFetch as it is
    // (SQL_NO_DATA after the last row; judge other results with check()).
    SQLRETURN fetch();
    // The number of result columns (SQL_DESC_COUNT, asked as the ODBC 2 attribute
    // first); nullopt after a failure, which fail() has dealt with.
    std::optional<SQLSMALLINT> columnCount();
    // The rows an UPDATE, INSERT or DELETE touched (SQLRowCount); nullopt after a
    // failure, which check() has dealt with.
    std::optional<SQLLEN> rowCount();

    SQLHSTMT handle() const { return handle_.get(); }
    const char16_t *text() const { return text_; }
    // Drops the handle before the runner goes (results can no longer be read).
    void drop() { handle_.reset(); }

private:
    bool accepts(SQLRETURN rc) const;
    bool shown() const { return policy_.reporting == Reporting::Shown; }

    SQLHDBC connection_;
    const char16_t *text_;
    RunPolicy policy_;
    StatementHandle handle_;
};

} // namespace tabra::odbc
