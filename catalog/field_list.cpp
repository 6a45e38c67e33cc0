// Field lists: the columns of one or more tables as one separated text, in the
// catalog's order, optionally qualified, quoted, typed or limited to NOT NULL columns.
// Two passes over the catalog: one counts the columns, one reads them into records.
#include "catalog/field_list.h"

#include "catalog/catalog_calls.h"
#include "core/connection/connection_info.h"
#include "core/odbc/bound_column.h"
#include "core/odbc/statement_runner.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "sqltext/name_parts.h"
#include "sqltext/sql92_names.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"

#include <new>
#include <string>
#include <vector>

using namespace tabra::catalog;
using namespace tabra::odbc;

namespace {

constexpr int32_t kEntryCapacity = 200;    // one table entry of the list
constexpr int32_t kPartCapacity = 100;     // schema or table of an entry
constexpr int32_t kNameCapacity = 50;      // a column name, qualified or quoted
constexpr int32_t kTypeCapacity = 10;      // the type code as text
constexpr int32_t kBoxListCapacity = 30000;

// One column found.
struct FieldRecord {
    char16_t name[kNameCapacity] = {};
    char16_t table[kNameCapacity] = {};
    char16_t type[kTypeCapacity] = {};
    int16_t nullable = 0;
};

// The counting pass splits an entry itself: at the first "." when the driver knows
// schemas, each part cut to 99 characters.
void splitForCount(SQLHDBC connection, const char16_t *entry, std::u16string &schema, std::u16string &table) {
    std::u16string text(entry);
    auto point = text.find(u'.');
    if (tabra::connection::schemaUsage(connection) != 0 && point != std::u16string::npos) {
        schema = text.substr(0, point).substr(0, kPartCapacity - 1);
        auto next = text.find(u'.', point + 1);
        table = text.substr(point + 1, next == std::u16string::npos ? std::u16string::npos : next - point - 1)
                    .substr(0, kPartCapacity - 1);
    } else {
        schema.clear();
        table = text;
    }
}

void closeCursor(SQLHSTMT statement) {
    SQLFreeStmt(statement, SQL_UNBIND);
    SQLFreeStmt(statement, SQL_CLOSE);
}

// Table and column joined by a point, cut to a name's capacity.
void qualifyName(FieldRecord &record) {
    char16_t qualified[kNameCapacity];
    OstrelCopyString(qualified, record.table, kNameCapacity);
    OstrelAppendString(qualified, u".", kNameCapacity);
    OstrelAppendString(qualified, record.name, kNameCapacity);
    OstrelCopyString(record.name, qualified, kNameCapacity);
}

} // namespace

namespace tabra::catalog {

std::optional<std::u16string> fieldList(SQLHDBC connection, const char16_t *tables, int32_t flags,
                                        std::u16string_view separator, int32_t capacity) {
    if (flags & TABRA_FIELDS_QUOTE_ALSO) flags |= TABRA_FIELDS_QUOTE;
    if (tables == nullptr || tables[0] == u'\0') return std::u16string();
    if (connection == SQL_NULL_HDBC) return std::nullopt;

    StatementRunner statement(connection, nullptr);
    if (statement.allocate() != RunResult::Done) return std::nullopt;

    // Counting pass, over all tables together.
    char16_t entry[kEntryCapacity];
    size_t total = 0;
    int32_t position = 0;
    std::u16string schema, table;
    while (Ostrel_ReadToken(tables, &position, u'\t', entry, kEntryCapacity) == 1) {
        splitForCount(connection, entry, schema, table);
        if (statement.check(callColumns(statement.handle(), schema.c_str(), table.c_str())) != RunResult::Done)
            return std::nullopt;
        while (succeeded(statement.fetch())) ++total;
        closeCursor(statement.handle());
    }

    std::vector<FieldRecord> records;
    try {
        records.resize(total);
    } catch (const std::bad_alloc &) {
        ShowMessage(tabra::core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
        return std::nullopt;
    }

    // Filling pass: at most as many records as counted.
    size_t stored = 0;
    position = 0;
    while (Ostrel_ReadToken(tables, &position, u'\t', entry, kEntryCapacity) == 1) {
        const auto parts = sqltext::splitSchemaAndTable(connection, entry);
        const std::u16string schemaPart(platform::boundedPrefix(parts.schema, kPartCapacity));
        const std::u16string tablePart(platform::boundedPrefix(parts.table, kPartCapacity));
        if (statement.check(callColumns(statement.handle(), schemaPart.c_str(), tablePart.c_str())) !=
            RunResult::Done)
            return std::nullopt;
        BoundText<kNameCapacity> tableName, columnName;
        BoundText<kTypeCapacity> typeText;
        BoundShort nullable;
        tableName.bind(statement.handle(), 3);
        columnName.bind(statement.handle(), 4);
        typeText.bind(statement.handle(), 5);
        nullable.bind(statement.handle(), 11);
        while (stored < total && succeeded(statement.fetch())) {
            FieldRecord &record = records[stored++];
            OstrelCopyString(record.table, tableName.isNull() ? u"" : tableName.text, kNameCapacity);
            OstrelCopyString(record.name, columnName.isNull() ? u"" : columnName.text, kNameCapacity);
            OstrelCopyString(record.type, typeText.isNull() ? u"" : typeText.text, kTypeCapacity);
            record.nullable = nullable.indicator == SQL_NULL_DATA ? int16_t{1} : nullable.value;
        }
        closeCursor(statement.handle());
    }
    statement.drop();
    records.resize(stored);

    if (flags & TABRA_FIELDS_QUALIFY)
        for (auto &record : records) qualifyName(record);
    if (flags & TABRA_FIELDS_QUALIFY_SHARED) {
        for (size_t i = 0; i < records.size(); ++i)
            for (size_t j = i + 1; j < records.size(); ++j)
                if (std::u16string_view(records[i].name) == std::u16string_view(records[j].name)) {
                    qualifyName(records[i]);
                    qualifyName(records[j]);
                }
    }
    if (flags & TABRA_FIELDS_QUOTE) {
        sqltext::BareNameRules rules(connection);
        std::u16string prepared;
        for (auto &record : records) {
            sqltext::prepareNameForSql92(connection, record.name, kNameCapacity, prepared, rules);
            OstrelCopyString(record.name, prepared.c_str(), kNameCapacity);
        }
    }

    // Writing: an entry that does not fit is skipped; a later, shorter one may fit.
    // The bound counts the separator twice and the type text even without the type.
    const auto separatorLength = static_cast<int32_t>(separator.size());
    int32_t remaining = capacity;
    std::u16string list;
    bool first = true;
    auto write = [&](std::u16string_view text) {
        list += text;
        remaining -= static_cast<int32_t>(text.size());
    };
    for (const auto &record : records) {
        if ((flags & TABRA_FIELDS_NOT_NULL_ONLY) && record.nullable != 0) continue;
        if (remaining <= 2 * separatorLength + textLength(record.type) + textLength(record.name)) continue;
        if (!first) write(separator);
        first = false;
        write(record.name);
        if (flags & TABRA_FIELDS_WITH_TYPE) {
            write(separator);
            write(record.type);
        }
    }
    return list;
}

int32_t fieldCount(SQLHDBC connection, const char16_t *table) {
    if (connection == SQL_NULL_HDBC || table == nullptr) return 2;
    StatementRunner statement(connection, nullptr);
    if (statement.allocate() != RunResult::Done ||
        statement.check(callColumns(statement.handle(), nullptr, table)) != RunResult::Done)
        return 2;
    int32_t count = 0;
    while (succeeded(statement.fetch())) ++count;
    return count;
}

} // namespace tabra::catalog

extern "C" int32_t Tabra_GetFields(SQLHDBC connection, const char16_t *tables, int32_t flags,
                                   const char16_t *separator, char16_t *output, int32_t capacity) {
    if (output == nullptr || capacity < 1) return 2;
    output[0] = u'\0';
    const auto list = fieldList(connection, tables, flags, separator ? separator : u"\t", capacity);
    if (!list) return 2;
    // The list always leaves room for its terminator.
    OstrelCopyString(output, list->c_str(), capacity);
    return 1;
}

extern "C" int32_t Tabra_GetFieldCount(SQLHDBC connection, const char16_t *table) {
    return fieldCount(connection, table);
}

extern "C" void Tabra_FillFieldsBox(SQLHDBC connection, const char16_t *tables, HWND box, int32_t flags) {
    Ostrel_FillBox(box, u'\t', nullptr);
    if (const auto list = fieldList(connection, tables, flags, u"\t", kBoxListCapacity))
        Ostrel_FillBox(box, u'\t', list->c_str());
}

extern "C" int32_t Tabra_AddColumnsToBox(SQLHDBC connection, const char16_t *schema, const char16_t *table,
                                         HWND box, int32_t flags) {
    if (Ostrel_IsBlankString(table) || connection == SQL_NULL_HDBC || box == nullptr) return 1;
    StatementRunner statement(connection, nullptr);
    if (statement.allocate() != RunResult::Done ||
        statement.check(callColumns(statement.handle(), schema, table)) != RunResult::Done)
        return 2;
    BoundText<kPartCapacity> columnName;
    BoundShort nullable;
    columnName.bind(statement.handle(), 4);
    nullable.bind(statement.handle(), 11);
    char16_t entry[kEntryCapacity];
    while (succeeded(statement.fetch())) {
        bool isNullable = nullable.indicator == SQL_NULL_DATA || nullable.value != 0;
        if ((flags & TABRA_FIELDS_NOT_NULL_ONLY) && isNullable) continue;
        entry[0] = u'\0';
        if ((flags & TABRA_FIELDS_WITH_SCHEMA) && !Ostrel_IsBlankString(schema)) {
            OstrelAppendString(entry, schema, kEntryCapacity);
            OstrelAppendString(entry, u".", kEntryCapacity);
        }
        if (flags & TABRA_FIELDS_QUALIFY) {
            OstrelAppendString(entry, table, kEntryCapacity);
            OstrelAppendString(entry, u".", kEntryCapacity);
        }
        OstrelAppendString(entry, columnName.isNull() ? u"" : columnName.text, kEntryCapacity);
        Ostrel_AddBoxEntry(box, entry, 0, -1, 0);
    }
    return 1;
}
