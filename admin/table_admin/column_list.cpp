// The column list of the table administration: one row per column of the catalog with
// its type (the name of the column type table's row and the length for types that
// take one), whether it takes null values, its default and its remarks.
#include "admin/table_admin/resource_ids.h"
#include "admin/table_admin/table_admin_request.h"
#include "catalog/catalog_calls.h"
#include "catalog/column_types.h"
#include "core/module/module_state.h"
#include "core/odbc/statement_runner.h"
#include "platform/text/case_folding.h"
#include "rowset/row_set_reader.h"
#include "tabra_catalog.h"

#include <array>
#include <string>

namespace tabra::admin::table_admin {
namespace {

using odbc::RunResult;
using odbc::StatementRunner;

// The catalog columns read for each row (SQLColumns), in increasing order.
enum CatalogColumn : SQLUSMALLINT {
    kColumnName = 4,
    kDataType = 5,
    kColumnSize = 7,
    kNullable = 11,
    kRemarks = 12,
    kDefault = 13,
};
constexpr int32_t kValueCapacity = 1000;
constexpr int32_t kLabelCapacity = 100;

std::u16string resourceString(int32_t id) {
    std::array<char16_t, kLabelCapacity> text{};
    module::LoadTranslatedString(module::resourceLibrary(), id, text.data(), kLabelCapacity);
    return text.data();
}

int32_t number(const std::u16string &text) {
    try {
        return std::stoi(std::string(text.begin(), text.end()));
    } catch (const std::exception &) {
        return 0;
    }
}

// "Text (fixed length)  (50)": the type table's name for the data type, with the size
// for types that take a length.
std::u16string typeText(const std::u16string &dataType, const std::u16string &size) {
    const catalog::ColumnType *type = catalog::findColumnType(Tabra_SqlDataTypeToTabraDataType(number(dataType)));
    if (type == nullptr) return {};
    std::u16string text = resourceString(type->label);
    if (type->needsLength && number(size) >= 1) text += u"  (" + size + u")";
    return text;
}

std::u16string nullabilityText(const std::u16string &nullable) {
    if (nullable == u"0") return resourceString(ids::kString.notNullable);
    if (nullable == u"1") return resourceString(ids::kString.nullable);
    return resourceString(ids::kString.nullabilityUnknown);
}

void insertRow(HWND list, const std::array<std::u16string, 5> &texts) {
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = static_cast<int32_t>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    std::u16string name = texts[0];
    item.pszText = name.data();
    auto row = static_cast<int32_t>(SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    if (row < 0) return;
    for (size_t sub = 1; sub < texts.size(); ++sub) {
        std::u16string text = texts[sub];
        LVITEMW subItem{};
        subItem.iSubItem = static_cast<int32_t>(sub);
        subItem.pszText = text.data();
        SendMessageW(list, LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&subItem));
    }
}

std::u16string itemText(HWND list, int32_t row) {
    std::array<char16_t, kValueCapacity> text{};
    LVITEMW item{};
    item.pszText = text.data();
    item.cchTextMax = kValueCapacity;
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return text.data();
}

void setRowState(HWND list, int32_t row, uint32_t state, uint32_t mask) {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

} // namespace

void fillColumnList(const TableAdminRequest &request) {
    HWND list = request.columns;
    SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
    StatementRunner statement(request.connection, nullptr);
    if (statement.allocate() != RunResult::Done ||
        statement.check(catalog::callColumns(statement.handle(), nullptr, request.table)) != RunResult::Done)
        return;
    const std::optional<SQLSMALLINT> columns = statement.columnCount();
    if (!columns) return;
    rowset::RowSetReader reader(statement.handle(), kValueCapacity, *columns);
    auto read = [&](SQLUSMALLINT column) {
        rowset::FetchedValue value;
        reader.read(column, value);
        return value.isNull() ? std::u16string() : std::u16string(value.text, value.length);
    };
    while (SQL_SUCCEEDED(reader.nextRow())) {
        std::u16string name = read(kColumnName);
        std::u16string dataType = read(kDataType);
        std::u16string size = read(kColumnSize);
        std::u16string nullable = read(kNullable);
        std::u16string remarks = read(kRemarks);
        std::u16string defaultValue = read(kDefault);
        insertRow(list, {name, typeText(dataType, size), nullabilityText(nullable), defaultValue, remarks});
    }
}

std::vector<SelectedColumn> selectedColumns(HWND list) {
    std::vector<SelectedColumn> selected;
    for (auto row = static_cast<int32_t>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
         row >= 0; row = static_cast<int32_t>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED)))
        selected.push_back({row, itemText(list, row)});
    return selected;
}

int32_t selectedCount(HWND list) { return static_cast<int32_t>(SendMessageW(list, LVM_GETSELECTEDCOUNT, 0, 0)); }

void selectRow(HWND list, int32_t row) {
    setRowState(list, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    if (row < 0) return;
    setRowState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), 0);
}

int32_t findColumnRow(HWND list, const std::u16string &name) {
    auto rows = static_cast<int32_t>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int32_t row = 0; row < rows; ++row)
        if (platform::equalIgnoringCase(itemText(list, row), name)) return row;
    return -1;
}

} // namespace tabra::admin::table_admin
