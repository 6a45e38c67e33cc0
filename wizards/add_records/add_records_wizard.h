// The add records wizard: copies the rows of a table of a second data source (the
// source) into a table of the caller's connection, each destination column taking NULL,
// a constant or a source column; with a pair of id fields a row whose id is already in
// the destination updates those records instead of being inserted.
#pragma once

#include "tabra_wizards.h" // DbObjectInfo

#include <sql.h>

#include <cstdint>

namespace tabra::wizards::add_records {

// Runs the add records wizard and, when it was finished, the copy into the table of
// `connection`; 1 on success (the parameter block copied back), 2 otherwise.
// Tabra_AddRecordsWizzard is the exported shell over it.
int32_t runAddRecordsWizard(SQLHDBC connection, DbObjectInfo *parameterBlock);

} // namespace tabra::wizards::add_records
