// A statement's rows into a report list view: one item per row whose sub-items hold
// the columns in order; with a key flag, column 1 becomes the item's parameter.
#include "catalog/number_text.h"
#include "ostrel.h"
#include "rowset/item_data_text.h"
#include "rowset/row_set.h"
#include "rowset/wait_cursor.h"
#include "tabra_rowset.h"
#include "tabra_window.h"

#include <optional>

namespace tabra::rowset {
namespace {

// Characters per value, the terminator included.
constexpr int32_t kValueCapacity = 5000;

class ListViewSink final : public RowSink {
public:
    ListViewSink(HWND listView, uint32_t flags)
        : listView_(listView), numberKey_((flags & TABRA_ROWSET_KEY_NUMBER) != 0),
          textKey_(!numberKey_ && (flags & TABRA_ROWSET_KEY_TEXT) != 0) {}

    int32_t valueCapacity() const override { return kValueCapacity; }

    SQLRETURN begin(SQLHSTMT, SQLSMALLINT) override {
        SendMessageW(listView_, LVM_DELETEALLITEMS, 0, 0);
        wait_.emplace();
        return SQL_SUCCESS;
    }

    SQLRETURN takeRow(RowSetReader &row, SQLSMALLINT columns) override {
        SQLSMALLINT firstShown = numberKey_ || textKey_ ? 2 : 1;
        FetchedValue value;
        LPARAM param = 0;
        if (firstShown == 2) {
            if (SQLRETURN rc = row.read(1, value); !SQL_SUCCEEDED(rc)) return rc;
            if (numberKey_) param = catalog::readLong(value.isNull() ? u"" : value.text);
            else if (!value.isNull()) param = itemDataText(value.text, value.length);
        }
        char16_t empty[] = u"";
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row_;
        item.pszText = empty;
        item.lParam = param;
        SendMessageW(listView_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        for (SQLSMALLINT column = firstShown; column <= columns; ++column) {
            if (SQLRETURN rc = row.read(static_cast<SQLUSMALLINT>(column), value); !SQL_SUCCEEDED(rc)) return rc;
            LVITEMW cell{};
            cell.iSubItem = column - firstShown;
            cell.pszText = value.isNull() ? empty : const_cast<char16_t *>(value.text);
            SendMessageW(listView_, LVM_SETITEMTEXTW, static_cast<WPARAM>(row_), reinterpret_cast<LPARAM>(&cell));
        }
        ++row_;
        return SQL_SUCCESS;
    }

private:
    HWND listView_;
    bool numberKey_;
    bool textKey_;
    int32_t row_ = 0;
    std::optional<WaitCursor> wait_;
};

} // namespace

int32_t selectToListView(SQLHDBC connection, const char16_t *text, HWND listView, const char16_t *tolerated,
                         uint32_t flags) {
    if (listView == nullptr || connection == SQL_NULL_HDBC || Ostrel_IsBlankString(text)) return 2;
    ListViewSink sink(listView, flags);
    return transferRows(connection, text, tolerated, sink);
}

} // namespace tabra::rowset

extern "C" int32_t OdbcEh_SelectRowSetToListView(int32_t, SQLHDBC connection, const char16_t *text,
                                                 HWND listView, const char16_t *tolerated, uint32_t flags) {
    return tabra::rowset::selectToListView(connection, text, listView, tolerated, flags);
}
