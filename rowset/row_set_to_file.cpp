// A statement's rows written to a delimited UTF-16LE file. The file replaces the
// target only when the transfer succeeds (an abort by the user is a success with the
// records written so far); any failure leaves no file behind and an existing file as
// it was.
#include "core/diagnostics/file_error_report.h"
#include "ostrel.h"
#include "platform/files/replacing_file.h"
#include "platform/text/utf_conversion.h"
#include "rowset/row_set.h"
#include "rowset/row_set_progress.h"
#include "rowset/row_set_text.h"
#include "tabra_rowset.h"

#include <memory>

namespace tabra::rowset {
namespace {

// Progress is shown after every this many records.
constexpr int32_t kProgressStep = 100;

class FileSink final : public RowSetTextSink {
public:
    FileSink(const char16_t *fieldSeparator, const char16_t *recordSeparator, const char16_t *fileName,
             uint32_t flags, int32_t expected)
        : RowSetTextSink(fieldSeparator, recordSeparator, flags), fileName_(fileName), expected_(expected) {}

    bool open() override {
        if (int error = file_.open(platform::toUtf8(fileName_)); error != 0) {
            diagnostics::reportFileError(error, fileName_);
            return false;
        }
        return true;
    }

    bool finish() override {
        if (fileError_ == 0) {
            progress_.reset(); // the indicator goes before the file is put in place
            fileError_ = file_.commit();
        }
        if (fileError_ == 0) return true;
        diagnostics::reportFileError(fileError_, fileName_);
        return false;
    }

private:
    std::u16string &text() override { return file_.buffer(); }

    void starting() override {
        progress_ = std::make_unique<RowSetProgress>((flags() & TABRA_ROWSET_PROGRESS) != 0, expected_);
    }

    // A full buffer is written out; at every progress step the indicator moves and the
    // user may abort.
    bool recordWritten(int32_t before) override {
        if ((fileError_ = file_.flushIfFull()) != 0) return true;
        return progress_->shown() && before % kProgressStep == 0 && progress_->update(before + 1);
    }

    const char16_t *fileName_;
    int32_t expected_;
    platform::ReplacingFile file_;
    std::unique_ptr<RowSetProgress> progress_;
    int fileError_ = 0;
};

} // namespace

int32_t selectToFile(SQLHDBC connection, const char16_t *text, const char16_t *fieldSeparator,
                     const char16_t *recordSeparator, const char16_t *fileName, int32_t *rowCount,
                     const char16_t *tolerated, uint32_t flags) {
    if (Ostrel_IsBlankString(fileName) || connection == SQL_NULL_HDBC || Ostrel_IsBlankString(text)) return 2;
    int32_t expected = rowCount != nullptr ? *rowCount : 0;
    if (rowCount != nullptr) *rowCount = 0;
    FileSink sink(fieldSeparator, recordSeparator, fileName, flags, expected);
    if (transferRows(connection, text, tolerated, sink) != 1) return 2;
    if (rowCount != nullptr) *rowCount = sink.written();
    return 1;
}

} // namespace tabra::rowset

extern "C" int32_t OdbcEh_SelectRowSetToFile(int32_t, SQLHDBC connection, const char16_t *text,
                                             const char16_t *fieldSeparator, const char16_t *recordSeparator,
                                             const char16_t *fileName, int32_t *rowCount, const char16_t *tolerated,
                                             uint32_t flags) {
    return tabra::rowset::selectToFile(connection, text, fieldSeparator, recordSeparator, fileName, rowCount,
                                       tolerated, flags);
}
