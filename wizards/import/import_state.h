// What the import wizard keeps while it runs: the caller's connection, the source kind
// and each kind's choices, the source connection of a table source, the fields and
// where they were read from, and the new table's name. Made by Tabra_ImportTableWizzard
// and dropped before it returns; the choices outlive it in the registry (key "Import").
#pragma once

#include "ostrel_wizard.h"
#include "tabra_connection.h"
#include "wizards/import/import_fields.h"
#include "wizards/import/resource_ids.h"
#include "wizards/import/telfax_converter.h"
#include "wizards/import/text_format.h"
#include "wizards/source_connection.h"

#include <cstdint>
#include <string>

namespace tabra::wizards::importing {

// Capacities in characters, the terminator included, as the wizard's buffers have them.
inline constexpr int32_t kTableNameCapacity = 50;
inline constexpr int32_t kFileNameCapacity = 300;
inline constexpr int32_t kOwnCharacterCapacity = 10; // own separator, own decimal character

// The registry key below the library's root and its values.
inline constexpr char16_t kRegistryKey[] = u"Import";
inline constexpr char16_t kTypeValue[] = u"Type";
inline constexpr char16_t kTableValue[] = u"Table";
inline constexpr char16_t kTextFileValue[] = u"TextFile";
inline constexpr char16_t kSdiFileValue[] = u"SdiFile";
inline constexpr char16_t kSelectionFileValue[] = u"SelFile";

struct ImportWizardState {
    HWIZZARD wizard = 0;
    SQLHDBC connection = SQL_NULL_HDBC; // the destination: the caller's connection
    int32_t sourceKind = ids::kSourceKindPage.table;

    std::u16string textFile, sdiFile, selectionFile;
    TextFormat textFormat;
    TelFaxSettings converter;      // as the registry has it; "on" as the SDI page sets it
    TelFaxSettings usedConverter;  // as the SDI file's fields were read (off without pairs)
    std::size_t sdiFileFields = 0; // the SDI file's own fields (the kinds follow them)

    DataSourceInfo sourceRecord{};
    SourceConnection source;
    std::u16string sourceTable;

    ImportFieldList fields;
    std::u16string fieldsReadFrom; // the source kind and signature of the last reading
    std::u16string table;          // the new table
    std::u16string tableProposedFor; // the reading the proposed table name was made for

    // The file of the chosen file kind (empty for a table source).
    const std::u16string &sourceFile() const;
};

} // namespace tabra::wizards::importing
