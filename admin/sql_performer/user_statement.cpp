// One statement of the SQL performer through the statement runner.
#include "admin/sql_performer/user_statement.h"

#include "admin/sql_performer/resource_ids.h"
#include "core/module/module_state.h"
#include "core/odbc/statement_runner.h"
#include "ostrel_ui.h"

namespace tabra::admin::sql_performer {

bool runUserStatement(SQLHDBC connection, const char16_t *statement) {
    odbc::StatementRunner runner(connection, statement, {.acceptance = odbc::Acceptance::Strict});
    if (runner.run() != odbc::RunResult::Done) return false; // shown, or cancelled at the hook
    runner.drop();
    Ostrel_DisplayTempWind(module::resourceLibrary(), ids::kString.statementRun, module::kMessageWindowTime,
                           module::kMessageWindowColour);
    return true;
}

} // namespace tabra::admin::sql_performer
