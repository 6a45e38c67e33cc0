// The export wizard's entry point for the library's other tools (Tabra_ExportWizzard
// is the exported shell over it).
#pragma once

#include "tabra_connection.h" // DbObjectInfo

#include <sql.h>

#include <cstdint>

namespace tabra::wizards::exporting {

// Runs the wizard on the table of the record and writes the export file once it was
// finished: 1 with the record copied back whole, 2 when cancelled or failed.
int32_t runExportWizard(SQLHDBC connection, DbObjectInfo *parameterBlock, int32_t callerValue = 0);

} // namespace tabra::wizards::exporting
