// Resource identifiers of the SQL performer and its SQL help. Their texts are in
// resources/<language>/tabraRes-sqlperformer.rc; the pattern is described in
// core/resource_ids.h. The blank-statement message is core's (kMessage.noStatement).
#pragma once

#include <cstdint>

namespace tabra::admin::sql_performer::ids {

// The controls of both performers: a statement, the history of the statements run
// last (each entry in its one-line encoded form) and the buttons. Id is the template.
template <int32_t Id> struct PerformerDialog {
    int32_t id = Id;
    int32_t statement = 1003;
    int32_t history = 1011;
    int32_t help = 100;
    int32_t clearHistory = 101;
    int32_t takeEntry = 102;
    int32_t run = 1000;
};

// The performer on a data source record: it connects for each run.
inline constexpr struct RecordPerformerDialog : PerformerDialog<101> {
    int32_t dataSource = 1006;
    int32_t chooseDataSource = 1007;
} kRecordPerformerDialog{};

// The performer on a connection the caller holds.
inline constexpr PerformerDialog<10058> kConnectionPerformerDialog{};

// Ready-made example statements to take into the performer.
inline constexpr struct SqlHelpDialog {
    int32_t id = 10037;
    int32_t examples = 1002;
} kSqlHelpDialog{};

// A command of both performers that no button sends: a host sends it to fill the
// statement field from the library's setting "Parameters" / "Sql".
inline constexpr struct Commands {
    int32_t fillStatementFromSettings = 99;
} kCommand{};

inline constexpr struct Strings {
    int32_t statementRun = 436; // the notice after a statement ran without a message
} kString{};

} // namespace tabra::admin::sql_performer::ids
