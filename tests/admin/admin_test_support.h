// Shared pieces of the table administration tests: what the main dialog shows when a
// script callback looks at it, the columns the key chooser offers, and texts of the
// resource library. (Header only.)
#pragma once

#include "admin/table_admin/resource_ids.h"
#include "catalog/catalog_test_support.h"
#include "ostrel_ui.h"
#include "support/scoped_environment.h"

namespace tabra::test {

// The list's rows (column name, type, null values, default, remarks), the selected
// rows and the two displays.
struct TableAdminView {
    std::vector<std::vector<std::u16string>> rows;
    std::vector<int32_t> selected;
    std::u16string key, autoIncrement;

    std::vector<std::u16string> names() const {
        std::vector<std::u16string> names;
        for (const auto &row : rows) names.push_back(row[0]);
        return names;
    }
};

inline std::u16string controlText(HWND dialog, int32_t control) {
    char16_t text[1000] = {};
    GetDlgItemTextW(dialog, control, text, 1000);
    return text;
}

// A script callback on the main dialog: appends what it shows to a vector of views.
inline void lookAtTableAdmin(HWND dialog, void *views) {
    using admin::table_admin::ids::kTableAdminDialog;
    HWND list = GetDlgItem(dialog, kTableAdminDialog.columns);
    TableAdminView view;
    auto rows = static_cast<int32_t>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int32_t row = 0; row < rows; ++row) {
        auto &texts = view.rows.emplace_back();
        for (int32_t sub = 0; sub < 5; ++sub) texts.emplace_back(listViewText(list, row, sub));
        if (SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) & LVIS_SELECTED)
            view.selected.push_back(row);
    }
    view.key = controlText(dialog, kTableAdminDialog.keyColumns);
    view.autoIncrement = controlText(dialog, kTableAdminDialog.autoIncrementColumn);
    static_cast<std::vector<TableAdminView> *>(views)->push_back(std::move(view));
}

// A script callback on the key chooser: the columns it offers.
inline void readAvailableColumns(HWND dialog, void *columns) {
    HWND list = GetDlgItem(dialog, admin::table_admin::ids::kAddPrimaryKeyDialog.available);
    auto *names = static_cast<std::vector<std::u16string> *>(columns);
    for (int32_t i = 0; i < Ostrel_GetBoxCount(list); ++i) {
        char16_t name[200] = {};
        Ostrel_GetBoxEntry(list, i, name, 200);
        names->emplace_back(name);
    }
}

// A statement without its identifier quotes, to compare with what it should say
// whichever names the database wants quoted.
inline std::u16string unquoted(std::u16string statement) {
    std::erase_if(statement, [](char16_t c) { return c == u'"' || c == u'`'; });
    return statement;
}

} // namespace tabra::test
