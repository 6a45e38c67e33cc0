// The one transfer loop of the row-set operations, and running a statement for its
// effect.
#include "rowset/row_set.h"

#include "core/connection/connection_info.h"
#include "core/odbc/statement_runner.h"
#include "ostrel.h"
#include "tabra_rowset.h"

namespace tabra::rowset {

using odbc::RunResult;
using odbc::StatementRunner;

int32_t performStatement(SQLHDBC connection, const char16_t *text, const char16_t *tolerated) {
    if (connection == SQL_NULL_HDBC || Ostrel_IsBlankString(text)) return 2;
    RunResult result = StatementRunner(connection, text, {.tolerated = tolerated}).run();
    return result == RunResult::Done || result == RunResult::Tolerated ? 1 : 2;
}

int32_t transferRows(SQLHDBC connection, const char16_t *text, const char16_t *tolerated, RowSink &sink) {
    StatementRunner statement(connection, text, {.tolerated = tolerated});
    if (statement.allocate() != RunResult::Done || statement.passHook() != RunResult::Done) return 2;
    if (!sink.open() || statement.execute() != RunResult::Done) return 2;
    const auto columns = statement.columnCount();
    if (!columns) return 2;
    if (SQLRETURN rc = sink.begin(statement.handle(), *columns); !SQL_SUCCEEDED(rc)) {
        statement.fail(rc);
        return 2;
    }
    RowSetReader reader(statement.handle(), sink.valueCapacity(), *columns,
                        connection::fetchesTextAsUtf8(connection) ? TextTransfer::Utf8 : TextTransfer::Wide);
    if (sink.fetchesBlocks()) reader.useBlocks();
    while (!sink.stopped()) {
        SQLRETURN rc = reader.nextRow();
        if (rc == SQL_NO_DATA) break;
        if (SQL_SUCCEEDED(rc)) rc = sink.takeRow(reader, *columns);
        if (!SQL_SUCCEEDED(rc)) {
            statement.fail(rc);
            if (!sink.keepsRowsAfterFailedRead()) return 2;
            break;
        }
    }
    return sink.finish() ? 1 : 2;
}

} // namespace tabra::rowset

extern "C" int32_t OdbcEh_PerformSqlStatement(int32_t, SQLHDBC connection, const char16_t *text,
                                              const char16_t *tolerated) {
    return tabra::rowset::performStatement(connection, text, tolerated);
}
