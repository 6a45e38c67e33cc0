// Editing a design as the designer dialog does: proposed aliases, the join a new table
// is given, removing a table and renaming a qualifier everywhere.
#include "query/designer/design_editing.h"
#include "query/designer/join_tables.h"
#include "support/test_text.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using namespace tabra::query::designer;
using tabra::test::toUtf8;

// A table that is not joined.
TableEntry plain(std::u16string name, std::u16string alias) {
    TableEntry table;
    table.name = std::move(name);
    table.alias = std::move(alias);
    return table;
}

QueryDesign designOf(std::vector<TableEntry> tables) {
    QueryDesign design(nullptr, u"", 0);
    design.tables = std::move(tables);
    return design;
}

TEST(DesignEditing, ProposedAliasesTakeTheFirstLetterAndSkipTakenOnesAndZeros) {
    std::vector<TableEntry> nine{plain(u"Orders", u"o")};
    for (char16_t digit = u'2'; digit <= u'9'; ++digit) nine.push_back(plain(u"Orders", std::u16string(u"o") + digit));
    const struct {
        std::vector<TableEntry> tables;
        std::u16string name, alias;
    } cases[] = {
        {{}, u"Orders", u"o"},
        {{}, u"sales.Orders", u"o"},         // the schema does not count
        {{}, u"_log", u"t"},                 // no ASCII letter first
        {{plain(u"Orders", u"O")}, u"orders", u"o2"}, // qualifiers compare without case
        {{plain(u"o", u"")}, u"Offers", u"o2"},       // a table without alias answers to its name
        {nine, u"Offers", u"o11"},               // the alias alphabet has no 0
    };
    for (const auto &c : cases) EXPECT_EQ(proposedAlias(designOf(c.tables), c.name), c.alias) << toUtf8(c.name);
}

TEST(DesignEditing, ANewTableIsInnerJoinedToTheLatestTableSharingAColumn) {
    std::map<std::u16string, std::vector<CatalogColumn>> catalog{
        {u"customers", {{u"custno", 4}, {u"name", 12}}},
        {u"orders", {{u"orderno", 4}, {u"custno", 4}}},
        {u"items", {{u"orderno", 4}, {u"qty", 4}}},
        {u"notes", {{u"text", 12}}},
    };
    ColumnsOf columnsOf = [&](const std::u16string &table) { return catalog[table]; };
    QueryDesign design = designOf({plain(u"customers", u"c"), plain(u"orders", u"o")});
    const struct {
        std::u16string name;
        TableEntry entry;
    } cases[] = {
        {u"items", {u"items", u"i", joinTypeCodeOf(u"IJ"), kEqual, u"o.orderno", u"i.orderno"}},
        {u"notes", plain(u"notes", u"n")},
        {u"orders", {u"orders", u"o2", joinTypeCodeOf(u"IJ"), kEqual, u"o.orderno", u"o2.orderno"}},
    };
    for (const auto &c : cases) EXPECT_EQ(newTableEntry(design, c.name, columnsOf), c.entry) << toUtf8(c.name);
    EXPECT_EQ(newTableEntry(designOf({}), u"orders", columnsOf), plain(u"orders", u"o"));
}

TEST(DesignEditing, RemovingATableTakesItsColumnsAndUnjoinsTheTablesJoinedToIt) {
    QueryDesign design = designOf({plain(u"orders", u"o"),
                                   {u"customers", u"c", joinTypeCodeOf(u"LJ"), kEqual, u"o.custno", u"c.custno"},
                                   {u"items", u"i", joinTypeCodeOf(u"IJ"), kEqual, u"c.custno", u"i.custno"}});
    design.columns = {{u"o.*", u""}, {u"c.name", u"buyer"}, {u"i.qty", u""}};
    design.sortOrder = {{u"o.total", u"DESC"}, {u"cx.name", u""}};
    removeTable(design, 0);
    EXPECT_EQ(design.tables,
              (std::vector<TableEntry>{plain(u"customers", u"c"),
                                       {u"items", u"i", joinTypeCodeOf(u"IJ"), kEqual, u"c.custno", u"i.custno"}}));
    EXPECT_EQ(design.columns, (std::vector<ColumnEntry>{{u"c.name", u"buyer"}, {u"i.qty", u""}}));
    EXPECT_EQ(design.sortOrder, (std::vector<SortEntry>{{u"cx.name", u""}})); // "cx" is not "c"
}

TEST(DesignEditing, RenamingAQualifierReachesEveryList) {
    QueryDesign design =
        designOf({plain(u"orders", u"o"), {u"customers", u"c", joinTypeCodeOf(u"LJ"), kEqual, u"o.custno", u"c.custno"}});
    design.columns = {{u"C.name", u""}, {u"cc.name", u""}};
    design.sortOrder = {{u"c.name", u"DESC"}};
    design.selection = u"c.name\tEQ\tx\t12\n\v\v\vc.city\tBW\tB\t12\n\v";
    renameQualifier(design, u"c", u"cu");
    EXPECT_EQ(design.tables[1].rightColumn, u"cu.custno");
    EXPECT_EQ(design.tables[1].leftColumn, u"o.custno");
    EXPECT_EQ(design.columns, (std::vector<ColumnEntry>{{u"cu.name", u""}, {u"cc.name", u""}}));
    EXPECT_EQ(design.sortOrder[0].column, u"cu.name");
    EXPECT_EQ(design.selection, u"cu.name\tEQ\tx\t12\n\v\v\vcu.city\tBW\tB\t12\n\v");
}

TEST(DesignEditing, MovingAnEntryPlacesItBeforeTheGivenOne) {
    const struct {
        size_t from, before, at;
        std::vector<int> list;
    } cases[] = {
        {0, 2, 1, {2, 1, 3}}, {2, 0, 0, {3, 1, 2}}, {1, 3, 2, {1, 3, 2}}, {0, 9, 2, {2, 3, 1}}, {5, 0, 5, {1, 2, 3}},
    };
    for (const auto &c : cases) {
        std::vector<int> list{1, 2, 3};
        EXPECT_EQ(moveEntry(list, c.from, c.before), c.at);
        EXPECT_EQ(list, c.list) << c.from << " before " << c.before;
    }
}

} // namespace
