// The import's rules that no backend shows: the mapping checks with their last-field
// limit, the value literals with the date swap of database type 4, and which field
// names the telephone/fax converter takes as its pairs.
#include "tabra_catalog.h"
#include "wizards/import/import_statements.h"
#include "wizards/import/mapping_checks.h"
#include "wizards/import/resource_ids.h"
#include "wizards/import/telfax_converter.h"
#include "wizards/resource_ids.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace tabra::wizards::importing {
namespace {

struct Column {
    std::u16string name;
    int32_t sourceType = TdtVarText;
    int32_t type = TdtVarText;
    bool autoIncrement = false;
    bool imported = true;
    std::optional<std::u16string> value = std::nullopt;
};

ImportFieldList fieldsOf(const std::vector<Column> &columns) {
    ImportFieldList fields;
    for (const Column &column : columns) {
        ImportField &field = fields.add(describedField(column.name, column.sourceType, 255));
        field.name = column.name;
        field.type = column.type;
        field.autoIncrement = column.autoIncrement;
        field.imported = column.imported;
        field.value = column.value;
    }
    return fields;
}

TEST(ImportMappingChecks, StopAtTheFirstFailingFieldAndNeverCheckTheLast) {
    struct Case {
        std::vector<Column> columns;
        int32_t message; // 0: the fields pass
        std::u16string argument;
    } cases[] = {
        {{{u"a"}, {u"b"}, {u"A"}}, ids::kMessage.sameColumnTwice, u"a"},
        {{{u"a", TdtVarText, TdtVarText, false, false}, {u"A"}}, 0, {}},
        {{{u"id", TdtInteger, TdtInteger, true}, {u"nr", TdtInteger, TdtInteger, true}, {u"z"}},
         ids::kMessage.autoIncrementTwice, {}},
        {{{u"nr", TdtInteger, TdtInteger, true}, {u"z"}, {u"id", TdtInteger, TdtInteger, true}}, 0, {}},
        {{{u"day", TdtDateTime, TdtInteger}, {u"z"}}, wizards::ids::kMessage.conversionNotAllowed, u"day"},
        {{{u"z"}, {u"day", TdtDateTime, TdtNumber}}, 0, {}},
        {{{u"n", TdtNumber, TdtDateTime}, {u"z"}}, wizards::ids::kMessage.conversionNotAllowed, u"n"},
        {{{u"n", TdtVarText, TdtDateTime}, {u"d", TdtDateTime, TdtText}, {u"z"}}, 0, {}},
        {{{u"X_Y"}, {u"X.Y_1"}, {u"Z"}}, ids::kMessage.forbiddenCharacter, u"X.Y_1"},
        {{{u"O'Neil"}, {u"z"}}, ids::kMessage.forbiddenCharacter, u"O'Neil"},
        {{{u"ok"}, {u"bad(name)"}}, 0, {}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::Message() << "case " << &c - cases);
        auto failure = checkFields(fieldsOf(c.columns));
        EXPECT_EQ(failure ? failure->message : 0, c.message);
        EXPECT_EQ(failure ? failure->argument : u"", c.argument);
    }
}

TEST(ImportStatements, ValuesAreLiteralsWithQuotesDoubledAndNullForNone) {
    const std::vector<Column> columns = {
        {u"name", TdtVarText, TdtVarText, false, true, u"O'Neil"},
        {u"empty", TdtVarText, TdtVarText, false, true, u""},
        {u"none", TdtVarText, TdtVarText, false, true},
        {u"amount", TdtVarText, TdtNumber, false, true, u"-12.5"},
        {u"day", TdtVarText, TdtDateTime, false, true, u"1999-12-31 00:00:00"},
        {u"id", TdtInteger, TdtInteger, true, true, u"7"},
        {u"skipped", TdtVarText, TdtVarText, false, false, u"x"},
    };
    for (bool swap : {false, true}) {
        std::u16string list;
        appendValueList(list, fieldsOf(columns), swap);
        EXPECT_EQ(list, swap ? u"('O''Neil',NULL,NULL,-12.5,'1999-31-12 00:00:00')"
                             : u"('O''Neil',NULL,NULL,-12.5,'1999-12-31 00:00:00')");
    }
}

TEST(ImportTelFaxConverter, PairsAreAPrefixAndOneOrTwoDigits) {
    const TelFaxSettings settings;
    struct Case {
        std::u16string_view name;
        ConverterRole role;
        std::u16string suffix;
    } cases[] = {
        {u"Ko_Name1", ConverterRole::Kind, u"1"},      {u"ko_nummer12", ConverterRole::Number, u"12"},
        {u"KO_NAME07", ConverterRole::Kind, u"07"},    {u"Ko_Name123", ConverterRole::None, {}},
        {u"Ko_NameX", ConverterRole::None, {}},        {u"Ko_Name", ConverterRole::None, {}},
        {u"Ko_Nummer1a", ConverterRole::None, {}},     {u"xKo_Name1", ConverterRole::None, {}},
    };
    for (const Case &c : cases) {
        ConverterField field = recognise(settings, c.name);
        EXPECT_EQ(field.role, c.role) << std::string(c.name.begin(), c.name.end());
        EXPECT_EQ(field.suffix, c.suffix);
    }
    TelFaxSettings listed;
    listed.keywords = u"Telefon,,Fax,";
    EXPECT_EQ(listed.kinds(), (std::vector<std::u16string>{u"Telefon", u"Fax"}));
}

} // namespace
} // namespace tabra::wizards::importing
