// A statement's rows written to a delimited UTF-16LE file. The file replaces the
// target only when the transfer succeeds (an abort by the user is a success with the
// records written so far); any failure leaves no file behind and an existing file as
// it was.
#include "rowset/row_set_columns.h"
#include "rowset/row_set_progress.h"
#include "rowset/row_set_reader.h"
#include "rowset/row_set_statement.h"
#include "rowset/row_set_value_writer.h"
#include "core/diagnostics/file_error_report.h"
#include "ostrel.h"
#include "platform/files/replacing_file.h"
#include "platform/text/utf_conversion.h"
#include "tabra_rowset.h"

#include <vector>

using namespace tabra::catalog;

namespace {

// Characters per value, the terminator included.
constexpr int32_t kValueCapacity = 5000;
// Progress is shown after every this many records.
constexpr int32_t kProgressStep = 100;

std::u16string_view separatorOr(const char16_t *separator, std::u16string_view fallback) {
    return separator != nullptr && separator[0] != u'\0' ? std::u16string_view(separator) : fallback;
}

// The transfer once the statement ran and the file is open: header, rows, progress.
// Returns 1 or 2; written counts the records in the file.
int32_t transferRows(RowSetStatement &statement, SQLSMALLINT columns, std::u16string_view fieldSeparator,
                     std::u16string_view recordSeparator, tabra::platform::ReplacingFile &file,
                     const char16_t *fileName, uint32_t flags, int32_t expected, int32_t &written) {
    SQLHSTMT handle = statement.handle();
    std::u16string &out = file.buffer();
    RowSetProgress progress((flags & TABRA_ROWSET_PROGRESS) != 0, expected);
    // After each record: the file error of a full buffer's write, else whether the
    // user aborted at a progress step.
    int fileError = 0;
    auto recordDone = [&]() {
        int32_t before = written++;
        if ((fileError = file.flushIfFull()) != 0) return true;
        return progress.shown() && before % kProgressStep == 0 && progress.update(written);
    };

    bool stopped = false;
    if (flags & TABRA_ROWSET_HEADER) {
        SQLRETURN rc = appendColumnNames(handle, columns, fieldSeparator, out);
        if (!SQL_SUCCEEDED(rc)) {
            statement.reportFailure(rc);
            return 2;
        }
        stopped = recordDone();
    }

    std::vector<ValueKind> kinds;
    for (SQLSMALLINT column = 1; column <= columns; ++column)
        kinds.push_back(valueKindOf(resultColumnType(handle, static_cast<SQLUSMALLINT>(column))));
    ValueWriter writer(flags);
    RowSetReader reader(handle, kValueCapacity);
    reader.useBlocks(columns);
    FetchedValue value;
    while (!stopped && columns > 0) {
        SQLRETURN rc = reader.nextRow();
        if (rc == SQL_NO_DATA) break;
        if (!SQL_SUCCEEDED(rc)) {
            statement.reportFailure(rc);
            return 2;
        }
        if (written > 0) out.append(recordSeparator);
        for (SQLSMALLINT column = 1; column <= columns; ++column) {
            if (column > 1) out.append(fieldSeparator);
            rc = reader.read(static_cast<SQLUSMALLINT>(column), value);
            if (!SQL_SUCCEEDED(rc)) {
                statement.reportFailure(rc);
                return 2;
            }
            writer.write(kinds[static_cast<std::size_t>(column - 1)], value.text, value.length, out);
        }
        stopped = recordDone();
    }
    if (fileError != 0) {
        tabra::diagnostics::reportFileError(fileError, fileName);
        return 2;
    }
    return 1;
}

} // namespace

extern "C" int32_t OdbcEh_SelectRowSetToFile(int32_t context, SQLHDBC connection, const char16_t *text,
                                             const char16_t *fieldSeparator, const char16_t *recordSeparator,
                                             const char16_t *fileName, int32_t *rowCount, const char16_t *tolerated,
                                             uint32_t flags) {
    if (Ostrel_IsBlankString(fileName) || connection == SQL_NULL_HDBC || Ostrel_IsBlankString(text)) return 2;
    int32_t expected = rowCount != nullptr ? *rowCount : 0;
    if (rowCount != nullptr) *rowCount = 0;

    RowSetStatement statement(context, connection, text, tolerated);
    if (statement.prepare() != StepResult::Done) return 2;
    tabra::platform::ReplacingFile file;
    if (int error = file.open(tabra::platform::toUtf8(fileName)); error != 0) {
        tabra::diagnostics::reportFileError(error, fileName);
        return 2;
    }
    if (statement.execute() != StepResult::Done) return 2;
    StepResult failure = StepResult::Failed;
    auto columns = statement.columnCount(failure);
    if (!columns) return 2;

    int32_t written = 0;
    if (transferRows(statement, *columns, separatorOr(fieldSeparator, u"\t"), separatorOr(recordSeparator, u"\n"),
                     file, fileName, flags, expected, written) != 1)
        return 2;
    if (int error = file.commit(); error != 0) {
        tabra::diagnostics::reportFileError(error, fileName);
        return 2;
    }
    if (rowCount != nullptr) *rowCount = written;
    return 1;
}
