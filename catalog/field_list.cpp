// Field lists: the columns of one or more tables as one separated text, in the
// catalog's order, optionally qualified, quoted, typed or limited to NOT NULL columns.
// Two passes over the catalog: one counts the columns, one reads them into records.
#include "catalog/bound_column.h"
#include "catalog/catalog_calls.h"
#include "core/resource_ids.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/statement_handle.h"
#include "ostrel.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"
#include "tabra_sqltext.h"

#include <new>
#include <string>
#include <vector>

using namespace tabra::catalog;
using tabra::odbc::StatementHandle;
using tabra::odbc::succeeded;

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
    if (Tabra_GetSchemaUsage(connection) != 0 && point != std::u16string::npos) {
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

extern "C" int32_t Tabra_GetFields(SQLHDBC connection, const char16_t *tables, int32_t flags,
                                   const char16_t *separator, char16_t *output, int32_t capacity) {
    if (flags & TABRA_FIELDS_QUOTE_ALSO) flags |= TABRA_FIELDS_QUOTE;
    if (output == nullptr || capacity < 1) return 2;
    output[0] = u'\0';
    if (tables == nullptr || tables[0] == u'\0') return 1;
    if (connection == SQL_NULL_HDBC) return 2;
    if (separator == nullptr) separator = u"\t";

    StatementHandle statement;
    if (!succeeded(statement.allocate(connection))) {
        Tabra_DisplayErrorHdbc(connection);
        return 2;
    }

    // Counting pass, over all tables together.
    char16_t entry[kEntryCapacity];
    size_t total = 0;
    int32_t position = 0;
    std::u16string schema, table;
    while (Ostrel_ReadToken(tables, &position, u'\t', entry, kEntryCapacity) == 1) {
        splitForCount(connection, entry, schema, table);
        if (!succeeded(callColumns(statement.get(), schema.c_str(), table.c_str()))) {
            Tabra_DisplayErrorHstmt(statement.get(), nullptr);
            return 2;
        }
        while (succeeded(SQLFetch(statement.get()))) ++total;
        closeCursor(statement.get());
    }

    std::vector<FieldRecord> records;
    try {
        records.resize(total);
    } catch (const std::bad_alloc &) {
        ShowMessage(tabra::core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
        return 2;
    }

    // Filling pass: at most as many records as counted.
    size_t stored = 0;
    position = 0;
    char16_t schemaPart[kPartCapacity], tablePart[kPartCapacity];
    while (Ostrel_ReadToken(tables, &position, u'\t', entry, kEntryCapacity) == 1) {
        Tabra_ParseSchemaAndTable(connection, entry, schemaPart, kPartCapacity, tablePart, kPartCapacity);
        if (!succeeded(callColumns(statement.get(), schemaPart, tablePart))) {
            Tabra_DisplayErrorHstmt(statement.get(), nullptr);
            return 2;
        }
        BoundText<kNameCapacity> tableName, columnName;
        BoundText<kTypeCapacity> typeText;
        BoundShort nullable;
        tableName.bind(statement.get(), 3);
        columnName.bind(statement.get(), 4);
        typeText.bind(statement.get(), 5);
        nullable.bind(statement.get(), 11);
        while (stored < total && succeeded(SQLFetch(statement.get()))) {
            FieldRecord &record = records[stored++];
            OstrelCopyString(record.table, tableName.isNull() ? u"" : tableName.text, kNameCapacity);
            OstrelCopyString(record.name, columnName.isNull() ? u"" : columnName.text, kNameCapacity);
            OstrelCopyString(record.type, typeText.isNull() ? u"" : typeText.text, kTypeCapacity);
            record.nullable = nullable.indicator == SQL_NULL_DATA ? int16_t{1} : nullable.value;
        }
        closeCursor(statement.get());
    }
    statement.reset();
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
        char16_t prepared[kNameCapacity];
        for (auto &record : records) {
            Tabra_PrepareNameForSql92(connection, record.name, prepared, kNameCapacity, 0);
            OstrelCopyString(record.name, prepared, kNameCapacity);
        }
    }

    // Writing: an entry that does not fit is skipped; a later, shorter one may fit.
    // The bound counts the separator twice and the type text even without the type.
    const int32_t separatorLength = textLength(separator);
    int32_t remaining = capacity;
    int32_t length = 0;
    bool first = true;
    auto write = [&](const char16_t *text) {
        int32_t n = textLength(text);
        std::char_traits<char16_t>::copy(output + length, text, static_cast<size_t>(n));
        length += n;
        remaining -= n;
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
    if (remaining >= 1) output[length] = u'\0';
    return 1;
}

extern "C" int32_t Tabra_GetFieldCount(SQLHDBC connection, const char16_t *table) {
    if (connection == SQL_NULL_HDBC || table == nullptr) return 2;
    StatementHandle statement;
    if (!succeeded(statement.allocate(connection))) {
        Tabra_DisplayErrorHdbc(connection);
        return 2;
    }
    if (!succeeded(callColumns(statement.get(), nullptr, table))) {
        Tabra_DisplayErrorHstmt(statement.get(), nullptr);
        return 2;
    }
    int32_t count = 0;
    while (succeeded(SQLFetch(statement.get()))) ++count;
    return count;
}

extern "C" void Tabra_FillFieldsBox(SQLHDBC connection, const char16_t *tables, HWND box, int32_t flags) {
    Ostrel_FillBox(box, u'\t', nullptr);
    std::vector<char16_t> list;
    try {
        list.assign(kBoxListCapacity, u'\0');
    } catch (const std::bad_alloc &) {
        return;
    }
    if (Tabra_GetFields(connection, tables, flags, u"\t", list.data(), kBoxListCapacity) == 1)
        Ostrel_FillBox(box, u'\t', list.data());
}

extern "C" int32_t Tabra_AddColumnsToBox(SQLHDBC connection, const char16_t *schema, const char16_t *table,
                                         HWND box, int32_t flags) {
    if (Ostrel_IsBlankString(table) || connection == SQL_NULL_HDBC || box == nullptr) return 1;
    StatementHandle statement;
    if (!succeeded(statement.allocate(connection))) {
        Tabra_DisplayErrorHdbc(connection);
        return 2;
    }
    if (!succeeded(callColumns(statement.get(), schema, table))) {
        Tabra_DisplayErrorHstmt(statement.get(), nullptr);
        return 2;
    }
    BoundText<kPartCapacity> columnName;
    BoundShort nullable;
    columnName.bind(statement.get(), 4);
    nullable.bind(statement.get(), 11);
    char16_t entry[kEntryCapacity];
    while (succeeded(SQLFetch(statement.get()))) {
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
