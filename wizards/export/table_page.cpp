// Page 1 of the export wizard: the table. Leaving it loads the table's fields, unless
// the same table (in any letter case) is chosen again, whose headings and choices stay;
// the file name takes the table's name in the folder of the last file.
#include "catalog/field_list.h"
#include "catalog/table_list.h"
#include "ostrel.h"
#include "platform/text/case_folding.h"
#include "tabra_catalog.h"
#include "wizards/export/export_pages.h"
#include "wizards/resource_ids.h"

namespace tabra::wizards::exporting {
namespace {

constexpr int32_t kTableListCapacity = 30000;

HWND tableList(HWND page) { return GetDlgItem(page, ids::kTablePage.tables); }

void takeSelectedTable(HWND page, ExportWizardState &state) {
    Ostrel_GetBoxEntry(tableList(page), -1, state.object.DbObjectName, kTableNameCapacity);
}

// The tables of the record's kinds, the record's table chosen (else the first).
void showTables(HWND page, ExportWizardState &state) {
    HWND list = tableList(page);
    Ostrel_FillBox(list, u'\t', nullptr);
    if (auto tables = catalog::tableList(state.connection, state.object.DbObjectType, nullptr, 0, kTableListCapacity,
                                         u"\t"))
        Ostrel_FillBox(list, u'\t', tables->c_str());
    int32_t found = Ostrel_FindBoxEntry(list, state.table().c_str(), 0, 0);
    Ostrel_SetBoxIndex(list, found >= 0 ? found : 0);
}

void tableChosen(HWND page, ExportWizardState &state, int32_t) { takeSelectedTable(page, state); }

// The file part of the file name becomes "<table>.txt"; the folder stays.
std::u16string fileNameFor(const std::u16string &previous, const std::u16string &table) {
    auto slash = previous.find_last_of(u'/');
    return (slash == std::u16string::npos ? std::u16string() : previous.substr(0, slash + 1)) + table + u".txt";
}

dialogs::PageAnswer leave(HWND page, ExportWizardState &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    if (Ostrel_GetBoxIndex(tableList(page)) < 0) {
        ShowMessage(wizards::ids::kMessage.nothingChosen, nullptr, nullptr, nullptr);
        SetFocus(tableList(page));
        return dialogs::PageAnswer::Stay;
    }
    takeSelectedTable(page, state);
    const std::u16string table = state.table();
    if (!platform::equalIgnoringCase(table, state.loadedTable) && !state.fields.load(state.connection, table))
        return dialogs::PageAnswer::Stay;
    state.fieldNames = catalog::fieldList(state.connection, table.c_str(), TABRA_FIELDS_WITH_TYPE, u"\t",
                                          kFieldNameListCapacity)
                           .value_or(u"");
    state.loadedTable = table.substr(0, kLoadedTableCapacity - 1);
    state.fileName = fileNameFor(state.fileName, table).substr(0, kFileNameCapacity - 1);
    return dialogs::PageAnswer::GoOn;
}

constexpr dialogs::Command<ExportWizardState> kCommands[] = {{ids::kTablePage.tables, LBN_SELCHANGE, tableChosen}};

} // namespace

extern const dialogs::Dialog<ExportWizardState> kTablePageDialog{
    .commands = kCommands, .entered = showTables, .left = leave};

} // namespace tabra::wizards::exporting
