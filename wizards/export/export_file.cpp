// Writing the export file on the row-set transfer.
#include "wizards/export/export_file.h"

#include "catalog/value_text.h"
#include "core/resource_ids.h"
#include "platform/files/replacing_file.h"
#include "platform/text/utf_conversion.h"
#include "rowset/row_set.h"
#include "tabra_connection.h"
#include "wizards/export/export_progress.h"
#include "wizards/export/export_select.h"

#include <cerrno>
#include <memory>
#include <vector>

namespace tabra::wizards::exporting {
namespace {

// Characters per value, the terminator included: at most 9999 bytes of text.
constexpr int32_t kValueCapacity = 5000;
constexpr std::u16string_view kLineEnd = u"\r\n";

// The message for a file that cannot be opened, by the C error number.
int32_t openFailureMessage(int error) {
    switch (error) {
    case EACCES: return ids::kMessage.fileAccessDenied;
    case EEXIST: return ids::kMessage.fileExists;
    case EMFILE: return ids::kMessage.tooManyFiles;
    default: return ids::kMessage.fileNotOpened;
    }
}

class ExportFileSink final : public rowset::RowSink {
public:
    explicit ExportFileSink(const ExportWizardState &state)
        : state_(state), separator_(separatorText(state.format)), display_(decimalCharacter(state.format)) {
        for (const ExportField *field : state.fields.selected()) types_.push_back(field->sqlType);
    }

    int32_t valueCapacity() const override { return kValueCapacity; }
    bool fetchesBlocks() const override { return true; }
    bool keepsRowsAfterFailedRead() const override { return true; }
    bool stopped() const override { return failed_ || aborted_ || written_ >= state_.recordCount; }

    // The file is opened once the statement has run, then the header line is written
    // and the progress indicator shown.
    SQLRETURN begin(SQLHSTMT, SQLSMALLINT) override {
        if (int error = file_.open(platform::toUtf8(state_.fileName)); error != 0) {
            ShowMessage(openFailureMessage(error), state_.fileName.c_str(), nullptr, nullptr);
            failed_ = true;
            return SQL_SUCCESS;
        }
        std::u16string &out = file_.buffer();
        if (state_.format.headerLine) {
            bool first = true;
            for (const ExportField *field : state_.fields.selected()) {
                if (!first) out.append(separator_);
                first = false;
                appendField(field->heading, out);
            }
            out.append(kLineEnd); // even when empty
        }
        progress_ = std::make_unique<ExportProgress>(state_.recordCount);
        return SQL_SUCCESS;
    }

    SQLRETURN takeRow(rowset::RowSetReader &row, SQLSMALLINT columns) override {
        std::u16string &out = file_.buffer();
        rowset::FetchedValue value;
        for (SQLSMALLINT column = 1; column <= columns; ++column) {
            if (column > 1) out.append(separator_);
            if (SQLRETURN rc = row.read(static_cast<SQLUSMALLINT>(column), value); !SQL_SUCCEEDED(rc)) return rc;
            if (value.isNull()) continue;
            if (state_.format.leadingDelimiter != 0) out.push_back(state_.format.leadingDelimiter);
            display_.append(typeOf(column), {value.text, value.length}, out);
            if (state_.format.trailingDelimiter != 0) out.push_back(state_.format.trailingDelimiter);
        }
        if (progress_->rowWritten(++written_)) {
            aborted_ = true; // the last row keeps no line end
            return SQL_SUCCESS;
        }
        out.append(kLineEnd);
        if (int error = file_.flushIfFull(); error != 0) {
            writeError_ = error;
            failed_ = true;
        }
        return SQL_SUCCESS;
    }

    bool finish() override {
        progress_.reset();
        if (failed_ && writeError_ == 0) return false; // not opened: shown
        int error = writeError_ != 0 ? writeError_ : file_.commit();
        if (error == 0) return true;
        file_.discard();
        ShowMessage(core::ids::kMessage.fileNotWritten, state_.fileName.c_str(), nullptr, nullptr);
        return false;
    }

private:
    void appendField(std::u16string_view text, std::u16string &out) const {
        if (state_.format.leadingDelimiter != 0) out.push_back(state_.format.leadingDelimiter);
        out.append(text);
        if (state_.format.trailingDelimiter != 0) out.push_back(state_.format.trailingDelimiter);
    }
    int32_t typeOf(SQLSMALLINT column) const {
        auto index = static_cast<std::size_t>(column - 1);
        return index < types_.size() ? types_[index] : 0;
    }

    const ExportWizardState &state_;
    std::u16string_view separator_;
    catalog::DisplayTextWriter display_;
    std::vector<int32_t> types_;
    platform::ReplacingFile file_;
    std::unique_ptr<ExportProgress> progress_;
    int32_t written_ = 0;
    bool aborted_ = false;
    bool failed_ = false;
    int writeError_ = 0;
};

} // namespace

char16_t decimalCharacter(const ExportFormat &format) {
    if (format.decimalKind == ids::kFilePage.decimalComma) return u',';
    if (format.decimalKind == ids::kFilePage.decimalOwn && !format.ownDecimal.empty()) return format.ownDecimal[0];
    return u'.';
}

std::u16string_view separatorText(const ExportFormat &format) {
    if (format.separatorKind == ids::kFilePage.separatorTab) return u"\t";
    if (format.separatorKind == ids::kFilePage.separatorBlank) return u" ";
    if (format.separatorKind == ids::kFilePage.separatorOwn)
        return std::u16string_view(format.ownSeparator).substr(0, 1);
    return {};
}

int32_t writeExportFile(const ExportWizardState &state) {
    auto statement = exportSelect(state.connection, state.table(), state.fields, state.condition);
    if (!statement) return 2;
    ExportFileSink sink(state);
    return rowset::transferRows(state.connection, statement->c_str(), nullptr, sink);
}

} // namespace tabra::wizards::exporting
