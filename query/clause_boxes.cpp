// Clause lists shown in list boxes and written back: columns (with aliases), tables
// and sort columns (with direction labels and item data 1 for descending).
#include "core/module/module_state.h"
#include "ostrel.h"
#include "query/clause_editing.h"
#include "query/clause_items.h"
#include "sqltext/name_parts.h"
#include "sqltext/sql92_names.h"
#include "query/wide_buffer.h"
#include "tabra_query.h"

namespace {

using namespace tabra::query;
using tabra::sqltext::prepareNameForSql92;
using tabra::sqltext::stripDelimiters;

constexpr int32_t kEntryCapacity = 200;
constexpr int32_t kQuotedCapacity = 100;
constexpr int32_t kQuotedTableCapacity = 200;
constexpr int32_t kLabelCapacity = 50;

std::u16string boxEntry(HWND box, int32_t index) {
    char16_t entry[kEntryCapacity] = {};
    Ostrel_GetBoxEntry(box, index, entry, kEntryCapacity);
    return entry;
}

std::u16string clauseOf(const char16_t *statement, std::u16string_view keyword, std::u16string_view second) {
    if (statement == nullptr) return {};
    return extractClause(statement, keyword, second).value_or(u"");
}

} // namespace

namespace tabra::query {

std::u16string directionLabel(bool descending) {
    char16_t label[kLabelCapacity] = {};
    tabra::module::LoadTranslatedString(tabra::module::resourceLibrary(), descending ? 1951 : 1950, label,
                                        kLabelCapacity);
    return label;
}

} // namespace tabra::query

extern "C" int32_t Tabra_Select_FieldsClause_To_FieldsBox(SQLHDBC connection, const char16_t *statement,
                                                          uint32_t flags, HWND box) {
    Ostrel_FillBox(box, u'\t', nullptr);
    char16_t quote = identifierQuote(connection);
    int32_t count = 0;
    for (const std::u16string &item : clauseItemsOf(connection, clauseOf(statement, u"SELECT", u""))) {
        auto [column, alias] = columnAndAlias(item, quote);
        column = stripDelimiters(connection, column);
        alias = stripDelimiters(connection, alias);
        std::u16string entry = column;
        if ((flags & TABRA_BOX_WITH_ALIAS) && !alias.empty()) entry += u"\t" + alias;
        if (Ostrel_AddBoxEntry(box, entry.c_str(), 0, -1, 0) >= 0) ++count;
    }
    return count;
}

extern "C" int32_t Tabra_Select_FieldsBox_To_FieldsClause(SQLHDBC connection, HWND box, char16_t *statement,
                                                          int32_t capacity) {
    std::u16string list;
    int32_t entries = Ostrel_GetBoxCount(box);
    for (int32_t i = 0; i < entries; ++i) {
        std::u16string entry = boxEntry(box, i);
        size_t tab = entry.find(u'\t');
        std::u16string column = entry.substr(0, std::min<size_t>(tab, 99));
        std::u16string alias = tab == std::u16string::npos ? u"" : entry.substr(tab + 1, 99);
        if (!column.empty() && column[0] == u'*') column = u"*";
        if (!list.empty()) list += u',';
        list += prepareNameForSql92(connection, column.c_str(), kQuotedCapacity);
        std::u16string quotedAlias = alias.empty() ? u"" : prepareNameForSql92(connection, alias.c_str(), kQuotedCapacity);
        if (!quotedAlias.empty()) list += u" AS " + quotedAlias;
    }
    return replaceSelectClause(statement, capacity, SelectClause::Fields, list.c_str());
}

extern "C" int32_t Tabra_Select_TablesClause_To_TablesBox(SQLHDBC connection, const char16_t *statement, uint32_t,
                                                          HWND box) {
    Ostrel_FillBox(box, u'\t', nullptr);
    char16_t quote = identifierQuote(connection);
    int32_t count = 0;
    for (const std::u16string &item : clauseItemsOf(connection, clauseOf(statement, u"FROM", u""))) {
        std::u16string table = stripDelimiters(connection, tableOfItem(item, quote));
        if (Ostrel_AddBoxEntry(box, table.c_str(), 0, -1, 0) >= 0) ++count;
    }
    return count;
}

extern "C" int32_t Tabra_Select_TablesBox_To_TablesClause(SQLHDBC connection, HWND box, char16_t *statement,
                                                          int32_t capacity) {
    std::u16string list;
    int32_t entries = Ostrel_GetBoxCount(box);
    for (int32_t i = 0; i < entries; ++i) {
        if (i > 0) list += u',';
        list += prepareNameForSql92(connection, boxEntry(box, i).c_str(), kQuotedTableCapacity);
    }
    return replaceSelectClause(statement, capacity, SelectClause::Tables, list.c_str());
}

extern "C" int32_t Tabra_Select_OrderByClause_To_OrderByBox(SQLHDBC connection, const char16_t *statement,
                                                            uint32_t flags, HWND box) {
    Ostrel_FillBox(box, u'\t', nullptr);
    char16_t quote = identifierQuote(connection);
    int32_t count = 0;
    for (const std::u16string &item : clauseItemsOf(connection, clauseOf(statement, u"ORDER", u"BY"))) {
        auto [column, direction] = sortColumnAndDirection(item, quote);
        bool descending = isDescending(direction);
        std::u16string entry = stripDelimiters(connection, column);
        if (flags & TABRA_BOX_WITH_DIRECTION) entry += u"\t" + directionLabel(descending);
        if (Ostrel_AddBoxEntry(box, entry.c_str(), descending ? 1 : 0, -1, 0) >= 0) ++count;
    }
    return count;
}

extern "C" int32_t Tabra_Select_OrderByBox_To_OrderByClause(SQLHDBC connection, HWND box, char16_t *statement,
                                                            int32_t capacity) {
    std::u16string list;
    int32_t entries = Ostrel_GetBoxCount(box);
    for (int32_t i = 0; i < entries; ++i) {
        std::u16string entry = boxEntry(box, i);
        if (!list.empty()) list += u',';
        list += prepareNameForSql92(connection, entry.substr(0, entry.find(u'\t')).c_str(), kQuotedCapacity);
        if (Ostrel_GetItemData(box, i) != 0) list += u" DESC";
    }
    return replaceSelectClause(statement, capacity, SelectClause::OrderBy, list.c_str());
}

extern "C" int32_t Tabra_OrderByBox_ToggleDirection(HWND box, int32_t index) {
    if (index < 0) index = Ostrel_GetBoxIndex(box);
    if (index < 0) return -1;
    std::u16string entry = boxEntry(box, index);
    bool descending = Ostrel_GetItemData(box, index) != 1;
    std::u16string rebuilt = entry.substr(0, entry.find(u'\t')) + u"\t" + directionLabel(descending);
    Ostrel_DeleteBoxEntry(box, index);
    Ostrel_AddBoxEntry(box, rebuilt.c_str(), descending ? 1 : 0, index, 0);
    return Ostrel_SetBoxIndex(box, index);
}
