// Scanning clause lists into names and list boxes and writing boxes back; the sort
// direction toggle and the alias dialog (scripted).
#include "catalog/catalog_test_support.h"
#include "query/resource_ids.h"
#include "support/box_contents.h"
#include "tabra.h"

namespace {

using namespace tabra::test;

std::u16string scanned(int32_t (*scan)(const char16_t *, const char16_t *, int32_t, char16_t *, int32_t),
                       const std::u16string &statement, int32_t expectedResult = 0) {
    char16_t out[500] = u"#";
    EXPECT_EQ(scan(statement.c_str(), nullptr, 0, out, 500), expectedResult);
    return out;
}

TEST(ClauseScan, ColumnsTablesAndSortColumns) {
    EXPECT_EQ(scanned(Tabra_Select_Scan_FieldsClause, u"SELECT x AS y, z, t.w FROM t"), u"y,z,t.w");
    EXPECT_EQ(scanned(Tabra_Select_Scan_FieldsClause, u"SELECT price p,  \tqty FROM t"), u"p,qty");
    EXPECT_EQ(scanned(Tabra_Select_Scan_TablesClause, u"SELECT * FROM a, OUTER b"), u"a,b");
    EXPECT_EQ(scanned(Tabra_Select_Scan_TablesClause, u"SELECT * FROM orders o, outer items i WHERE o.id = 1"),
              u"orders,items");
    EXPECT_EQ(scanned(Tabra_Select_Scan_OrderByClause, u"SELECT a FROM t ORDER BY a DESC, b"), u"a,b");
    // Accepted limits: a comma inside parentheses splits the item.
    EXPECT_EQ(scanned(Tabra_Select_Scan_FieldsClause, u"SELECT COUNT(a,b) FROM t"), u"COUNT(a,b)");
}

TEST(ClauseScan, MissingClausesAndBadOutput) {
    EXPECT_EQ(scanned(Tabra_Select_Scan_FieldsClause, u"SELECT a", -1), u"");
    EXPECT_EQ(scanned(Tabra_Select_Scan_TablesClause, u"DELETE FROM t", -1), u"");
    EXPECT_EQ(scanned(Tabra_Select_Scan_OrderByClause, u"SELECT a FROM t", 0), u"");
    EXPECT_EQ(scanned(Tabra_Select_Scan_FieldsClause, u"", 0), u"");
    char16_t out[4];
    EXPECT_EQ(Tabra_Select_Scan_FieldsClause(u"SELECT a FROM t", nullptr, 0, out, 0), -1);
    EXPECT_EQ(Tabra_Select_Scan_FieldsClause(u"SELECT abcdef FROM t", nullptr, 0, out, 4), 0);
    EXPECT_EQ(std::u16string(out), u"abc");
}

TEST(ClauseScan, SortFlagsAndSeparator) {
    char16_t out[200];
    const char16_t *statement = u"SELECT a FROM t ORDER BY a desc, b ASC, c";
    EXPECT_EQ(Tabra_SelectScanOrderByClause(nullptr, statement, u";", TABRA_SCAN_DESC_WORD, out, 200), 0);
    EXPECT_EQ(std::u16string(out), u"a DESC;b;c");
    EXPECT_EQ(Tabra_SelectScanOrderByClause(nullptr, statement, u"|", TABRA_SCAN_DIRECTION_MARK, out, 200), 0);
    EXPECT_EQ(std::u16string(out), u"a\tD|b\tA|c\tA");
}

// A dialog with a list box to hold clause lists.
class ClauseBoxTest : public ::testing::Test {
protected:
    void SetUp() override {
        using tabra::core::ids::kSchemaDialog;
        dialog_ = CreateDialogParamW(tabra::module::resourceLibrary(), kSchemaDialog.id, nullptr, ignore, 0);
        ASSERT_NE(dialog_, nullptr);
        box_ = GetDlgItem(dialog_, kSchemaDialog.schemas);
    }
    void TearDown() override { DestroyWindow(dialog_); }
    static INT_PTR ignore(HWND, uint32_t, WPARAM, LPARAM) { return 0; }
    BoxEntries entries() const { return boxEntries(box_); }
    HWND dialog_ = nullptr;
    HWND box_ = nullptr;
};

TEST_F(ClauseBoxTest, ColumnsWithAliasesBothWays) {
    Tabra_Select_FieldsClause_To_FieldsBox(nullptr, u"SELECT a AS x, b y, c, *  FROM t", TABRA_BOX_WITH_ALIAS, box_);
    EXPECT_EQ(entries(), (BoxEntries{{u"a\tx", 0}, {u"b\ty", 0}, {u"c", 0}, {u"*", 0}}));
    char16_t statement[200] = u"SELECT q FROM t WHERE a = 1";
    EXPECT_EQ(Tabra_Select_FieldsBox_To_FieldsClause(nullptr, box_, statement, 200), 0);
    EXPECT_EQ(std::u16string(statement), u"SELECT a AS x,b AS y,c,* FROM t WHERE a = 1");
    Tabra_Select_FieldsClause_To_FieldsBox(nullptr, u"SELECT a AS x FROM t", 0, box_);
    EXPECT_EQ(entries(), (BoxEntries{{u"a", 0}}));
}

TEST_F(ClauseBoxTest, TablesAndSortOrder) {
    Tabra_Select_TablesClause_To_TablesBox(nullptr, u"SELECT * FROM a x, OUTER b", 0, box_);
    EXPECT_EQ(entries(), (BoxEntries{{u"a", 0}, {u"b", 0}}));
    char16_t statement[200] = u"";
    EXPECT_EQ(Tabra_Select_TablesBox_To_TablesClause(nullptr, box_, statement, 200), 0);
    EXPECT_EQ(std::u16string(statement), u"SELECT FROM a,b");

    Tabra_Select_OrderByClause_To_OrderByBox(nullptr, u"SELECT a FROM t ORDER BY a DESC, b", TABRA_BOX_WITH_DIRECTION,
                                             box_);
    EXPECT_EQ(entries(), (BoxEntries{{u"a\tdescending", 1}, {u"b\tascending", 0}}));
    char16_t sorted[200] = u"SELECT a FROM t WHERE c > 1";
    EXPECT_EQ(Tabra_Select_OrderByBox_To_OrderByClause(nullptr, box_, sorted, 200), 0);
    EXPECT_EQ(std::u16string(sorted), u"SELECT a FROM t WHERE c > 1 ORDER BY a DESC,b");

    Ostrel_SetBoxIndex(box_, 1);
    EXPECT_EQ(Tabra_OrderByBox_ToggleDirection(box_, -1), 1);
    EXPECT_EQ(Tabra_OrderByBox_ToggleDirection(box_, 0), 0);
    EXPECT_EQ(entries(), (BoxEntries{{u"a\tascending", 0}, {u"b\tdescending", 1}}));
    EXPECT_EQ(Ostrel_GetBoxIndex(box_), 0);
}

TEST_F(ClauseBoxTest, AliasDialogAcceptsOnlyTheAliasAlphabet) {
    ScriptedRun run;
    Ostrel_FillBox(box_, u'\t', u"price\tqty");
    using tabra::query::ids::kAliasDialog;
    run.queue(onDialog(kAliasDialog.id, "type", kAliasDialog.alias, "\"t0x_9\""));
    run.queue(click(kAliasDialog.id, IDOK));
    EXPECT_EQ(Tabra_FieldsBox_EditAlias(box_, 1), 1);
    EXPECT_FALSE(run.failed()) << run.report();
    EXPECT_EQ(run.records(TABRA_RECORD_BEEP).size(), 1u);
    EXPECT_EQ(entries(), (BoxEntries{{u"price", 0}, {u"qty\ttx_9", 0}}));
    EXPECT_EQ(Ostrel_GetBoxIndex(box_), 1);

    run.queue(onDialog(kAliasDialog.id, "expect", kAliasDialog.alias, "\"tx_9\""));
    run.queue(click(kAliasDialog.id, IDCANCEL));
    EXPECT_EQ(Tabra_FieldsBox_EditAlias(box_, 1), 2);
    Ostrel_SetBoxIndex(box_, -1);
    EXPECT_EQ(Tabra_FieldsBox_EditAlias(box_, -1), 2);
    EXPECT_FALSE(run.failed()) << run.report();
}

class ClauseBoxBackendTest : public BackendTest {};

TEST_P(ClauseBoxBackendTest, QuotedNamesAreStrippedAndQuotedAgain) {
    OdbcConnection connection = connect();
    std::u16string quote = infoText(connection, SQL_IDENTIFIER_QUOTE_CHAR);
    std::u16string statement = u"SELECT " + quote + u"Unit Price" + quote + u" AS " + quote + u"Preis, netto" + quote +
                               u", id FROM " + quote + u"My Items" + quote + u" ORDER BY " + quote + u"Unit Price" +
                               quote + u" DESC";
    char16_t out[300];
    EXPECT_EQ(Tabra_SelectScanFieldsClause(connection.handle(), statement.c_str(), u"|", 0, out, 300), 0);
    EXPECT_EQ(std::u16string(out), u"Preis, netto|id");
    EXPECT_EQ(Tabra_SelectScanTablesClause(connection.handle(), statement.c_str(), nullptr, 0, out, 300), 0);
    EXPECT_EQ(std::u16string(out), u"My Items");
    EXPECT_EQ(Tabra_SelectScanOrderByClause(connection.handle(), statement.c_str(), nullptr, TABRA_SCAN_DESC_WORD,
                                            out, 300), 0);
    EXPECT_EQ(std::u16string(out), u"Unit Price DESC");
}

TABRA_INSTANTIATE_BACKEND_TEST(ClauseBoxBackendTest);

} // namespace
