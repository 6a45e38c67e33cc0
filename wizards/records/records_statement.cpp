// Building and running the statement of the update and delete records wizards.
#include "wizards/records/records_statement.h"

#include "core/odbc/statement_runner.h"
#include "platform/text/bounded_text.h"
#include "query/condition_text.h"
#include "sqltext/statement_formatter.h"

namespace tabra::wizards::records {

namespace {

constexpr int32_t kStatementCapacity = 500;

// Appends piece as far as a buffer of kStatementCapacity characters holds it.
void appendBounded(std::u16string &text, std::u16string_view piece) {
    if (text.size() < kStatementCapacity) text += platform::boundedPrefix(piece, kStatementCapacity - text.size());
}

} // namespace

std::optional<std::u16string> recordsStatement(const RecordsWizard &state) {
    std::u16string table = state.table();
    std::u16string where = query::whereText(state.connection, state.condition, kStatementCapacity,
                                            query::kStandardExpansion);
    std::u16string text;
    if (state.operation == Operation::Update) {
        std::u16string set = query::setText(state.connection, state.assignments, kStatementCapacity);
        if (set.empty()) return std::nullopt;
        text = sqltext::formatStatement(state.connection, u"UPDATE %t SET %s", {table.c_str(), set.c_str()},
                                        kStatementCapacity);
    } else {
        // The lower-case "from" is how the statement has always read.
        text = sqltext::formatStatement(state.connection, u"DELETE from %t", {table.c_str()}, kStatementCapacity);
    }
    if (!where.empty()) {
        for (std::u16string_view piece : {std::u16string_view(u" WHERE ("), std::u16string_view(where),
                                          std::u16string_view(u")")})
            appendBounded(text, piece);
    }
    return text;
}

bool runRecordsStatement(const RecordsWizard &state) {
    std::optional<std::u16string> text = recordsStatement(state);
    if (!text) return false;
    odbc::StatementRunner statement(state.connection, text->c_str(), {.acceptance = odbc::Acceptance::Strict});
    return statement.run() == odbc::RunResult::Done;
}

} // namespace tabra::wizards::records
