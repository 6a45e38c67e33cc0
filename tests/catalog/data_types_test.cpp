// The pure parts of the catalog: data-type codes, value text, object-type names, the
// table-type list and the bookkeeping filter, numbers read from fetched text.
#include "catalog/number_text.h"
#include "catalog/table_type_flags.h"
#include "ostrel.h"
#include "support/test_text.h"
#include "tabra_catalog.h"

#include <gtest/gtest.h>

#include <sql.h>
#include <sqlext.h>

#include <string>

namespace tabra::test {
namespace {

TEST(TabraDataTypes, EveryOdbcTypeMapsAsTheTableSays) {
    struct Case {
        int32_t sqlType;
        int32_t expected;
    };
    const Case cases[] = {
        {SQL_CHAR, TdtText},          {SQL_WCHAR, TdtText},           {SQL_BIT, TdtText},
        {SQL_GUID, TdtText},          {SQL_TYPE_DATE, TdtText},       {SQL_TYPE_TIME, TdtText},
        {SQL_TYPE_TIMESTAMP, TdtText}, {SQL_TINYINT, TdtInteger},     {SQL_BIGINT, TdtInteger},
        {SQL_INTEGER, TdtInteger},    {SQL_SMALLINT, TdtInteger},     {SQL_NUMERIC, TdtNumber},
        {SQL_DECIMAL, TdtNumber},     {SQL_FLOAT, TdtNumber},         {SQL_REAL, TdtNumber},
        {SQL_DOUBLE, TdtNumber},      {9, TdtDateTime},               {10, TdtDateTime},
        {11, TdtDateTime},            {SQL_LONGVARBINARY, TdtBinary}, {SQL_VARBINARY, TdtBinary},
        {SQL_BINARY, TdtBinary},      {SQL_WLONGVARCHAR, TdtMemo},    {SQL_LONGVARCHAR, TdtMemo},
        {SQL_WVARCHAR, TdtVarText},   {SQL_VARCHAR, TdtVarText},      {0, TdtVarText},
        {12345, TdtText},             {-99, TdtText},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Tabra_SqlDataTypeToTabraDataType(c.sqlType), c.expected) << "SQL type " << c.sqlType;
}

TEST(TabraDataTypes, CodesFiveSixAndEightAreNeverProduced) {
    for (int32_t type = -200; type <= 200; ++type) {
        int32_t code = Tabra_SqlDataTypeToTabraDataType(type);
        EXPECT_TRUE(code != 5 && code != 6 && code != 8) << type;
    }
}

std::u16string displayText(std::u16string text, int32_t type, char16_t decimal, int32_t capacity = 100) {
    text.resize(static_cast<size_t>(capacity), u'\0');
    Tabra_OdbcDataToString(text.data(), capacity, type, decimal);
    return text.c_str();
}

TEST(OdbcValueText, NumbersTakeTheDecimalCharacterAndIntegersStay) {
    EXPECT_EQ(displayText(u"12.50", SQL_DECIMAL, u','), u"12,50");
    for (int32_t type : {SQL_NUMERIC, SQL_DECIMAL, SQL_FLOAT, SQL_REAL, SQL_DOUBLE})
        EXPECT_EQ(displayText(u"-1.5e.3", type, u','), u"-1,5e,3") << type;
    EXPECT_EQ(displayText(u"12.50", SQL_INTEGER, u','), u"12.50");
    EXPECT_EQ(displayText(u"12.50", SQL_VARCHAR, u','), u"12.50");
    EXPECT_EQ(displayText(u"", SQL_DOUBLE, u','), u"");
}

TEST(OdbcValueText, OdbcTwoDatesTakeTheUsersFormAndOdbcThreeDatesStay) {
    DateTimeStruct value{};
    ASSERT_EQ(OdbcTimeStamp_To_DateTimeStruct(u"2024-12-24 10:11:12", &value), 1);
    char16_t expected[100];
    ASSERT_EQ(DateTimeStruct_To_FormattedDate(&value, expected, 100, 0), 1);
    for (int32_t type : {9, 10, 11}) EXPECT_EQ(displayText(u"2024-12-24 10:11:12", type, u','), expected) << type;
    EXPECT_EQ(displayText(u"2024-12-24 10:11:12", SQL_TYPE_TIMESTAMP, u','), u"2024-12-24 10:11:12");
    // Text that is no timestamp (a NULL fetched as empty text) stays as it is.
    EXPECT_EQ(displayText(u"", 11, u','), u"");
    EXPECT_EQ(displayText(u"not a date", 9, u','), u"not a date");
    Tabra_OdbcDataToString(nullptr, 10, 11, u','); // no crash
}

TEST(ObjectTypeNames, KnownCodesGiveTheirNamesOthersTheEmptyText) {
    struct Case {
        int32_t code;
        std::u16string name;
    };
    const Case cases[] = {{TABRA_OBJECT_TABLE, u"TABLE"}, {TABRA_OBJECT_VIEW, u"VIEW"}, {TABRA_OBJECT_FORM, u"FORM"},
                          {TABRA_OBJECT_REPORT, u"REPORT"}, {0, u""}, {3, u""}, {16, u""}, {-1, u""}};
    for (const Case &c : cases) {
        char16_t name[20] = u"x";
        // The result is the bounded copy's: the name's length.
        EXPECT_EQ(Tabra_ObjectTypeToName(c.code, name, 20), static_cast<int32_t>(c.name.size())) << c.code;
        EXPECT_EQ(std::u16string(name), c.name);
    }
    char16_t name[20];
    EXPECT_EQ(Tabra_ObjectTypeToName(TABRA_OBJECT_REPORT, name, 4), 3); // cut like any bounded copy
    EXPECT_EQ(std::u16string(name), u"REP");
    EXPECT_EQ(Tabra_ObjectTypeToName(TABRA_OBJECT_TABLE, nullptr, 20), -1);
    EXPECT_EQ(Tabra_ObjectTypeToName(TABRA_OBJECT_TABLE, name, 0), -1);
    Tabra_FillFormsBox();
    Tabra_FillReportsBox();
}

TEST(TableTypeList, IsBuiltInTheFixedOrderWithoutBlanks) {
    using catalog::tableTypeList;
    EXPECT_EQ(tableTypeList(1 | 2), std::u16string(u"'TABLE','VIEW'"));
    EXPECT_EQ(tableTypeList(1 | 2)->size(), 14u);
    EXPECT_EQ(tableTypeList(0x10F), std::u16string(u"'TABLE','ALIAS','VIEW','SYNONYM','SYSTEM TABLE'"));
    EXPECT_EQ(tableTypeList(2 | 0x100), std::u16string(u"'VIEW','SYNONYM'"));
    EXPECT_EQ(tableTypeList(8), std::u16string(u"'SYSTEM TABLE'"));
    EXPECT_EQ(tableTypeList(0), std::u16string());             // an empty list, passed as it is
    EXPECT_EQ(tableTypeList(0x20 | 0x40), std::u16string());   // unknown bits add nothing
    EXPECT_FALSE(tableTypeList(16).has_value());               // all types: no list at all
    EXPECT_FALSE(tableTypeList(16 | 1 | 2).has_value());
}

TEST(TableTypeList, BookkeepingTablesAreUSysByCaseAndTheSystemTableInAnyCase) {
    struct Case {
        const char16_t *name;
        bool bookkeeping;
    };
    const Case cases[] = {
        {u"USysRelations", true}, {u"USys", true},           {u"usysfoo", false},        {u"USy", false},
        {u"MyUSysTable", false},  {u"OstrelSysTable", true}, {u"ostrelsystable", true},  {u"OSTRELSYSTABLE", true},
        {u"OstrelSysTable2", false}, {u"", false},
    };
    for (const Case &c : cases) EXPECT_EQ(catalog::isBookkeepingTable(c.name), c.bookkeeping) << toUtf8(c.name);
}

TEST(NumberText, ReadsLikeTheClassicConversions) {
    struct Case {
        const char16_t *text;
        int32_t asLong;
        double asDouble;
    };
    const Case cases[] = {
        {u"42", 42, 42.0},           {u"  -17abc", -17, -17.0},     {u"99397.0", 99397, 99397.0},
        {u"", 0, 0.0},               {nullptr, 0, 0.0},             {u"x12", 0, 0.0},
        {u"12.5", 12, 12.5},         {u" +1.5e3 rest", 1, 1500.0},  {u"-0.25", 0, -0.25},
        {u"99397", 99397, 99397.0},  {u"abc", 0, 0.0},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(toUtf8(c.text ? c.text : u"(null)"));
        EXPECT_EQ(catalog::readLong(c.text), c.asLong);
        EXPECT_DOUBLE_EQ(catalog::readDouble(c.text), c.asDouble);
    }
}

} // namespace
} // namespace tabra::test
