// A statement's rows into a list box or combo box: column 1 is the entry's text and a
// second column, when there is one and it is not NULL, its item data.
#include "rowset/item_data_text.h"
#include "catalog/number_text.h"
#include "rowset/row_set_reader.h"
#include "rowset/row_set_statement.h"
#include "catalog/wait_cursor.h"
#include "ostrel.h"
#include "tabra_rowset.h"

#include <string>

using namespace tabra::catalog;

namespace {

// Characters per value, the terminator included.
constexpr int32_t kValueCapacity = 1000;

} // namespace

extern "C" int32_t OdbcEh_SelectRowSetToBox(int32_t context, SQLHDBC connection, const char16_t *text, HWND box,
                                            const char16_t *tolerated, int8_t flags) {
    if (box == nullptr || connection == SQL_NULL_HDBC || Ostrel_IsBlankString(text)) return 2;
    RowSetStatement statement(context, connection, text, tolerated);
    auto columns = statement.open();
    if (!columns) return 2;
    Ostrel_ResetBox(box);
    WaitCursor wait;
    bool textData = flags < 0; // bit 0x80
    RowSetReader reader(statement.handle(), kValueCapacity);
    FetchedValue value;
    std::u16string entry;
    for (SQLRETURN rc = reader.nextRow(); rc != SQL_NO_DATA; rc = reader.nextRow()) {
        if (SQL_SUCCEEDED(rc)) rc = reader.read(1, value);
        if (!SQL_SUCCEEDED(rc)) {
            statement.reportFailure(rc);
            return 2;
        }
        entry.assign(value.text != nullptr ? value.text : u"", value.length);
        LPARAM data = 0;
        if (*columns >= 2) {
            if (rc = reader.read(2, value); !SQL_SUCCEEDED(rc)) {
                statement.reportFailure(rc);
                return 2;
            }
            if (!value.isNull()) data = textData ? itemDataText(value.text, value.length) : readLong(value.text);
        }
        Ostrel_AddBoxEntry(box, entry.c_str(), data, -1, 0);
    }
    return 1;
}
