// The driver information dialog through the scripted driver: on every backend it shows
// what the driver reports; on the test driver, the bounds of the answers and a quote
// character that is blank or missing.
#include "admin/driver_info/resource_ids.h"
#include "catalog/catalog_test_support.h"
#include "tabra.h"

#include <sqlext.h>

namespace tabra::test {
namespace {

const auto &kDialog = admin::driver_info::ids::kDriverInfoDialog;

// Runs the dialog to OK; the texts of its controls as they were when it closed.
struct Shown {
    std::u16string dbmsName, dbmsVersion, odbcVersion, driverVersion, dataSource, quote, database;
};
Shown showDialog(SQLHDBC connection) {
    ScriptedRun script;
    script.queue(click(kDialog.id, IDOK));
    Tabra_DisplayDriverInformation(connection, nullptr);
    EXPECT_FALSE(script.failed()) << script.report();
    auto text = [&](int32_t control) { return script.closedControlText(kDialog.id, control); };
    return {text(kDialog.dbmsName),   text(kDialog.dbmsVersion), text(kDialog.odbcVersion),
            text(kDialog.driverVersion), text(kDialog.dataSource), text(kDialog.quoteCharacter),
            text(kDialog.databaseName)};
}

// The quote field as string 2811 makes it of the character.
std::u16string quoteShown(std::u16string_view character, int32_t code) {
    std::u16string format = resourceText(admin::driver_info::ids::kString.quoteCharacter), result;
    const char16_t *argument[] = {u"%s", u"%d", u"%X"};
    std::string decimal = std::to_string(code), hex;
    for (int32_t rest = code; rest > 0 || hex.empty(); rest /= 16) hex.insert(hex.begin(), "0123456789ABCDEF"[rest % 16]);
    const std::u16string values[] = {std::u16string(character), toUtf16(decimal), toUtf16(hex)};
    for (size_t i = 0; i < 3; ++i) {
        size_t at = format.find(argument[i]);
        EXPECT_NE(at, std::u16string::npos) << "string 2811 takes the character and its code twice";
        if (at != std::u16string::npos) format.replace(at, 2, values[i]);
    }
    return format;
}

class DriverInfoDialogTest : public BackendTest {};

// The product and the quote character are the ones each driver is known to report;
// the data source and database are the connection's; the versions are not empty.
TEST_P(DriverInfoDialogTest, ShowsWhatTheDriverReports) {
    const struct {
        Backend backend;
        const char16_t *dbmsName;
        const char16_t *quote;
    } expected[] = {{Backend::SQLite, u"SQLite", u"\""},
                    {Backend::PostgreSQL, u"PostgreSQL", u"\""},
                    {Backend::MariaDB, u"MariaDB", u"`"}};
    OdbcConnection connection = connect();
    for (const auto &e : expected) {
        if (e.backend != backend()) continue;
        Shown shown = showDialog(connection.handle());
        EXPECT_EQ(shown.dbmsName, e.dbmsName);
        EXPECT_EQ(shown.quote, quoteShown(e.quote, e.quote[0]));
        EXPECT_EQ(shown.dataSource, dataSource().name);
        SQLWCHAR database[300] = {};
        SQLGetConnectAttrW(connection.handle(), SQL_ATTR_CURRENT_CATALOG, database, sizeof database, nullptr);
        if (backend() != Backend::SQLite) EXPECT_EQ(shown.database, reinterpret_cast<char16_t *>(database));
        else EXPECT_FALSE(shown.database.empty());
        for (const std::u16string *version : {&shown.dbmsVersion, &shown.odbcVersion, &shown.driverVersion})
            EXPECT_FALSE(version->empty());
        EXPECT_EQ(shown.odbcVersion.substr(0, 3), u"03.");
    }
}

TABRA_INSTANTIATE_BACKEND_TEST(DriverInfoDialogTest);

// Each answer gets 100 bytes of room, so a long product name shows its first 49
// characters; a blank quote character shows as a space with code 32, a missing one as
// nothing with code 0.
TEST_F(TestDriverTest, DriverInfoDialogBoundsTheAnswers) {
    const std::string longName(80, 'N');
    const struct {
        const char *quoteSetting;
        std::u16string_view character;
        int32_t code;
    } cases[] = {{"space", u" ", 32}, {"none", u"", 0}, {"`", u"`", 96}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.quoteSetting);
        OdbcConnection connection(addDataSource({{"DBMSName", longName}, {"QuoteChar", c.quoteSetting}}));
        Shown shown = showDialog(connection.handle());
        EXPECT_EQ(shown.dbmsName, toUtf16(longName.substr(0, 49)));
        EXPECT_EQ(shown.quote, quoteShown(c.character, c.code));
    }
}

} // namespace
} // namespace tabra::test
