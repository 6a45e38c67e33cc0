// Sending a wizard's rows to the table, fast and without losing any (the import and the
// add records wizard).
//
// Each row is one parenthesised list of values after the INSERT's head, or a statement
// of its own (an UPDATE of the add records wizard, which then goes alone), and every
// statement passes the statement hook through the statement runner. How the rows
// travel:
//   - With the statement display switched on (Ostrel_GetDumpState) every row is a
//     statement of its own, run as the connection commits, so that the user sees and
//     confirms each one.
//   - Otherwise the rows go in transactions (import_transaction.h), committed every
//     kCommitRows rows and at the end; on a database that takes several rows in one
//     INSERT (capabilities.h, multiRowInsert) a statement carries as many rows as fit
//     into kStatementCapacity characters (at least one, however long).
//   - When a statement of several rows (or any statement in a transaction) fails, the
//     transaction is rolled back and its rows are sent again one per statement, each
//     committed at once, with failures shown: the rows before the failing one are then
//     in the table, the failing one's diagnostics are shown with its statement, and the
//     run stops there.
// A statement the hook refuses stops the run quietly; what went in before is kept.
#pragma once

#include "wizards/row_transaction.h"

#include <sql.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tabra::wizards {

class RowInserter {
public:
    static constexpr std::size_t kStatementCapacity = 30000;
    static constexpr std::size_t kCommitRows = 5000;

    // head: "INSERT INTO t (a,b) VALUES "; multiRow: the database takes several rows in
    // one statement.
    RowInserter(SQLHDBC connection, std::u16string head, bool multiRow);

    // Hands over row number rowNumber (its value list); false when the run is to stop
    // (a failure shown, or a statement refused).
    bool add(int32_t rowNumber, std::u16string values);
    // The same for a row that is a whole statement of its own; it is sent at once, after
    // the rows waiting before it.
    bool addStatement(int32_t rowNumber, std::u16string statement);
    // Sends what is waiting and commits; false when that failed. Call once at the end,
    // also after add() answered false.
    bool finish();

    // The rows that are in the table (committed).
    int32_t rowsKept() const { return kept_; }
    // The row whose INSERT failed, if one did.
    std::optional<int32_t> failedRow() const { return failedRow_; }
    // How rows travel (for the benchmark and the tests).
    bool multiRow() const { return multiRow_; }
    bool inTransactions() const { return transaction_.active(); }

private:
    struct Row {
        int32_t number;
        std::u16string values;
        bool whole = false; // values is the whole statement
    };
    enum class Sent { Done, Refused, Failed };
    Sent send(const std::vector<Row> &rows, std::size_t from, std::size_t to, bool shown);
    bool flush();
    bool commit();
    // The rows since the last commit and the failed ones again, one per statement.
    bool sendOneByOne();

    SQLHDBC connection_;
    std::u16string head_;
    bool multiRow_;
    RowTransaction transaction_;
    std::vector<Row> waiting_;   // the next statement's rows
    std::size_t waitingLength_ = 0;
    std::vector<Row> uncommitted_; // sent since the last commit
    std::u16string statement_;
    int32_t kept_ = 0;
    bool stopped_ = false;
    std::optional<int32_t> failedRow_;
};

} // namespace tabra::wizards
