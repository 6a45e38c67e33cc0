// The CREATE TABLE, INSERT and SELECT texts of an import.
#include "wizards/import/import_statements.h"

#include "catalog/column_types.h"
#include "core/connection/capabilities.h"
#include "sqltext/sql92_names.h"
#include "sqltext/statement_formatter.h"
#include "tabra_catalog.h"

#include <utility>

namespace tabra::wizards::importing {
namespace {

constexpr int32_t kStatementCapacity = 30000; // the table clause's buffer
constexpr int32_t kNameCapacity = 100;
constexpr std::size_t kDateLiteralLength = 50;

std::u16string columnType(const connection::Capabilities &database, const ImportField &field) {
    const catalog::ColumnType *type = catalog::findColumnType(field.type);
    if (type == nullptr) return {};
    if (field.autoIncrement && type->mayBeAutoIncrement && database.hasAutoIncrement())
        return database.autoIncrementType;
    return catalog::columnTypeText(database, *type, field.length);
}

// The prepared names of the fields that pass, joined by separator.
template <typename Passes>
std::u16string nameList(SQLHDBC connection, const ImportFieldList &fields, bool bySource, std::u16string_view separator,
                        Passes passes) {
    std::u16string list, prepared;
    for (const ImportField *field : fields.displayed()) {
        if (!passes(*field)) continue;
        if (!list.empty()) list += separator;
        sqltext::prepareNameForSql92(connection, (bySource ? field->sourceName : field->name).c_str(), kNameCapacity,
                                     prepared);
        list += prepared;
    }
    return list;
}

} // namespace

std::u16string createTableStatement(SQLHDBC connection, const std::u16string &table, const ImportFieldList &fields) {
    const connection::Capabilities &database = connection::capabilities(connection);
    std::u16string statement =
        sqltext::formatStatement(connection, u"CREATE TABLE %t (", {table.c_str()}, kStatementCapacity);
    bool first = true;
    for (const ImportField *field : fields.displayed()) {
        if (!field->imported) continue;
        if (!first) statement += u", ";
        first = false;
        statement += sqltext::prepareNameForSql92(connection, field->name.c_str(), kNameCapacity);
        statement += u' ';
        statement += columnType(database, *field);
    }
    return statement + u")";
}

std::u16string insertHead(SQLHDBC connection, const std::u16string &table, const ImportFieldList &fields) {
    return sqltext::formatStatement(connection, u"INSERT INTO %t (", {table.c_str()}, kStatementCapacity) +
           nameList(connection, fields, false, u",", [](const ImportField &field) { return field.inserted(); }) +
           u") VALUES ";
}

void appendValueList(std::u16string &statement, const ImportFieldList &fields, bool swapDateParts) {
    statement += u'(';
    bool first = true;
    for (const ImportField *field : fields.displayed()) {
        if (!field->inserted()) continue;
        if (!first) statement += u',';
        first = false;
        if (!field->value || field->value->empty()) {
            statement += u"NULL";
        } else if (field->type == TdtInteger || field->type == TdtNumber) {
            statement += *field->value;
        } else if (field->type == TdtDateTime) {
            std::u16string date = field->value->substr(0, kDateLiteralLength);
            if (swapDateParts && date.size() >= 10) {
                std::swap(date[5], date[8]);
                std::swap(date[6], date[9]);
            }
            appendSqlLiteral(statement, date);
        } else {
            appendSqlLiteral(statement, *field->value);
        }
    }
    statement += u')';
}

std::u16string sourceSelect(SQLHDBC source, const std::u16string &table, const ImportFieldList &fields) {
    return u"SELECT " +
           nameList(source, fields, true, u",", [](const ImportField &field) { return field.inserted(); }) +
           sqltext::formatStatement(source, u" FROM %t", {table.c_str()}, kStatementCapacity);
}

} // namespace tabra::wizards::importing
