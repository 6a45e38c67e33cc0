// A table's columns as its CREATE TABLE declares them, read from the column catalog:
// what an empty copy of the table is built from where the database's own copy
// statement loses the declared types (core/connection/capabilities.h,
// copyKeepsColumnTypes).
#pragma once

#include <sql.h>

#include <optional>
#include <string>

namespace tabra::catalog {

// "<column> <type>, <column> <type>, ..." in the catalog's order: each column name
// prepared for the connection, its type the catalog's TYPE_NAME as the driver reports
// it, which on SQLite is the declared type as written ("VARCHAR(50)", "DATE"); other
// drivers report bare type names there, without lengths. nullopt for a table without
// columns, or after a failure (shown).
std::optional<std::u16string> declaredColumnDefinitions(SQLHDBC connection, const char16_t *table);

} // namespace tabra::catalog
