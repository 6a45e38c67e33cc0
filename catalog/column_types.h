// The column type table the create table wizard, the import wizard and the table
// administration share: the types a user chooses for a new column, with the name shown
// for each, whether it takes a length, whether it may be the auto-increment column, and
// the column type it is written as. The connected database may write a type its own way
// (core/connection/capabilities.h, typePatterns); columnTypeText() applies that.
#pragma once

#include "catalog/resource_ids.h"
#include "core/connection/capabilities.h"
#include "tabra_catalog.h"

#include <array>
#include <cstdint>
#include <string>

namespace tabra::catalog {

struct ColumnType {
    int32_t tabraDataType = 0;     // TabraDataType code; 0 ends the table
    int32_t label = 0;             // string id of the name shown in type boxes
    bool needsLength = false;      // the user gives a length (the length field is shown)
    bool mayBeAutoIncrement = false; // set only for the INTEGER row
    const char16_t *pattern = nullptr; // the column type, a format with at most one "%d" (the length)
};

// The rows in the order of the type boxes, ended by a row of type 0. The table's size
// (the terminating row included) bounds an index taken from a type box: an index
// outside it stands for row 0.
inline constexpr std::array<ColumnType, 8> kColumnTypes{{
    {TdtText, ids::kColumnTypeLabel.text, true, false, u"CHAR (%d)"},
    {TdtVarText, ids::kColumnTypeLabel.varText, true, false, u"VARCHAR (%d)"},
    {TdtMemo, ids::kColumnTypeLabel.memo, false, false, u"VARCHAR (%d)"},
    {TdtDateTime, ids::kColumnTypeLabel.dateTime, false, false, u"DATETIME"},
    {TdtInteger, ids::kColumnTypeLabel.integer, false, true, u"INTEGER"},
    {TdtNumber, ids::kColumnTypeLabel.number, false, false, u"FLOAT"},
    {TdtBinary, ids::kColumnTypeLabel.binary, false, false, u"VARCHAR"},
    {},
}};

// The row at a type box's index; an index outside the table gives row 0.
const ColumnType &columnTypeAt(int32_t index);
// The row of a TabraDataType code, or null when no row has it (the terminating row is
// never found).
const ColumnType *findColumnType(int32_t tabraDataType);

// The row's pattern on the database: the database's own (capabilities.typePatternFor)
// or the table's.
const char16_t *columnTypePattern(const connection::Capabilities &database, const ColumnType &type);
// The column type as written into CREATE TABLE or ALTER TABLE ... ADD: the pattern with
// "%d" replaced by length (in decimal), e.g. "VARCHAR (80)".
std::u16string columnTypeText(const connection::Capabilities &database, const ColumnType &type, int32_t length);

} // namespace tabra::catalog
