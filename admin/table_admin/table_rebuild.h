// Changing a table's keys where ALTER TABLE cannot (SQLite has no statement to add or
// drop a primary key, nor to add a key column): the table is rebuilt the way SQLite
// documents for schema changes it cannot make in place.
//
// With foreign key enforcement off (it is set before the transaction, since SQLite
// ignores it inside one) and in one transaction: a new table is created from the old
// table's own CREATE TABLE statement with the change applied (so column types,
// defaults, NOT NULL, CHECK, UNIQUE, FOREIGN KEY and collations stay as written),
// every row is copied, the old table is dropped, the new one takes its name, and the
// old table's indexes and triggers are created again from their own statements. The
// row count before and after must agree, and no foreign key that involves the table
// may fail its check; only then is the transaction committed. Any failure, and a
// statement the statement hook declines, rolls everything back: the old table stays
// exactly as it was. Enforcement, the rename mode and the connection's autocommit
// are restored on every path.
//
// Every statement (the reads of the schema too) goes through the statement runner and
// so passes the statement hook: a user who has statements shown sees the whole plan
// and may cancel it at any statement.
#pragma once

#include "admin/table_admin/table_definition.h"

#include <sql.h>

#include <functional>

namespace tabra::admin::table_admin {

enum class RebuildResult {
    Done,    // committed: the new definition with every row, index and trigger
    Refused, // the statement hook declined a statement: rolled back, nothing shown
    Failed,  // rolled back after a failure, which was shown (a driver's diagnostics or a message)
};

// Applies the change to the table's definition; false when it cannot (nothing is
// run then, and the caller's refusal message is shown).
using DefinitionChange = std::function<bool(TableDefinition &)>;

// Rebuilds table (a table of the main database of an SQLite connection that commits
// each statement itself) with the change.
RebuildResult rebuildTable(SQLHDBC connection, const char16_t *table, const DefinitionChange &change);

} // namespace tabra::admin::table_admin
