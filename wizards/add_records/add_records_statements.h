// The statements of the add records wizard. Names are prepared for their connection
// (quoted where they need it); the table clause goes through the statement formatter.
//
//   INSERT INTO t (a,c) VALUES (va,vc)
//   UPDATE t SET a=va,c=vc WHERE condition
//   DELETE FROM t WHERE condition
//       a, c: the descriptors that are written (not skipped, their kind not "none")
//   SELECT sa,sc,id FROM s
//       the source names of the descriptors of kind "source column", then, matching by
//       ids, the source id field; the builder tells how many columns it listed
//
// A value is written as
//   NULL      kind none; a constant that is empty; a source value that is missing or empty
//   'text'    a constant, between single quotes as it stands: inner quotes are NOT
//             doubled (O'Neil gives 'O'Neil'), as the wizard has always written them
//   text      a source value for an integer or number column
//   'text'    a source value for any other column, an SQL literal (quotes doubled)
//
// Statements are as long as their values need (no 30000-character cut): a cut
// statement would only fail or write other values.
#pragma once

#include "wizards/add_records/add_records_state.h"

#include <sql.h>

#include <string>
#include <string_view>

namespace tabra::wizards::add_records {

// "INSERT INTO t (a,c) VALUES " (the start each row's value list follows).
std::u16string insertHead(SQLHDBC connection, const std::u16string &table, const std::vector<FieldDescriptor> &fields);
// Appends "(va,vc)" of the current values.
void appendValueList(std::u16string &statement, const std::vector<FieldDescriptor> &fields);
std::u16string insertStatement(SQLHDBC connection, const std::u16string &table,
                               const std::vector<FieldDescriptor> &fields);
// The condition is left out when empty.
std::u16string updateStatement(SQLHDBC connection, const std::u16string &table,
                               const std::vector<FieldDescriptor> &fields, std::u16string_view condition);
std::u16string deleteStatement(SQLHDBC connection, const std::u16string &table, std::u16string_view condition);

struct SourceSelect {
    std::u16string text;
    int32_t columns = 0;
};
// idField empty: no id column.
SourceSelect sourceSelect(SQLHDBC source, const std::u16string &table, const std::vector<FieldDescriptor> &fields,
                          const std::u16string &idField);

// The value text of a descriptor.
void appendValueText(std::u16string &statement, const FieldDescriptor &field);

// "id=7" or "id='7'": the destination id field prepared by the rules of `rules` (the
// source connection), the id bare when the SELECT's id column has a numeric SQL type,
// else as an SQL literal.
std::u16string idCondition(SQLHDBC rules, const std::u16string &idField, std::u16string_view id, int32_t idSqlType);

} // namespace tabra::wizards::add_records
