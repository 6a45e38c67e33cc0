// A statement's rows into a list box or combo box: column 1 is the entry's text and a
// second column, when there is one and it is not NULL, its item data.
#include "catalog/number_text.h"
#include "ostrel.h"
#include "rowset/item_data_text.h"
#include "rowset/row_set.h"
#include "rowset/wait_cursor.h"
#include "tabra_rowset.h"

#include <optional>
#include <string>

namespace tabra::rowset {
namespace {

// Characters per value, the terminator included.
constexpr int32_t kValueCapacity = 1000;

class BoxSink final : public RowSink {
public:
    BoxSink(HWND box, int8_t flags) : box_(box), textData_(flags < 0) {} // bit 0x80: item data as text

    int32_t valueCapacity() const override { return kValueCapacity; }

    SQLRETURN begin(SQLHSTMT, SQLSMALLINT) override {
        Ostrel_ResetBox(box_);
        wait_.emplace();
        return SQL_SUCCESS;
    }

    SQLRETURN takeRow(RowSetReader &row, SQLSMALLINT columns) override {
        FetchedValue value;
        if (SQLRETURN rc = row.read(1, value); !SQL_SUCCEEDED(rc)) return rc;
        entry_.assign(value.text != nullptr ? value.text : u"", value.length);
        LPARAM data = 0;
        if (columns >= 2) {
            if (SQLRETURN rc = row.read(2, value); !SQL_SUCCEEDED(rc)) return rc;
            if (!value.isNull())
                data = textData_ ? itemDataText(value.text, value.length) : catalog::readLong(value.text);
        }
        Ostrel_AddBoxEntry(box_, entry_.c_str(), data, -1, 0);
        return SQL_SUCCESS;
    }

private:
    HWND box_;
    bool textData_;
    std::u16string entry_;
    std::optional<WaitCursor> wait_;
};

} // namespace

int32_t selectToBox(SQLHDBC connection, const char16_t *text, HWND box, const char16_t *tolerated, int8_t flags) {
    if (box == nullptr || connection == SQL_NULL_HDBC || Ostrel_IsBlankString(text)) return 2;
    BoxSink sink(box, flags);
    return transferRows(connection, text, tolerated, sink);
}

} // namespace tabra::rowset

extern "C" int32_t OdbcEh_SelectRowSetToBox(int32_t, SQLHDBC connection, const char16_t *text, HWND box,
                                            const char16_t *tolerated, int8_t flags) {
    return tabra::rowset::selectToBox(connection, text, box, tolerated, flags);
}
