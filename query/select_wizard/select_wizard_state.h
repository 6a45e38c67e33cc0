// The select statement wizard's working record and what its dialog does with its boxes:
// refilling the tables and column boxes from the catalog, the enabled states and the
// statement the boxes make.
#pragma once

#include "tabra_query.h"
#include "tabra_window.h"

#include <sql.h>

#include <cstdint>
#include <string>

namespace tabra::query::select_wizard {

inline constexpr int32_t kStatementCapacity = 10000; // the working statement and the box reads
inline constexpr int32_t kSchemaCapacity = 100;
// The flag that lets the user select several tables; without it the tables box keeps one.
inline constexpr int32_t kSeveralTables = TABRA_SELWIZZ_SEVERAL_TABLES;

struct SelectWizardState {
    SQLHDBC connection = SQL_NULL_HDBC;
    int32_t flags = 0;
    int32_t reserved = 0; // the caller's last argument, kept
    std::u16string statement;
    HWND dialog = nullptr;
    HWND tables = nullptr;
    HWND sourceColumns = nullptr;
    HWND chosenColumns = nullptr;
    HWND sortColumn = nullptr;
    std::u16string schema; // the last schema used for the data source
    std::u16string selectedTables; // the tables of the statement last built, tab-separated
};

// The entries of a box joined by tabs: every entry (OSTREL_READ_TEXTS) or the selected
// ones (OSTREL_READ_TEXTS | OSTREL_READ_SELECTED), as the working capacity holds them.
std::u16string readBox(HWND box, uint32_t mode);

// Fills the tables box with the tables of the checked object types in the schema and
// selects the tables selected before, or the first table when none of them is left.
void refillTables(SelectWizardState &state);
// Fills the column source box and the sort box with the columns of the selected tables
// (table.column once several are selected), keeping what was selected where it is left.
void refillColumns(SelectWizardState &state);
// The first entry of a box whose selection is gone: a list box gets the selection of
// entry 0 and then the current selection of entry 1 (only one of the two acts,
// depending on its kind of selection), a combo box the current selection of entry 1.
void selectDefaultEntry(HWND box);

// Enables the column group while all columns is not checked, the buttons of the chosen
// columns by their selection and the sort box while no sort order is not checked.
void updateEnabledStates(const SelectWizardState &state);
// Builds the statement from the boxes into the state (and the tables it reads) and
// shows it.
void rebuildStatement(SelectWizardState &state);

} // namespace tabra::query::select_wizard
