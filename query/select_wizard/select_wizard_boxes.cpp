// The select statement wizard's boxes: tables and columns from the catalog, the
// enabled states and the statement the boxes make.
#include "catalog/field_list.h"
#include "catalog/table_list.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "query/select_wizard/resource_ids.h"
#include "query/select_wizard/select_wizard_state.h"
#include "sqltext/sql92_names.h"
#include "tabra_catalog.h"

#include <vector>

namespace tabra::query::select_wizard {

namespace {

constexpr const auto &kIds = ids::kSelectWizardDialog;

constexpr int32_t kBoxListCapacity = 30000; // a catalog list for a box

// The object type check boxes and the table types each stands for.
struct ObjectTypeBox {
    int32_t control;
    int32_t typeFlag;
};
constexpr ObjectTypeBox kObjectTypeBoxes[] = {
    {kIds.tables, TABRA_TABLE_TYPE_TABLE},
    {kIds.views, TABRA_TABLE_TYPE_VIEW},
    {kIds.systemTables, TABRA_TABLE_TYPE_SYSTEM_TABLE},
    {kIds.aliases, TABRA_TABLE_TYPE_ALIAS},
    {kIds.synonyms, TABRA_TABLE_TYPE_SYNONYM},
    {kIds.allTypes, TABRA_TABLE_TYPE_ALL},
};

bool checked(HWND dialog, int32_t control) { return IsDlgButtonChecked(dialog, control) == BST_CHECKED; }

void enable(HWND dialog, int32_t control, bool enabled) { EnableWindow(GetDlgItem(dialog, control), enabled); }

int32_t typeMask(HWND dialog) {
    int32_t mask = 0;
    for (const ObjectTypeBox &box : kObjectTypeBoxes)
        if (checked(dialog, box.control)) mask |= box.typeFlag;
    return mask;
}

// Fills a column box with the columns of the selected tables, keeping its selection.
void refillColumnBox(const SelectWizardState &state, HWND box) {
    const std::u16string remembered = readBox(box, OSTREL_READ_TEXTS | OSTREL_READ_SELECTED);
    const std::u16string tables = readBox(state.tables, OSTREL_READ_TEXTS | OSTREL_READ_SELECTED);
    const int32_t flags = tables.find(u'\t') != std::u16string::npos ? TABRA_FIELDS_QUALIFY : 0;
    Ostrel_FillBox(box, u'\t', nullptr);
    if (const auto list = catalog::fieldList(state.connection, tables.c_str(), flags, u"\t", kBoxListCapacity))
        Ostrel_FillBox(box, u'\t', list->c_str());
    if (platform::isBlank(remembered) || Ostrel_SelectBoxEntries(box, u'\t', remembered.c_str(), 0) < 1)
        selectDefaultEntry(box);
}

} // namespace

std::u16string readBox(HWND box, uint32_t mode) {
    std::vector<char16_t> text(kStatementCapacity, u'\0');
    Ostrel_ReadBox(box, u'\t', mode, text.data(), kStatementCapacity);
    return text.data();
}

void selectDefaultEntry(HWND box) {
    if (Ostrel_IsListBox(box) != 0) {
        SendMessageW(box, LB_SETSEL, TRUE, 0);
        SendMessageW(box, LB_SETCURSEL, 1, 0);
    } else {
        SendMessageW(box, CB_SETCURSEL, 1, 0);
    }
}

void refillTables(SelectWizardState &state) {
    const std::u16string remembered = readBox(state.tables, OSTREL_READ_TEXTS | OSTREL_READ_SELECTED);
    if (const auto list = catalog::tableList(state.connection, typeMask(state.dialog), state.schema.c_str(),
                                             TABRA_QUALIFY_SCHEMA, kBoxListCapacity, u"\t"))
        Ostrel_FillBox(state.tables, u'\t', list->c_str());
    if (platform::isBlank(remembered) || Ostrel_SelectBoxEntries(state.tables, u'\t', remembered.c_str(), 0) < 1)
        selectDefaultEntry(state.tables);
}

void refillColumns(SelectWizardState &state) {
    refillColumnBox(state, state.sourceColumns);
    refillColumnBox(state, state.sortColumn);
}

void updateEnabledStates(const SelectWizardState &state) {
    const HWND dialog = state.dialog;
    const bool columns = !checked(dialog, kIds.allColumns);
    for (int32_t control : {kIds.sourceLabel, kIds.sourceColumns, kIds.chosenLabel, kIds.chosenColumns})
        enable(dialog, control, columns);
    enable(dialog, kIds.add, columns && Ostrel_GetBoxIndex(state.sourceColumns) >= 0);
    const int32_t chosen = Ostrel_GetBoxIndex(state.chosenColumns);
    enable(dialog, kIds.remove, columns && chosen >= 0);
    enable(dialog, kIds.up, columns && chosen >= 1);
    enable(dialog, kIds.down, columns && chosen >= 0 && chosen < Ostrel_GetBoxCount(state.chosenColumns) - 1);
    enable(dialog, kIds.sortColumn, !checked(dialog, kIds.noSort));
}

void rebuildStatement(SelectWizardState &state) {
    std::u16string text = u"SELECT ";
    const std::u16string columns = readBox(state.chosenColumns, OSTREL_READ_TEXTS);
    if (!checked(state.dialog, kIds.allColumns) && !platform::isBlank(columns))
        text += sqltext::prepareNameList(state.connection, columns, kStatementCapacity, u'\t', u',');
    else
        text += u"*";
    const std::u16string tables = readBox(state.tables, OSTREL_READ_TEXTS | OSTREL_READ_SELECTED);
    state.selectedTables = tables;
    if (!platform::isBlank(tables)) {
        text += u" FROM ";
        text += sqltext::prepareNameList(state.connection, tables, kStatementCapacity, u'\t', u',');
    }
    const std::u16string sort = readBox(state.sortColumn, OSTREL_READ_TEXTS | OSTREL_READ_SELECTED);
    if (!platform::isBlank(sort) && !checked(state.dialog, kIds.noSort)) {
        text += u" ORDER BY ";
        text += sqltext::prepareNameForSql92(state.connection, sort.c_str(), kStatementCapacity);
    }
    state.statement = text.substr(0, kStatementCapacity - 1);
    SetDlgItemTextW(state.dialog, kIds.statement, state.statement.c_str());
}

} // namespace tabra::query::select_wizard
