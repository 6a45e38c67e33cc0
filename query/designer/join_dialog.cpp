// The join dialog: one table of the statement with its alias and its join (type,
// left column, comparison, right column). The left column is chosen from the columns
// of the other tables of the statement, the right one from the table's own; the line
// at the bottom shows what the table adds to the FROM clause.
#include "core/dialogs/dialog.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "platform/text/case_folding.h"
#include "query/alias_alphabet.h"
#include "query/designer/design_editing.h"
#include "query/designer/designer_state.h"
#include "query/designer/join_tables.h"
#include "query/designer/statement_generation.h"
#include "query/resource_ids.h"
#include "tabra_connection.h"
#include "tabra_designer.h"

#include <algorithm>
#include <vector>

namespace tabra::query::designer {

namespace {

using ids::kDesignerJoinDialog;

struct JoinEdit {
    DesignerState &designer;
    size_t index;
    std::u16string shownQualifier; // the qualifier of the right column box's entries
};

// The entry of a drop-down list's chosen code.
int32_t chosenCode(HWND dialog, int32_t id) { return static_cast<int32_t>(Ostrel_GetItemData(GetDlgItem(dialog, id), -1)); }

template <class Entry> void fillCodes(HWND dialog, int32_t id, std::span<const Entry> entries, int32_t chosen) {
    HWND box = GetDlgItem(dialog, id);
    Ostrel_ResetBox(box);
    for (const Entry &entry : entries) {
        int32_t at = Ostrel_AddBoxEntry(box, designerText(entry.labelId).c_str(), entry.code, -1, 0);
        if (entry.code == chosen) Ostrel_SetBoxIndex(box, at);
    }
}

void fillColumns(HWND dialog, int32_t id, const std::vector<OfferedColumn> &columns) {
    HWND box = GetDlgItem(dialog, id);
    std::u16string kept = controlText(dialog, id);
    Ostrel_ResetBox(box);
    for (const OfferedColumn &column : columns) Ostrel_AddBoxEntry(box, column.expression.c_str(), column.type, -1, 0);
    showInBox(dialog, id, kept);
}

// The entry as the dialog shows it.
TableEntry shownEntry(HWND dialog) {
    TableEntry entry;
    entry.name = controlText(dialog, kDesignerJoinDialog.table);
    entry.alias = controlText(dialog, kDesignerJoinDialog.alias);
    entry.joinType = joinTypeOf(chosenCode(dialog, kDesignerJoinDialog.joinType)).code;
    entry.comparison = comparisonOf(chosenCode(dialog, kDesignerJoinDialog.comparison)).code;
    entry.leftColumn = controlText(dialog, kDesignerJoinDialog.leftColumn);
    entry.rightColumn = controlText(dialog, kDesignerJoinDialog.rightColumn);
    for (std::u16string *text : {&entry.name, &entry.alias, &entry.leftColumn, &entry.rightColumn})
        if (platform::isBlank(*text)) text->clear();
    return entry;
}

// The right column box offers the table's own columns under its qualifier; a column
// chosen under the former qualifier follows it.
void showOwnColumns(HWND dialog, JoinEdit &edit) {
    TableEntry entry = shownEntry(dialog);
    std::u16string qualifier = qualifierOf(entry);
    std::u16string right = entry.rightColumn;
    if (qualifier != edit.shownQualifier && namesQualifier(right, edit.shownQualifier))
        showInBox(dialog, kDesignerJoinDialog.rightColumn, qualifier + right.substr(edit.shownQualifier.size()));
    edit.shownQualifier = qualifier;
    fillColumns(dialog, kDesignerJoinDialog.rightColumn,
                columnsOfTable(edit.designer.design, entry, edit.designer.catalog.lookup(), false));
}

// The join condition is asked for only while the table is joined.
void showJoin(HWND dialog, JoinEdit &) {
    TableEntry entry = shownEntry(dialog);
    bool joined = entry.joinType != kPlainTable;
    for (int32_t id : {kDesignerJoinDialog.leftColumn, kDesignerJoinDialog.comparison, kDesignerJoinDialog.rightColumn})
        EnableWindow(GetDlgItem(dialog, id), joined);
    SetDlgItemTextW(dialog, kDesignerJoinDialog.preview, tableItem(entry).c_str());
}

void initialise(HWND dialog, JoinEdit &edit) {
    QueryDesign &design = edit.designer.design;
    const TableEntry &entry = design.tables[edit.index];
    HWND tables = GetDlgItem(dialog, kDesignerJoinDialog.table);
    for (const std::u16string &name : edit.designer.catalog.tables(design.schema))
        Ostrel_AddBoxEntry(tables, name.c_str(), 0, -1, 0);
    showInBox(dialog, kDesignerJoinDialog.table, entry.name);
    SendDlgItemMessageW(dialog, kDesignerJoinDialog.alias, EM_LIMITTEXT, kAliasLength, 0);
    SetDlgItemTextW(dialog, kDesignerJoinDialog.alias, entry.alias.c_str());
    fillCodes(dialog, kDesignerJoinDialog.joinType, joinTypes(), entry.joinType);
    fillCodes(dialog, kDesignerJoinDialog.comparison, comparisons(), entry.comparison);
    fillColumns(dialog, kDesignerJoinDialog.leftColumn,
                offeredColumns(design, edit.designer.catalog.lookup(), false, edit.index));
    showInBox(dialog, kDesignerJoinDialog.leftColumn, entry.leftColumn);
    showInBox(dialog, kDesignerJoinDialog.rightColumn, entry.rightColumn);
    edit.shownQualifier = qualifierOf(entry);
    showOwnColumns(dialog, edit);
    showJoin(dialog, edit);
}

void tableChanged(HWND dialog, JoinEdit &edit, int32_t) {
    showOwnColumns(dialog, edit);
    showJoin(dialog, edit);
}

void aliasChanged(HWND dialog, JoinEdit &edit, int32_t control) {
    takeBackForeignCharacter(dialog, control);
    tableChanged(dialog, edit, control);
}

void joinChanged(HWND dialog, JoinEdit &edit, int32_t) { showJoin(dialog, edit); }

bool accept(HWND dialog, JoinEdit &edit) {
    QueryDesign &design = edit.designer.design;
    TableEntry entry = shownEntry(dialog);
    if (entry.name.empty()) {
        ShowMessage(ids::kDesignerMessage.noTable, nullptr, nullptr, nullptr);
        SetFocus(GetDlgItem(dialog, kDesignerJoinDialog.table));
        return false;
    }
    std::u16string qualifier = qualifierOf(entry);
    for (size_t i = 0; i < design.tables.size(); ++i) {
        if (i == edit.index || !platform::equalIgnoringCase(qualifierOf(design.tables[i]), qualifier)) continue;
        ShowMessage(ids::kDesignerMessage.aliasTaken, qualifier.c_str(), nullptr, nullptr);
        SetFocus(GetDlgItem(dialog, kDesignerJoinDialog.alias));
        return false;
    }
    std::u16string former = qualifierOf(design.tables[edit.index]);
    design.tables[edit.index] = std::move(entry);
    if (former != qualifier) renameQualifier(design, former, qualifier);
    return true;
}

constexpr tabra::dialogs::Command<JoinEdit> kCommands[] = {
    {kDesignerJoinDialog.table, CBN_SELCHANGE, tableChanged},
    {kDesignerJoinDialog.table, CBN_EDITCHANGE, tableChanged},
    {kDesignerJoinDialog.alias, EN_CHANGE, aliasChanged},
    {kDesignerJoinDialog.joinType, CBN_SELCHANGE, joinChanged},
    {kDesignerJoinDialog.comparison, CBN_SELCHANGE, joinChanged},
    {kDesignerJoinDialog.leftColumn, CBN_SELCHANGE, joinChanged},
    {kDesignerJoinDialog.leftColumn, CBN_EDITCHANGE, joinChanged},
    {kDesignerJoinDialog.rightColumn, CBN_SELCHANGE, joinChanged},
    {kDesignerJoinDialog.rightColumn, CBN_EDITCHANGE, joinChanged},
};
constexpr tabra::dialogs::Dialog<JoinEdit> kDialog{.initialise = initialise, .accept = accept, .commands = kCommands};

} // namespace

bool editTable(HWND owner, DesignerState &state, size_t index) {
    if (index >= state.design.tables.size()) return false;
    TableEntry before = state.design.tables[index];
    JoinEdit edit{state, index, {}};
    if (tabra::dialogs::runModal(kDesignerJoinDialog.id, SelFactTable_Dialog_Callback, edit, owner) != IDOK) return false;
    return !(state.design.tables[index] == before);
}

} // namespace tabra::query::designer

extern "C" INT_PTR SelFactTable_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::query::designer::kDialog.answer(dialog, message, wParam, lParam);
}
