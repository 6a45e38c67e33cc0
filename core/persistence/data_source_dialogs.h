// The data source and schema dialogs' entry points for the library's other tools
// (Tabra_DataSourceDialog and Tabra_SelectDbaseSchema are the exported shells over
// them).
#pragma once

#include "tabra_connection.h"

#include <sql.h>

#include <cstdint>
#include <string>

namespace tabra::persistence {

// The data source dialog on the record, changed in place on OK: 1 after OK, else 2.
int32_t runDataSourceDialog(DataSourceInfo &record);
// The schema dialog over owner for the connection's schemas, the current one in
// schema (up to 99 characters) and the chosen one there after OK: 1 after OK, else 2.
int32_t runSchemaDialog(HWND owner, SQLHDBC connection, std::u16string &schema);

} // namespace tabra::persistence
