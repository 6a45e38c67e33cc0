// Whole-table operations as C++: dropping a table and renaming it by copy and drop.
// Each statement runs through the statement runner; failures are shown with the
// statement text, a refusal of the statement hook fails quietly.
#pragma once

#include <sql.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace tabra::catalog {

// "DROP TABLE schema.table" (the schema only when not blank). Without
// TABRA_DELETE_NO_CONFIRM the user is asked first (message 1702, Yes goes on); with
// TABRA_DELETE_MISSING_OK a failure whose SQLSTATE is one of the database's "no such
// table" states counts as done, quietly (where those states are generic, as SQLite's,
// only when the catalog then lists no such table). 1 dropped (or gone), 2 not.
int32_t dropTable(SQLHDBC connection, const char16_t *schema, const char16_t *table, uint8_t flags);

// Renames with the database's rename statement (capabilities.h): "ALTER TABLE old
// RENAME TO new" where the database has one, else "SELECT * INTO new FROM old" and the
// old table dropped without asking. Fails quietly when the new name is taken.
// TABRA_RENAME_WAIT_NOTICE shows the wait notice while the statement runs. 1 renamed,
// 2 not.
int32_t renameTable(SQLHDBC connection, const char16_t *oldName, const char16_t *newName, uint8_t flags);

// Tabra_CreateUniqueTableName: keeps name (capacity characters) when no table or view
// has it, else makes it name_1, name_2, ... (cut to the capacity) until one is free.
void makeTableNameUnique(SQLHDBC connection, char16_t *name, int32_t capacity);
// Tabra_CreateUniqueTableName: the wanted name when it is not empty and no table or view
// of the table list has it, else name_1, name_2, ... as a buffer of capacity characters
// holds it.
std::u16string uniqueTableName(SQLHDBC connection, std::u16string_view wanted, int32_t capacity);

} // namespace tabra::catalog
