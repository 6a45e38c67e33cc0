// What the export wizard keeps while it runs: the caller's connection and database
// object record, the fields of the chosen table, the condition and the number of
// records it selects, the file and its format. Made by Tabra_ExportWizzard and
// dropped before it returns; only the file name outlives it, in the registry.
#pragma once

#include "ostrel_wizard.h"
#include "tabra_connection.h"
#include "wizards/export/export_fields.h"
#include "wizards/export/resource_ids.h"

#include <cstdint>
#include <string>

namespace tabra::wizards::exporting {

// Capacities in characters, the terminator included, as the wizard's buffers have them.
inline constexpr int32_t kTableNameCapacity = 50;   // DbObjectName
inline constexpr int32_t kLoadedTableCapacity = 300;
inline constexpr int32_t kConditionCapacity = 10000;
inline constexpr int32_t kFieldNameListCapacity = 10000;
inline constexpr int32_t kFileNameCapacity = 300;
inline constexpr int32_t kOwnCharacterCapacity = 10; // own separator, own decimal character

// Where the last file name is kept: "FileName" in the key "Export" below the library's root.
inline constexpr char16_t kRegistryKey[] = u"Export";
inline constexpr char16_t kFileNameValue[] = u"FileName";

// How the file is written, as the file page sets it. The kinds are the ids of the
// page's checked radio buttons.
struct ExportFormat {
    bool headerLine = true;
    int32_t valueForm = ids::kFilePage.valuesAsText; // either form writes the value text as it stands
    int32_t separatorKind = ids::kFilePage.separatorTab;
    std::u16string ownSeparator; // only its first character is used
    int32_t decimalKind = ids::kFilePage.decimalComma;
    std::u16string ownDecimal; // only its first character is used
    char16_t leadingDelimiter = 0; // 0: none
    char16_t trailingDelimiter = 0;
};

struct ExportWizardState {
    HWIZZARD wizard = 0;
    SQLHDBC connection = SQL_NULL_HDBC;
    DbObjectInfo object{}; // the caller's record, copied whole
    int32_t callerValue = 0;
    ExportFieldList fields;
    std::u16string loadedTable; // the table whose fields are in the list
    std::u16string condition;   // selection descriptor
    std::u16string fieldNames;  // "name\ttype\tname\ttype..." for the condition page
    int32_t recordCount = 0;    // records the condition selects
    std::u16string fileName;
    ExportFormat format;

    // The chosen table: the record's DbObjectName.
    std::u16string table() const;
};

} // namespace tabra::wizards::exporting
