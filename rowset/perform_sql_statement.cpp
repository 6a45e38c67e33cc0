// Running a statement for its effect.
#include "rowset/row_set_statement.h"
#include "ostrel.h"
#include "tabra_rowset.h"

using tabra::catalog::RowSetStatement;
using tabra::catalog::StepResult;

extern "C" int32_t OdbcEh_PerformSqlStatement(int32_t context, SQLHDBC connection, const char16_t *text,
                                              const char16_t *tolerated) {
    if (connection == SQL_NULL_HDBC || Ostrel_IsBlankString(text)) return 2;
    RowSetStatement statement(context, connection, text, tolerated);
    if (statement.prepare() != StepResult::Done) return 2;
    return statement.execute() == StepResult::Failed ? 2 : 1;
}
