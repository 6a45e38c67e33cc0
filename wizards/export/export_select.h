// The SELECT of an export: the written fields' columns, quoted for the data source, in
// list order, FROM the table, WHERE the condition when there is one. No ORDER BY: rows
// come in the data source's order.
#pragma once

#include "wizards/export/export_fields.h"

#include <sql.h>

#include <optional>
#include <string>

namespace tabra::wizards::exporting {

// The statement as a buffer of 10000 characters holds it; nullopt when the table name
// is blank or the condition cannot be turned into a clause.
std::optional<std::u16string> exportSelect(SQLHDBC connection, const std::u16string &table,
                                           const ExportFieldList &fields, const std::u16string &condition);

} // namespace tabra::wizards::exporting
