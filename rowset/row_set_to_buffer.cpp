// A statement's rows as the text of a row-set file, delivered into a caller's buffer.
// The text is written in memory, and only what the buffer takes is kept: at most
// capacity - 1 whole characters (a surrogate pair is never split), terminated; the
// rest of the buffer is zeroed.
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "rowset/row_set.h"
#include "rowset/row_set_text.h"
#include "tabra_rowset.h"

#include <algorithm>

namespace tabra::rowset {
namespace {

class MemorySink final : public RowSetTextSink {
public:
    // Keeps one character more than a buffer of capacity takes, so that a cut can
    // tell a whole surrogate pair from half of one.
    MemorySink(const char16_t *fieldSeparator, const char16_t *recordSeparator, uint32_t flags, std::size_t capacity)
        : RowSetTextSink(fieldSeparator, recordSeparator, flags), kept_(capacity) {}

    std::u16string taken() const { return std::u16string(platform::boundedPrefix(text_, kept_)); }

private:
    std::u16string &text() override { return text_; }
    // The rows still run to the end (a failure on the way fails the whole transfer),
    // but what lies past the buffer is not kept.
    bool recordWritten(int32_t) override {
        if (text_.size() > kept_) text_.resize(kept_);
        return false;
    }

    std::size_t kept_;
    std::u16string text_;
};

} // namespace

std::optional<std::u16string> selectToText(SQLHDBC connection, const char16_t *text,
                                           const char16_t *fieldSeparator, const char16_t *recordSeparator,
                                           std::size_t capacity, const char16_t *tolerated, uint32_t flags) {
    if (connection == SQL_NULL_HDBC || Ostrel_IsBlankString(text)) return std::nullopt;
    MemorySink sink(fieldSeparator, recordSeparator, flags, capacity);
    if (transferRows(connection, text, tolerated, sink) != 1) return std::nullopt;
    return sink.taken();
}

int32_t selectToBuffer(SQLHDBC connection, const char16_t *text, const char16_t *fieldSeparator,
                       const char16_t *recordSeparator, char16_t *output, int32_t capacity, const char16_t *tolerated,
                       uint32_t flags) {
    if (output == nullptr || capacity < 3) return 2;
    std::fill(output, output + capacity, u'\0');
    auto rows =
        selectToText(connection, text, fieldSeparator, recordSeparator, static_cast<std::size_t>(capacity), tolerated,
                     flags);
    if (!rows) return 2;
    std::copy(rows->begin(), rows->end(), output);
    return 1;
}

} // namespace tabra::rowset

extern "C" int32_t OdbcEh_SelectRowSetToBuffer(int32_t, SQLHDBC connection, const char16_t *text,
                                               const char16_t *fieldSeparator, const char16_t *recordSeparator,
                                               char16_t *output, int32_t capacity, const char16_t *tolerated,
                                               uint32_t flags) {
    return tabra::rowset::selectToBuffer(connection, text, fieldSeparator, recordSeparator, output, capacity,
                                         tolerated, flags);
}
