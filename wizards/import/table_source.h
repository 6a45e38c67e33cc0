// A table of another data source. Its columns are the fields (COLUMN_NAME, DATA_TYPE
// mapped to the library's type code, COLUMN_SIZE), each marked auto-increment as the
// result-set description says; the rows are those of one SELECT of the imported, not
// auto-increment columns, as many as the table's record count, read as text. Numbers
// from a table go through the integer and number cleaning.
#pragma once

#include "wizards/import/import_fields.h"
#include "wizards/import/row_source.h"

#include <sql.h>

#include <memory>
#include <string>

namespace tabra::wizards::importing {

// Reads the field list (replacing the list's fields); false after message 1617 (no
// columns) or a catalog failure (shown).
bool readTableFields(SQLHDBC source, const std::u16string &table, ImportFieldList &fields);
// The rows of the table for the fields; reading starts with the SELECT in start().
std::unique_ptr<RowSource> openTableRows(SQLHDBC source, const std::u16string &table, const ImportFieldList &fields);

} // namespace tabra::wizards::importing
