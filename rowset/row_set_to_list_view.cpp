// A statement's rows into a report list view: one item per row whose sub-items hold
// the columns in order; with a key flag, column 1 becomes the item's parameter.
#include "rowset/item_data_text.h"
#include "catalog/number_text.h"
#include "rowset/row_set_reader.h"
#include "rowset/row_set_statement.h"
#include "catalog/wait_cursor.h"
#include "ostrel.h"
#include "tabra_rowset.h"
#include "tabra_window.h"

using namespace tabra::catalog;

namespace {

// Characters per value, the terminator included.
constexpr int32_t kValueCapacity = 5000;

} // namespace

extern "C" int32_t OdbcEh_SelectRowSetToListView(int32_t context, SQLHDBC connection, const char16_t *text,
                                                 HWND listView, const char16_t *tolerated, uint32_t flags) {
    if (listView == nullptr || connection == SQL_NULL_HDBC || Ostrel_IsBlankString(text)) return 2;
    RowSetStatement statement(context, connection, text, tolerated);
    auto columns = statement.open();
    if (!columns) return 2;
    SendMessageW(listView, LVM_DELETEALLITEMS, 0, 0);
    WaitCursor wait;
    bool numberKey = (flags & TABRA_ROWSET_KEY_NUMBER) != 0;
    bool textKey = !numberKey && (flags & TABRA_ROWSET_KEY_TEXT) != 0;
    SQLSMALLINT firstShown = numberKey || textKey ? 2 : 1;
    RowSetReader reader(statement.handle(), kValueCapacity);
    FetchedValue value;
    char16_t empty[] = u"";
    int32_t row = 0;
    for (SQLRETURN rc = reader.nextRow(); rc != SQL_NO_DATA; rc = reader.nextRow(), ++row) {
        if (!SQL_SUCCEEDED(rc)) return statement.reportFailure(rc), 2;
        LPARAM param = 0;
        if (firstShown == 2) {
            if (rc = reader.read(1, value); !SQL_SUCCEEDED(rc)) return statement.reportFailure(rc), 2;
            if (numberKey) param = readLong(value.isNull() ? u"" : value.text);
            else if (!value.isNull()) param = itemDataText(value.text, value.length);
        }
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row;
        item.pszText = empty;
        item.lParam = param;
        SendMessageW(listView, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        for (SQLSMALLINT column = firstShown; column <= *columns; ++column) {
            if (rc = reader.read(static_cast<SQLUSMALLINT>(column), value); !SQL_SUCCEEDED(rc))
                return statement.reportFailure(rc), 2;
            LVITEMW cell{};
            cell.iSubItem = column - firstShown;
            cell.pszText = value.isNull() ? empty : const_cast<char16_t *>(value.text);
            SendMessageW(listView, LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&cell));
        }
    }
    return 1;
}
