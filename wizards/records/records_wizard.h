// The update and delete records wizards: the state both share and the run of either.
//
// The delete wizard: table (10043), condition (10041), summary (10044); Finish runs
// "DELETE from <table> WHERE (<condition>)" after the frame has closed. The update
// wizard: table (10046), condition (10045), assignments (10048), confirmation (10049),
// result (10047); leaving the confirmation page runs "UPDATE <table> SET <assignments>
// WHERE (<condition>)" inside the frame, so after a failure the user can go back and
// change his input. Conditions and assignments are descriptors (query/), shown in and
// read from the pages' condition rows.
#pragma once

#include "core/dialogs/dialog.h"
#include "ostrel_wizard.h"
#include "tabra_connection.h"

#include <sql.h>

#include <cstdint>
#include <span>
#include <string>

namespace tabra::wizards::records {

// Characters the condition, the assignments and the column list may hold.
inline constexpr int32_t kTextCapacity = 10000;
// Characters of the record's table name, its terminator included.
inline constexpr int32_t kTableNameCapacity = sizeof DbObjectInfo{}.DbObjectName / sizeof(char16_t);

enum class Operation { Delete, Update };

struct RecordsWizard {
    Operation operation = Operation::Delete;
    HWIZZARD wizard = 0;
    SQLHDBC connection = SQL_NULL_HDBC;
    DbObjectInfo object{};       // the caller's record, copied whole; its name is the table
    int32_t callerValue = 0;     // kept, not used
    std::u16string loadedTable;  // delete: the table whose columns were loaded last
    std::u16string condition;    // the selection descriptor
    std::u16string assignments;  // update: the operation descriptor
    std::u16string columns;      // the table's columns with their types, tab-separated
    int32_t count = 0;           // update: the records the condition selects

    std::u16string table() const;
    void setTable(std::u16string_view name); // cut to the record's 50 characters
    // Reads the table's columns with their ODBC types into columns (empty after a
    // failure, which has been shown).
    void loadColumns();
};


// What the entry points share: the state made (message 1600 and 2 when it cannot be),
// the caller's record copied in, the frame run on the page table with the wizard's
// picture and title, the delete statement run after Finish, and on 1 the record copied
// back.
int32_t runRecordsWizard(Operation operation, SQLHDBC connection, DbObjectInfo *object, int32_t callerValue,
                         const int32_t *pageTable, WIZZARDPROC procedure);

// The two wizards for the library's other tools (Tabra_DeleteRecordsWizzard and
// Tabra_UpdateRecordsWizzard are the exported shells over them).
int32_t runDeleteRecordsWizard(SQLHDBC connection, DbObjectInfo *object, int32_t callerValue = 0);
int32_t runUpdateRecordsWizard(SQLHDBC connection, DbObjectInfo *object, int32_t callerValue = 0);

} // namespace tabra::wizards::records
