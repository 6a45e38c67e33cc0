// The add records wizard's statement texts on a connection that quotes with '"': which
// columns are listed, a constant written as it stands (its quote not doubled), a source
// value as a literal or a bare number, NULL for what has no value, the id condition.
#include "support/backend_test.h"
#include "support/test_text.h"
#include "tabra_catalog.h"
#include "wizards/add_records/add_records_statements.h"

namespace tabra::test {
namespace {

namespace add = tabra::wizards::add_records;

class AddRecordsStatementsTestDriver : public TestDriverTest {};

add::FieldDescriptor field(std::u16string name, int32_t type, int32_t kind, std::optional<std::u16string> value,
                           std::u16string constant = {}, bool skip = false) {
    add::FieldDescriptor field;
    field.name = field.sourceName = std::move(name);
    field.type = type;
    field.kind = kind;
    field.value = std::move(value);
    field.constant = std::move(constant);
    field.skip = skip;
    return field;
}

TEST_F(AddRecordsStatementsTestDriver, ListWhatIsWrittenAndQuoteConstantsAsTheyStand) {
    auto connection = connect(dsn::SQLite);
    const auto &kind = add::ids::kValueKind;
    const std::vector<add::FieldDescriptor> fields{
        field(u"id", TdtInteger, kind.source, u"7"),
        field(u"Kunden Name", TdtVarText, kind.source, u"O'Neil"),
        field(u"note", TdtVarText, kind.constant, {}, u"O'Neil"),
        field(u"empty", TdtNumber, kind.source, u""),
        field(u"blank", TdtText, kind.constant, {}, u""),
        field(u"counter", TdtInteger, kind.source, u"1", {}, true), // auto-increment: never written
        field(u"unused", TdtText, kind.none, u"x"),
    };
    const std::u16string table = u"Order Details";
    const SQLHDBC handle = connection.handle();
    const struct {
        const char *name;
        std::u16string actual, expected;
    } cases[] = {
        {"Insert", add::insertStatement(handle, table, fields),
         u"INSERT INTO \"Order Details\" (id,\"Kunden Name\",note,empty,blank) VALUES (7,'O''Neil','O'Neil',NULL,NULL)"},
        {"Update", add::updateStatement(handle, table, fields, u"id=7"),
         u"UPDATE \"Order Details\" SET id=7,\"Kunden Name\"='O''Neil',note='O'Neil',empty=NULL,blank=NULL WHERE id=7"},
        {"Delete", add::deleteStatement(handle, table, u"id=7"), u"DELETE FROM \"Order Details\" WHERE id=7"},
        {"DeleteAll", add::deleteStatement(handle, table, u""), u"DELETE FROM \"Order Details\""},
        {"Select", add::sourceSelect(handle, u"src", fields, u"Kunden Nr").text,
         u"SELECT id,\"Kunden Name\",empty,counter,\"Kunden Nr\" FROM src"}, // every source column is read
        {"IntegerId", add::idCondition(handle, u"id", u"7", SQL_INTEGER), u"id=7"},
        {"CharacterId", add::idCondition(handle, u"code", u"7", SQL_CHAR), u"code='7'"},
        {"QuotedId", add::idCondition(handle, u"Kunden Nr", u"O'N", SQL_VARCHAR), u"\"Kunden Nr\"='O''N'"},
    };
    for (const auto &c : cases) EXPECT_EQ(toUtf8(c.actual), toUtf8(c.expected)) << c.name;
    EXPECT_EQ(add::sourceSelect(handle, u"src", fields, u"Kunden Nr").columns, 5) << "the id column counts";
}

} // namespace
} // namespace tabra::test
