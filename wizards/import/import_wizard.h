// The import wizard's entry point for the library's other tools
// (Tabra_ImportTableWizzard is the exported shell over it).
#pragma once

#include <sql.h>

#include <cstdint>
#include <string>

namespace tabra::wizards::importing {

// Runs the wizard and, once it was finished, the import on the connection. The result
// of the import (1 done); on 1 table is the table the rows went into.
int32_t runImportWizard(SQLHDBC connection, std::u16string &table);

} // namespace tabra::wizards::importing
