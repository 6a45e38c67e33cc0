// What the add records wizard keeps while it runs: the caller's connection (the
// destination) and its object record, the source connection and table, one mapping
// descriptor per destination column, and the id fields. Made by runAddRecordsWizard
// and dropped before it returns; the choices outlive it in the registry (key
// "AddRecords").
#pragma once

#include "ostrel_wizard.h"
#include "tabra_connection.h"
#include "wizards/add_records/resource_ids.h"
#include "wizards/source_connection.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tabra::wizards::add_records {

// Capacities in characters, the terminator included.
inline constexpr int32_t kTableNameCapacity = 50;
inline constexpr int32_t kIdFieldCapacity = 100;
inline constexpr int32_t kConstantCapacity = 255;

// The registry key below the library's root and its values.
inline constexpr char16_t kRegistryKey[] = u"AddRecords";
inline constexpr char16_t kTableValue[] = u"Table";
inline constexpr char16_t kSourceIdValue[] = u"SourceIdField";
inline constexpr char16_t kDestinationIdValue[] = u"DestIdField";

// One destination column and where its value comes from.
struct FieldDescriptor {
    std::u16string name;     // the destination column
    int32_t type = 0;        // TabraDataType code of the destination column
    int32_t length = 0;
    bool skip = false;       // auto-increment, not updatable or unreadable: never written
    int32_t kind = ids::kValueKind.none;
    std::u16string sourceName; // the source column of kind source
    int32_t sourceType = 0;
    int32_t sourceLength = 0;
    std::optional<std::u16string> value; // the current row's converted value
    std::u16string constant;             // the text of kind constant
    int32_t reserved[2] = {0, 0};

    // Listed in the INSERT and the UPDATE.
    bool written() const { return !skip && kind != ids::kValueKind.none; }
    // Read from the source's SELECT.
    bool selected() const { return kind == ids::kValueKind.source && !sourceName.empty(); }
};

// A source column as the field dialog offers it.
struct SourceColumn {
    std::u16string name;
    int32_t type = 0; // TabraDataType code
    int32_t length = 0;
};

struct AddRecordsWizardState {
    HWIZZARD wizard = 0;
    SQLHDBC connection = SQL_NULL_HDBC; // the destination: the caller's connection
    DbObjectInfo object{};              // DbObjectName: the destination table

    DataSourceInfo sourceRecord{};
    SourceConnection source;
    std::u16string sourceTable;
    int32_t sourceTableKinds = ids::kSourceTablePage.showBoth; // the source table page's radio

    std::vector<FieldDescriptor> fields;
    std::vector<SourceColumn> sourceColumns;

    int32_t idMode = ids::kIdPage.noIds;
    std::u16string sourceIdField, destinationIdField;

    std::u16string destinationTable() const;
    bool matchesIds() const { return idMode == ids::kIdPage.matchIds; }
};

// Rebuilds the mapping list from the destination table's columns with the initial
// mapping by name; false after message 1617 (no columns) or a catalog failure (shown).
bool buildFields(AddRecordsWizardState &state);

} // namespace tabra::wizards::add_records
