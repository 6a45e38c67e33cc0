// The statements of an import: the CREATE TABLE of the new table, the INSERT of its
// rows, and the SELECT over a source table. Names are prepared for their connection
// (quoted where it needs them); the columns stand in display order.
//
//   CREATE TABLE t (a CHAR (20), b INTEGER PRIMARY KEY AUTOINCREMENT, ...)
//       every imported field: its column name and the type table's pattern on this
//       database filled with its length (catalog/column_types.h); the auto-increment
//       field, whose type may be one, the database's own auto-increment column type;
//       a field whose type is not in the table gets no type.
//   INSERT INTO t (a,c) VALUES (...),(...)
//       the imported fields that are not auto-increment. One row is one parenthesised
//       list of values; a statement of several rows simply lists them one after the
//       other (multiRowInsert in capabilities.h). A value is written as
//         NULL                for no value or an empty one,
//         the text            for integer and number columns (cleaned to a number),
//         'text'              for date and time columns, at most 50 characters; on a
//                             DbSqlServer data source (database type 4) the characters
//                             at positions 5-6 and 8-9 change places first (1999-12-31
//                             is written '1999-31-12'),
//         'text'              for every other column,
//       a literal being the text in single quotes with each single quote doubled.
//   SELECT a,b FROM t
//       the imported, not auto-increment fields of a source table, by their source names.
//
// The Part's buffers (30000 characters for a statement, 50 for a column name in the
// INSERT) are not applied: a row's statement is as long as its values need, so that a
// value file or a long text is never cut, and every name is prepared with the 100
// characters of the CREATE TABLE, so that the INSERT names the columns it created.
#pragma once

#include "wizards/import/import_fields.h"
#include "wizards/sql_literal.h"

#include <sql.h>

#include <string>
#include <string_view>

namespace tabra::wizards::importing {

std::u16string createTableStatement(SQLHDBC connection, const std::u16string &table, const ImportFieldList &fields);

// "INSERT INTO t (a,c) VALUES " (the start every row's list follows).
std::u16string insertHead(SQLHDBC connection, const std::u16string &table, const ImportFieldList &fields);
// Appends "(v1,v2,...)" of the current values.
void appendValueList(std::u16string &statement, const ImportFieldList &fields, bool swapDateParts);

std::u16string sourceSelect(SQLHDBC source, const std::u16string &table, const ImportFieldList &fields);

} // namespace tabra::wizards::importing
