// Descriptors shown in the rows of the selection dialog's template and read back:
// groups go to blocks of rows, the data type comes from the column box, lines the rows
// cannot hold are lost; the operator boxes; copying the column box to all rows.
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "query/resource_ids.h"
#include "support/box_contents.h"
#include "support/test_text.h"
#include "tabra.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using tabra::test::BoxEntries;
using tabra::test::boxEntries;

constexpr ConditionRow kRows[] = TABRA_SELECTION_DIALOG_ROWS;
constexpr char16_t kColumns[] = u"a\t4\tb\t12\tc\t4\tName\t12\tBorn On\t9";

class ConditionRowsTest : public ::testing::Test {
protected:
    void SetUp() override {
        dialog_ = CreateDialogParamW(tabra::module::resourceLibrary(), tabra::query::ids::kSelectionDialog.id, nullptr, ignore, 0);
        ASSERT_NE(dialog_, nullptr);
    }
    void TearDown() override { DestroyWindow(dialog_); }
    static INT_PTR ignore(HWND, uint32_t, WPARAM, LPARAM) { return 0; }

    std::u16string roundTrip(const std::u16string &descriptor, int32_t kind = TABRA_SELECTION_OPERATORS) {
        Tabra_OpDesc_To_DialogItems(kind, descriptor.c_str(), kColumns, dialog_, kRows);
        return read(kind);
    }
    std::u16string read(int32_t kind = TABRA_SELECTION_OPERATORS, int32_t capacity = 2000) {
        std::u16string out(static_cast<size_t>(capacity), u'#');
        EXPECT_EQ(Tabra_DialogItems_To_OpDesc(kind, dialog_, kRows, out.data(), capacity), 1);
        return out.c_str();
    }
    std::u16string text(int32_t id) const {
        char16_t buffer[400] = {};
        GetDlgItemTextW(dialog_, id, buffer, 400);
        return buffer;
    }
    BoxEntries entries(int32_t id) const { return boxEntries(GetDlgItem(dialog_, id)); }
    HWND dialog_ = nullptr;
};

TEST_F(ConditionRowsTest, GroupsGoToTheirBlocksAndComeBackWithTheColumnsTypes) {
    struct Case {
        const char16_t *descriptor, *readBack;
    } cases[] = {
        // The stored type is not shown: it comes from the column box again (b is text).
        {u"a\tEQ\t5\t4\nb\tBW\tMü\t99\n\vc\tNN\t\t4\n", u"a\tEQ\t5\t4\nb\tBW\tMü\t12\n\vc\tNN\t\t4\n\v\v\v"},
        // An empty group keeps its block empty (a group of empty lines too); empty lines
        // take no row.
        {u"\va\tEQ\t1\t4\n\n\v\vc\tIN\t\t4\n\v", u"\va\tEQ\t1\t4\n\v\vc\tIN\t\t4\n\v"},
        {u"\n\va\tEQ\t1\t4\n", u"\va\tEQ\t1\t4\n\v\v\v"},
        // A column that is not in the list has type 0; quotes and umlauts stay as typed.
        {u"Other\tEQ\tO'Brien \"Ü\"\t12\n", u"Other\tEQ\tO'Brien \"Ü\"\t0\n\v\v\v\v"},
        // Unknown key: the blank operator is chosen and the line is dropped.
        {u"a\tXX\t1\t4\nb\tSCO\t2\t12\n", u"\v\v\v\v"},
        // Lines beyond a block and groups beyond the table are lost.
        {u"a\tEQ\t1\t4\na\tEQ\t2\t4\na\tEQ\t3\t4\na\tEQ\t4\t4\na\tEQ\t5\t4\na\tEQ\t6\t4\n"
         u"\vb\tEQ\tx\t12\nb\tEQ\ty\t12\n\vc\tGTF\ta\t4\n\vName\tIL\tx;y\t12\n\vBorn On\tEQ\t1.1.2000\t9\n",
         u"a\tEQ\t1\t4\na\tEQ\t2\t4\na\tEQ\t3\t4\na\tEQ\t4\t4\na\tEQ\t5\t4\n\vb\tEQ\tx\t12\n\vc\tGTF\ta\t4\n"
         u"\vName\tIL\tx;y\t12\n\v"},
        // A value without a column, and a column without a value, both count.
        {u"\tEQ\t7\t0\na\tNN\n", u"\tEQ\t7\t0\na\tNN\t\t4\n\v\v\v\v"},
    };
    for (const Case &c : cases) {
        std::u16string readBack = roundTrip(c.descriptor);
        EXPECT_EQ(readBack, c.readBack) << tabra::test::toUtf8(c.descriptor);
        EXPECT_EQ(roundTrip(readBack), readBack); // what the rows wrote they show unchanged
    }
}

TEST_F(ConditionRowsTest, RowsShowTheLineAndReadWithinTheirLimits) {
    std::u16string longColumn(120, u'k'), longValue(320, u'v');
    Tabra_OpDesc_To_DialogItems(TABRA_SELECTION_OPERATORS,
                                (u"b\tCT\tx\t12\n" + longColumn + u"\tEQ\t" + longValue + u"\t4\n").c_str(), kColumns,
                                dialog_, kRows);
    EXPECT_EQ(text(1011), u"b");
    EXPECT_EQ(Ostrel_GetBoxIndex(GetDlgItem(dialog_, 1011)), 1); // the list entry is chosen
    EXPECT_EQ(text(1012), u"contains");
    EXPECT_EQ(text(1013), u"x");
    EXPECT_EQ(text(1015), std::u16string(99, u'k'));
    EXPECT_EQ(text(1017), std::u16string(299, u'v'));
    EXPECT_EQ(read(), u"b\tCT\tx\t12\n" + std::u16string(99, u'k') + u"\tEQ\t" + std::u16string(199, u'v') +
                          u"\t0\n\v\v\v\v");
    // Separators cost two characters of room: capacity 5 leaves room for two of them.
    Tabra_OpDesc_To_DialogItems(TABRA_SELECTION_OPERATORS, u"", kColumns, dialog_, kRows);
    EXPECT_EQ(read(TABRA_SELECTION_OPERATORS, 5), u"\v\v");
    EXPECT_EQ(read(TABRA_SELECTION_OPERATORS, 1), u"");
    Tabra_OpDesc_To_DialogItems(TABRA_SELECTION_OPERATORS, u"a\tEQ\t12345\t4\n", kColumns, dialog_, kRows);
    EXPECT_EQ(read(TABRA_SELECTION_OPERATORS, 8), u"a\tEQ\t12");
}

TEST_F(ConditionRowsTest, OperatorBoxesOfBothKinds) {
    Tabra_OpDesc_To_DialogItems(TABRA_SELECTION_OPERATORS, nullptr, nullptr, dialog_, kRows);
    BoxEntries selection = entries(1031);
    ASSERT_EQ(selection.size(), 18u);
    EXPECT_EQ(selection.front(), (std::pair<std::u16string, LPARAM>{u"begins with", 101}));
    EXPECT_EQ(selection[10], (std::pair<std::u16string, LPARAM>{u"is one of (a;b;...)", 111}));
    EXPECT_EQ(selection.back(), (std::pair<std::u16string, LPARAM>{u" ", 0}));
    EXPECT_EQ(Ostrel_GetBoxCount(GetDlgItem(dialog_, 1011)), 0); // no column list: left as they were

    EXPECT_EQ(roundTrip(u"a\tSNU\t\t4\nb\tSFO\tb || 'x'\t12\nc\tEQ\t1\t4\n\vc\tSFI\ta\t4\n", TABRA_ASSIGNMENT_OPERATORS),
              u"a\tSNU\t\t4\nb\tSFO\tb || 'x'\t12\n\vc\tSFI\ta\t4\n\v\v\v");
    EXPECT_EQ(entries(1012), (BoxEntries{{u"set empty (NULL)", 300}, {u"set to value", 301}, {u"set to column", 302},
                                      {u"set to expression", 303}, {u" ", 0}}));
    EXPECT_EQ(text(1016), u"set to expression");
    EXPECT_EQ(text(1019), u" "); // unknown in this kind: the blank entry

    // Another kind does nothing; reading with it gives the empty text.
    Tabra_OpDesc_To_DialogItems(3, u"x\tEQ\t1\t4\n", kColumns, dialog_, kRows);
    EXPECT_EQ(text(1011), u"a");
    EXPECT_EQ(read(3), u"");
    char16_t out[10] = u"#";
    EXPECT_EQ(Tabra_DialogItems_To_OpDesc(1, nullptr, kRows, out, 10), 0);
    EXPECT_EQ(Tabra_DialogItems_To_OpDesc(1, dialog_, kRows, out, 0), 0);
    EXPECT_EQ(out[0], u'#');
}

TEST_F(ConditionRowsTest, OperatorListBoxesWork) {
    using tabra::core::ids::kSchemaDialog;
    HWND other = CreateDialogParamW(tabra::module::resourceLibrary(), kSchemaDialog.id, nullptr, ignore, 0);
    // An edit and a list box.
    const ConditionRow rows[] = {{kSchemaDialog.schema, kSchemaDialog.schemas, kSchemaDialog.schema}, {0, 0, 0}};
    Tabra_OpDesc_To_DialogItems(TABRA_ASSIGNMENT_OPERATORS, u"a\tSCO\t7\t4\n", kColumns, other, rows);
    HWND list = GetDlgItem(other, kSchemaDialog.schemas);
    EXPECT_EQ(Ostrel_GetBoxCount(list), 5);
    EXPECT_EQ(Ostrel_GetBoxIndex(list), 1);
    EXPECT_EQ(Ostrel_GetItemData(list, 1), 301);
    char16_t out[50];
    Tabra_DialogItems_To_OpDesc(TABRA_ASSIGNMENT_OPERATORS, other, rows, out, 50);
    EXPECT_EQ(std::u16string(out), u"7\tSCO\t7\t0\n"); // column and value share the edit
    DestroyWindow(other);
}

TEST_F(ConditionRowsTest, CloneCopiesTheFirstColumnBoxToAllRows) {
    Ostrel_FillBoxExtended(GetDlgItem(dialog_, 1011), u'\t', u"x\t4\ty\t12", OSTREL_FILL_WITH_DATA);
    Ostrel_FillBox(GetDlgItem(dialog_, 1032), u'\t', u"old");
    Tabra_OpDesc_Clone_Boxes(dialog_, kRows);
    BoxEntries expected{{u"x", 4}, {u"y", 12}};
    for (const ConditionRow &row : kRows) {
        if (row.column < 1) break;
        if (row.column == 1) continue;
        EXPECT_EQ(entries(row.column), expected) << row.column;
        EXPECT_EQ(entries(row.value), expected) << row.value;
        EXPECT_EQ(Ostrel_GetBoxCount(GetDlgItem(dialog_, row.operation)), 0);
    }
    const ConditionRow missing[] = {{4711, 1012, 1013}, {1015, 1016, 1017}, {0, 0, 0}};
    Ostrel_FillBox(GetDlgItem(dialog_, 1011), u'\t', u"z");
    Tabra_OpDesc_Clone_Boxes(dialog_, missing);
    EXPECT_EQ(entries(1015), expected);
}

} // namespace
