// The INSERT, UPDATE, DELETE and source SELECT texts of the add records wizard.
#include "wizards/add_records/add_records_statements.h"

#include "sqltext/sql92_names.h"
#include "sqltext/statement_formatter.h"
#include "tabra_catalog.h"
#include "wizards/sql_literal.h"

#include <algorithm>
#include <array>

namespace tabra::wizards::add_records {
namespace {

constexpr int32_t kStatementCapacity = 30000; // the table clause's buffer
constexpr int32_t kNameCapacity = 100;
constexpr int32_t kSourceNameCapacity = 50;
// The SQL types of an id written without quotes: the integer and number types.
constexpr std::array<int32_t, 9> kBareIdTypes = {SQL_TINYINT, SQL_BIGINT, SQL_NUMERIC, SQL_DECIMAL, SQL_INTEGER,
                                                 SQL_SMALLINT, SQL_FLOAT, SQL_REAL, SQL_DOUBLE};

void appendName(std::u16string &statement, SQLHDBC connection, const std::u16string &name, int32_t capacity) {
    statement += sqltext::prepareNameForSql92(connection, name.c_str(), capacity);
}

} // namespace

void appendValueText(std::u16string &statement, const FieldDescriptor &field) {
    const auto &kinds = ids::kValueKind;
    if (field.kind == kinds.constant && !field.constant.empty()) {
        statement += u'\'';
        statement += field.constant;
        statement += u'\'';
    } else if (field.kind != kinds.source || !field.value || field.value->empty()) {
        statement += u"NULL";
    } else if (field.type == TdtInteger || field.type == TdtNumber) {
        statement += *field.value;
    } else {
        appendSqlLiteral(statement, *field.value);
    }
}

std::u16string insertHead(SQLHDBC connection, const std::u16string &table, const std::vector<FieldDescriptor> &fields) {
    std::u16string head = sqltext::formatStatement(connection, u"INSERT INTO %t (", {table.c_str()}, kStatementCapacity);
    bool first = true;
    for (const FieldDescriptor &field : fields) {
        if (!field.written()) continue;
        if (!first) head += u',';
        first = false;
        appendName(head, connection, field.name, kNameCapacity);
    }
    return head + u") VALUES ";
}

void appendValueList(std::u16string &statement, const std::vector<FieldDescriptor> &fields) {
    statement += u'(';
    bool first = true;
    for (const FieldDescriptor &field : fields) {
        if (!field.written()) continue;
        if (!first) statement += u',';
        first = false;
        appendValueText(statement, field);
    }
    statement += u')';
}

std::u16string insertStatement(SQLHDBC connection, const std::u16string &table,
                               const std::vector<FieldDescriptor> &fields) {
    std::u16string statement = insertHead(connection, table, fields);
    appendValueList(statement, fields);
    return statement;
}

std::u16string updateStatement(SQLHDBC connection, const std::u16string &table,
                               const std::vector<FieldDescriptor> &fields, std::u16string_view condition) {
    std::u16string statement = sqltext::formatStatement(connection, u"UPDATE %t SET ", {table.c_str()}, kStatementCapacity);
    bool first = true;
    for (const FieldDescriptor &field : fields) {
        if (!field.written()) continue;
        if (!first) statement += u',';
        first = false;
        appendName(statement, connection, field.name, kNameCapacity);
        statement += u'=';
        appendValueText(statement, field);
    }
    if (!condition.empty()) statement.append(u" WHERE ").append(condition);
    return statement;
}

std::u16string deleteStatement(SQLHDBC connection, const std::u16string &table, std::u16string_view condition) {
    std::u16string statement = sqltext::formatStatement(connection, u"DELETE FROM %t", {table.c_str()}, kStatementCapacity);
    if (!condition.empty()) statement.append(u" WHERE ").append(condition);
    return statement;
}

SourceSelect sourceSelect(SQLHDBC source, const std::u16string &table, const std::vector<FieldDescriptor> &fields,
                          const std::u16string &idField) {
    SourceSelect select{u"SELECT ", 0};
    for (const FieldDescriptor &field : fields) {
        if (!field.selected()) continue;
        if (select.columns++ > 0) select.text += u',';
        appendName(select.text, source, field.sourceName, kSourceNameCapacity);
    }
    if (!idField.empty()) {
        if (select.columns++ > 0) select.text += u',';
        appendName(select.text, source, idField, kNameCapacity);
    }
    select.text += sqltext::formatStatement(source, u" FROM %t", {table.c_str()}, kStatementCapacity);
    return select;
}

std::u16string idCondition(SQLHDBC rules, const std::u16string &idField, std::u16string_view id, int32_t idSqlType) {
    std::u16string condition = sqltext::prepareNameForSql92(rules, idField.c_str(), kNameCapacity);
    condition += u'=';
    if (std::find(kBareIdTypes.begin(), kBareIdTypes.end(), idSqlType) != kBareIdTypes.end()) condition += id;
    else appendSqlLiteral(condition, id);
    return condition;
}

} // namespace tabra::wizards::add_records
