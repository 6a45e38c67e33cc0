// A wizard's rows sent in statements of several rows, in transactions, and again one
// by one when a statement fails.
#include "wizards/row_inserter.h"

#include "core/odbc/statement_runner.h"
#include "ostrel_hook.h"

namespace tabra::wizards {
namespace {

bool statementsShown() { return (Ostrel_GetDumpState(0) & OSTREL_DUMP_SHOW_STATEMENTS) != 0; }

} // namespace

RowInserter::RowInserter(SQLHDBC connection, std::u16string head, bool multiRow)
    : connection_(connection), head_(std::move(head)), multiRow_(multiRow && !statementsShown()),
      transaction_(statementsShown() ? SQL_NULL_HDBC : connection) {}

RowInserter::Sent RowInserter::send(const std::vector<Row> &rows, std::size_t from, std::size_t to, bool shown) {
    if (rows[from].whole) {
        statement_ = rows[from].values;
        to = from + 1;
    } else {
        statement_ = head_;
    }
    for (std::size_t i = from; i < to && !rows[from].whole; ++i) {
        if (i > from) statement_ += u',';
        statement_ += rows[i].values;
    }
    odbc::StatementRunner runner(connection_, statement_.c_str(),
                                 {.reporting = shown ? odbc::Reporting::Shown : odbc::Reporting::Quiet});
    switch (runner.run()) {
    case odbc::RunResult::Done: return Sent::Done;
    case odbc::RunResult::Refused: return Sent::Refused;
    default: return Sent::Failed;
    }
}

bool RowInserter::add(int32_t rowNumber, std::u16string values) {
    if (stopped_) return false;
    const std::size_t room = head_.size() < kStatementCapacity ? kStatementCapacity - head_.size() : 0;
    if (!waiting_.empty() && (!multiRow_ || waitingLength_ + values.size() + 1 > room))
        flush();
    if (stopped_) return false;
    waitingLength_ += values.size() + 1;
    waiting_.push_back({rowNumber, std::move(values)});
    if (!multiRow_) flush();
    return !stopped_;
}

bool RowInserter::addStatement(int32_t rowNumber, std::u16string statement) {
    if (stopped_ || !flush()) return false;
    waiting_.push_back({rowNumber, std::move(statement), true});
    flush();
    return !stopped_;
}

bool RowInserter::flush() {
    if (waiting_.empty() || stopped_) return !stopped_;
    // A row on its own outside a transaction needs no second try: its failure is shown.
    const bool alone = waiting_.size() == 1 && !transaction_.active();
    switch (send(waiting_, 0, waiting_.size(), alone)) {
    case Sent::Done:
        if (!transaction_.active()) kept_ += static_cast<int32_t>(waiting_.size());
        for (Row &row : waiting_) uncommitted_.push_back(std::move(row));
        if (!transaction_.active()) uncommitted_.clear();
        break;
    case Sent::Refused: stopped_ = true; break;
    case Sent::Failed:
        if (alone) {
            failedRow_ = waiting_.front().number;
            stopped_ = true;
        } else {
            sendOneByOne();
        }
        break;
    }
    waiting_.clear();
    waitingLength_ = 0;
    if (!stopped_ && uncommitted_.size() >= kCommitRows) commit();
    return !stopped_;
}

bool RowInserter::commit() {
    if (uncommitted_.empty()) return true;
    if (!transaction_.commit()) {
        stopped_ = true;
        return false;
    }
    kept_ += static_cast<int32_t>(uncommitted_.size());
    uncommitted_.clear();
    return true;
}

bool RowInserter::sendOneByOne() {
    const bool again = transaction_.active();
    if (again && !(transaction_.rollback() && transaction_.setAutocommit(true))) {
        stopped_ = true;
        return false;
    }
    std::vector<Row> rows = std::move(uncommitted_);
    uncommitted_.clear();
    for (Row &row : waiting_) rows.push_back(std::move(row));
    for (std::size_t i = 0; i < rows.size() && !stopped_; ++i) {
        switch (send(rows, i, i + 1, true)) {
        case Sent::Done: ++kept_; break;
        case Sent::Refused: stopped_ = true; break;
        case Sent::Failed:
            failedRow_ = rows[i].number;
            stopped_ = true;
            break;
        }
    }
    if (again && !stopped_ && !transaction_.setAutocommit(false)) stopped_ = true;
    return !stopped_;
}

bool RowInserter::finish() {
    flush();
    return commit() && !failedRow_;
}

} // namespace tabra::wizards
