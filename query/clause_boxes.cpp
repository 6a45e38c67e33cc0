// Clause lists shown in list boxes and written back: columns (with aliases), tables
// and sort columns (with direction labels and item data 1 for descending).
#include "core/module/module_state.h"
#include "ostrel.h"
#include "query/clause_editing.h"
#include "query/clause_items.h"
#include "query/resource_ids.h"
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
    tabra::module::LoadTranslatedString(tabra::module::resourceLibrary(), descending ? ids::kString.descending : ids::kString.ascending, label,
                                        kLabelCapacity);
    return label;
}

} // namespace tabra::query

namespace {

// Replaces the box's entries by one per item of the clause; entryOf gives an item's
// entry text and item data. Returns the number of entries added.
template <typename EntryOf>
int32_t fillBoxFromClause(SQLHDBC connection, const char16_t *statement, std::u16string_view keyword,
                          std::u16string_view secondKeyword, HWND box, EntryOf entryOf) {
    Ostrel_FillBox(box, u'\t', nullptr);
    const char16_t quote = identifierQuote(connection);
    int32_t count = 0;
    for (const std::u16string &item : clauseItemsOf(connection, clauseOf(statement, keyword, secondKeyword))) {
        const auto [entry, data] = entryOf(item, quote);
        if (Ostrel_AddBoxEntry(box, entry.c_str(), data, -1, 0) >= 0) ++count;
    }
    return count;
}

// Replaces the clause by the list addItem builds from the box's entries, one call per
// entry with its index.
template <typename AddItem>
int32_t writeClauseFromBox(HWND box, char16_t *statement, int32_t capacity, SelectClause clause, AddItem addItem) {
    std::u16string list;
    const int32_t entries = Ostrel_GetBoxCount(box);
    for (int32_t i = 0; i < entries; ++i) addItem(i, boxEntry(box, i), list);
    return replaceSelectClause(statement, capacity, clause, list.c_str());
}

using BoxEntry = std::pair<std::u16string, LPARAM>;

} // namespace

extern "C" int32_t Tabra_Select_FieldsClause_To_FieldsBox(SQLHDBC connection, const char16_t *statement,
                                                          uint32_t flags, HWND box) {
    return fillBoxFromClause(connection, statement, u"SELECT", u"", box, [&](const std::u16string &item, char16_t quote) {
        auto [column, alias] = columnAndAlias(item, quote);
        BoxEntry entry{stripDelimiters(connection, column), 0};
        alias = stripDelimiters(connection, alias);
        if ((flags & TABRA_BOX_WITH_ALIAS) && !alias.empty()) entry.first += u"\t" + alias;
        return entry;
    });
}

extern "C" int32_t Tabra_Select_FieldsBox_To_FieldsClause(SQLHDBC connection, HWND box, char16_t *statement,
                                                          int32_t capacity) {
    return writeClauseFromBox(box, statement, capacity, SelectClause::Fields,
                              [&](int32_t, const std::u16string &entry, std::u16string &list) {
                                  size_t tab = entry.find(u'\t');
                                  std::u16string column = entry.substr(0, std::min<size_t>(tab, 99));
                                  std::u16string alias = tab == std::u16string::npos ? u"" : entry.substr(tab + 1, 99);
                                  if (!column.empty() && column[0] == u'*') column = u"*";
                                  if (!list.empty()) list += u',';
                                  list += prepareNameForSql92(connection, column.c_str(), kQuotedCapacity);
                                  if (alias.empty()) return;
                                  std::u16string quotedAlias = prepareNameForSql92(connection, alias.c_str(), kQuotedCapacity);
                                  if (!quotedAlias.empty()) list += u" AS " + quotedAlias;
                              });
}

extern "C" int32_t Tabra_Select_TablesClause_To_TablesBox(SQLHDBC connection, const char16_t *statement, uint32_t,
                                                          HWND box) {
    return fillBoxFromClause(connection, statement, u"FROM", u"", box, [&](const std::u16string &item, char16_t quote) {
        return BoxEntry{stripDelimiters(connection, tableOfItem(item, quote)), 0};
    });
}

extern "C" int32_t Tabra_Select_TablesBox_To_TablesClause(SQLHDBC connection, HWND box, char16_t *statement,
                                                          int32_t capacity) {
    return writeClauseFromBox(box, statement, capacity, SelectClause::Tables,
                              [&](int32_t index, const std::u16string &entry, std::u16string &list) {
                                  if (index > 0) list += u','; // also after an entry that gave nothing
                                  list += prepareNameForSql92(connection, entry.c_str(), kQuotedTableCapacity);
                              });
}

extern "C" int32_t Tabra_Select_OrderByClause_To_OrderByBox(SQLHDBC connection, const char16_t *statement,
                                                            uint32_t flags, HWND box) {
    return fillBoxFromClause(connection, statement, u"ORDER", u"BY", box, [&](const std::u16string &item, char16_t quote) {
        auto [column, direction] = sortColumnAndDirection(item, quote);
        const bool descending = isDescending(direction);
        BoxEntry entry{stripDelimiters(connection, column), descending ? 1 : 0};
        if (flags & TABRA_BOX_WITH_DIRECTION) entry.first += u"\t" + directionLabel(descending);
        return entry;
    });
}

extern "C" int32_t Tabra_Select_OrderByBox_To_OrderByClause(SQLHDBC connection, HWND box, char16_t *statement,
                                                            int32_t capacity) {
    return writeClauseFromBox(box, statement, capacity, SelectClause::OrderBy,
                              [&](int32_t index, const std::u16string &entry, std::u16string &list) {
                                  if (!list.empty()) list += u',';
                                  list += prepareNameForSql92(connection, entry.substr(0, entry.find(u'\t')).c_str(),
                                                              kQuotedCapacity);
                                  if (Ostrel_GetItemData(box, index) != 0) list += u" DESC";
                              });
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
