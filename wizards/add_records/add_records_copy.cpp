// The copy after Finish: the source SELECT, then the row cycle.
#include "wizards/add_records/add_records_copy.h"

#include "catalog/record_counts.h"
#include "core/connection/capabilities.h"
#include "core/connection/connection_info.h"
#include "core/odbc/result_column_attribute.h"
#include "core/odbc/statement_runner.h"
#include "rowset/row_set_reader.h"
#include "wizards/add_records/add_records_statements.h"
#include "wizards/import/value_conversion.h"
#include "wizards/row_inserter.h"
#include "wizards/row_progress.h"

#include <string>

namespace tabra::wizards::add_records {
namespace {

constexpr int32_t kValueCapacity = 29999 + 1;
constexpr std::size_t kIdLength = 199;

} // namespace

CopyOutcome runCopy(AddRecordsWizardState &state) {
    CopyOutcome outcome;
    SQLHDBC source = state.source.handle();
    const std::u16string destination = state.destinationTable();
    const int32_t rows = catalog::recordCount(source, state.sourceTable.c_str(), nullptr);
    // Matching by ids needs both id fields (the id page only warns when one is missing).
    const bool byIds = state.matchesIds() && !state.sourceIdField.empty() && !state.destinationIdField.empty();
    const SourceSelect select = sourceSelect(source, state.sourceTable, state.fields, byIds ? state.sourceIdField : u"");
    odbc::StatementRunner statement(source, select.text.c_str());
    if (select.columns < 1 || statement.run() != odbc::RunResult::Done) return outcome;
    outcome.result = 1;

    rowset::RowSetReader reader(statement.handle(), kValueCapacity, static_cast<SQLSMALLINT>(select.columns),
                                connection::fetchesTextAsUtf8(source) ? rowset::TextTransfer::Utf8
                                                                      : rowset::TextTransfer::Wide);
    const auto idColumn = static_cast<SQLUSMALLINT>(select.columns);
    const int32_t idSqlType =
        byIds ? static_cast<int32_t>(odbc::resultColumnAttribute(statement.handle(), idColumn, SQL_COLUMN_TYPE).value_or(0))
              : 0;
    reader.useBlocks();
    RowInserter inserter(state.connection, insertHead(state.connection, destination, state.fields),
                         !byIds && connection::capabilities(state.connection).multiRowInsert);
    {
        RowProgress progress(rows);
        std::u16string text;
        bool failed = false;
        for (int32_t row = 1; row <= rows && !failed; ++row) {
            for (FieldDescriptor &field : state.fields) field.value.reset();
            SQLRETURN fetched = reader.nextRow();
            if (fetched == SQL_NO_DATA || statement.check(fetched) != odbc::RunResult::Done) break;
            outcome.rowsRead = row;
            SQLUSMALLINT column = 0;
            bool readFailed = false;
            for (FieldDescriptor &field : state.fields) {
                if (!field.selected()) continue;
                rowset::FetchedValue value;
                if (statement.check(reader.read(++column, value)) != odbc::RunResult::Done) {
                    readFailed = true;
                    break;
                }
                if (value.isNull()) continue;
                if (!importing::convertTableValue(field.sourceType, field.type,
                                                  std::u16string_view(value.text, value.length), field.value))
                    failed = true;
            }
            if (readFailed) break;
            text.clear();
            bool written = false;
            if (byIds) {
                rowset::FetchedValue id;
                if (statement.check(reader.read(idColumn, id)) != odbc::RunResult::Done) break;
                const std::u16string condition =
                    id.isNull() ? idCondition(source, state.destinationIdField, u"NULL", SQL_INTEGER)
                                : idCondition(source, state.destinationIdField,
                                              std::u16string_view(id.text, std::min(id.length, kIdLength)), idSqlType);
                if (catalog::recordCount(state.connection, destination.c_str(), condition.c_str()) > 0) {
                    ++outcome.updates;
                    written = inserter.addStatement(row, updateStatement(state.connection, destination, state.fields,
                                                                         condition));
                } else {
                    appendValueList(text, state.fields);
                    written = inserter.add(row, std::move(text));
                }
            } else {
                appendValueList(text, state.fields);
                written = inserter.add(row, std::move(text));
            }
            if (!written) break;
            outcome.aborted = progress.show(row);
            if (outcome.aborted) break;
        }
        inserter.finish();
    }
    outcome.rowsKept = inserter.rowsKept();
    return outcome;
}

} // namespace tabra::wizards::add_records
