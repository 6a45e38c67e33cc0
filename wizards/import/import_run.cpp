// The import after Finish: the table created, then the row cycle.
#include "wizards/import/import_run.h"

#include "core/connection/capabilities.h"
#include "core/connection/connection_info.h"
#include "core/module/module_state.h"
#include "core/module/translated_string.h"
#include "core/odbc/statement_runner.h"
#include "ostrel_ui.h"
#include "wizards/import/import_source.h"
#include "wizards/import/import_statements.h"
#include "wizards/row_inserter.h"
#include "wizards/row_progress.h"
#include "wizards/import/telfax_converter.h"

#include <memory>
#include <optional>
#include <string>

namespace tabra::wizards::importing {
namespace {

std::u16string decimalText(int32_t number) {
    std::string digits = std::to_string(number);
    return std::u16string(digits.begin(), digits.end());
}

// A value that could not be converted: the first of the row that stops the import.
struct FailedValue {
    std::u16string value, field;
    int32_t row = 0;
};

bool createTable(ImportWizardState &state) {
    const std::u16string statement = createTableStatement(state.connection, state.table, state.fields);
    odbc::StatementRunner runner(state.connection, statement.c_str());
    return runner.run() == odbc::RunResult::Done;
}

} // namespace

ImportOutcome runImport(ImportWizardState &state) {
    ImportOutcome outcome;
    std::unique_ptr<RowSource> rows = openRows(state);
    if (!rows || !createTable(state) || !rows->start()) return outcome;
    outcome.result = 1;

    const ConversionRules rules = rows->rules();
    std::optional<TelFaxConverter> converter;
    if (state.sourceKind == ids::kSourceKindPage.sdiFile && state.usedConverter.on)
        converter.emplace(state.usedConverter, state.fields, state.sdiFileFields);
    const bool swapDateParts = connection::databaseType(state.connection) == DbSqlServer;
    RowInserter inserter(state.connection, insertHead(state.connection, state.table, state.fields),
                         connection::capabilities(state.connection).multiRowInsert);
    std::optional<FailedValue> failed;
    {
        RowProgress progress(rows->rowCount());
        SourceValues values;
        std::u16string list;
        for (int32_t row = 1; row <= rows->rowCount(); ++row) {
            state.fields.forgetValues();
            if (!rows->next(values)) break;
            outcome.rowsRead = row;
            // A value that cannot be converted stays NULL; the first one is told.
            auto take = [&](ImportField &field, const std::u16string &text) {
                if (!setValue(field, text, rules) && !failed) failed = FailedValue{text, field.sourceName, row};
                return true;
            };
            for (std::size_t i = 0; i < values.size(); ++i)
                if (ImportField *field = state.fields.inSourceOrder(i); field != nullptr && values[i])
                    take(*field, *values[i]);
            if (converter) converter->apply(state.fields, take);
            list.clear();
            appendValueList(list, state.fields, swapDateParts);
            if (!inserter.add(row, std::move(list))) break;
            outcome.aborted = progress.show(row);
            if (outcome.aborted || failed) break;
        }
        inserter.finish();
    }
    outcome.rowsKept = inserter.rowsKept();
    if (auto row = inserter.failedRow()) {
        ShowMessage(ids::kMessage.stoppedAtRecord, decimalText(*row).c_str(), decimalText(outcome.rowsKept).c_str(),
                    state.table.c_str());
    } else if (failed) {
        ShowMessage(ids::kMessage.valueNotConverted, failed->value.c_str(), failed->field.c_str(),
                    decimalText(failed->row).c_str());
    }
    return outcome;
}

} // namespace tabra::wizards::importing
