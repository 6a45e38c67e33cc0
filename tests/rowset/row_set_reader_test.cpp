// Reading values as UTF-8 and decoding them gives the very units a wide-character
// fetch gives, cut where the driver cuts wide text (a pair may be split there), for
// text of every length class of UTF-8, values longer than the buffer, numbers and
// dates, on the connections where the library reads UTF-8 (MariaDB on utf8mb4); the
// others stay wide.
#include "core/connection/connection_info.h"
#include "rowset/row_set_reader.h"
#include "rowset/row_set_test_support.h"

namespace tabra::test {
namespace {

using rowset::RowSetReader;
using rowset::TextTransfer;

using Values = std::vector<std::optional<std::u16string>>;

// Every value of the statement's rows, read as the library reads them.
Values readAll(const OdbcConnection &connection, const std::u16string &sql, TextTransfer transfer, bool blocks) {
    OdbcStatement statement(connection);
    statement.execute(sql);
    SQLSMALLINT columns = 0;
    SQLNumResultCols(statement.handle(), &columns);
    RowSetReader reader(statement.handle(), 5000, columns, transfer);
    if (blocks) {
        EXPECT_TRUE(reader.useBlocks());
    }
    Values values;
    rowset::FetchedValue value;
    while (succeeded(reader.nextRow()))
        for (SQLUSMALLINT column = 1; column <= static_cast<SQLUSMALLINT>(columns); ++column) {
            EXPECT_TRUE(succeeded(reader.read(column, value)));
            values.push_back(value.isNull() ? std::nullopt : std::optional(std::u16string(value.text, value.length)));
        }
    return values;
}

class RowSetReaderTest : public BackendTest {};

TEST_P(RowSetReaderTest, Utf8GivesTheUnitsOfTheWideFetch) {
    OdbcConnection connection(dataSource());
    bool utf8 = connection::fetchesTextAsUtf8(connection.handle());
    EXPECT_EQ(utf8, backend() == Backend::MariaDB || backend() == Backend::PostgreSQL);
    if (!utf8) return;
    const bool maria = backend() == Backend::MariaDB;
    auto repeated = [](std::u16string_view unit, int times) {
        std::u16string text;
        for (int i = 0; i < times; ++i) text += unit;
        return text;
    };
    std::u16string cut(4998, u'a');
    cut += u"\U0001F600b";
    const std::vector<std::u16string> texts{
        cut,                                           // the pair falls on the cut
        repeated(u"\u00e9", 5000),                    // two bytes each, one unit over
        repeated(u"\u20ac", 6000),                    // three bytes each, longer than the UTF-8 slot
        repeated(u"\U0001F600", 3000),                // four bytes, two units each
        u"A\u00fc\u00d8\u07ff\u0800\ud7fb\ue000\ufffd\U00010000\U0010FFFD", u""};
    executeAll(connection, {maria ? u"CREATE TABLE texts (id INTEGER PRIMARY KEY, val LONGTEXT, num DOUBLE, money "
                                    u"DECIMAL(12,3), day DATE, stamp DATETIME, flag BIT(1), raw VARBINARY(8))"
                                  : u"CREATE TABLE texts (id INTEGER PRIMARY KEY, val TEXT, num DOUBLE PRECISION, money "
                                    u"NUMERIC(12,3), day DATE, stamp TIMESTAMP, flag BOOLEAN, raw BYTEA)"});
    for (std::size_t i = 0; i < texts.size(); ++i)
        executeAll(connection, {u"INSERT INTO texts VALUES (" + toUtf16(std::to_string(i)) + u", '" + texts[i] +
                                u"', -3.25e" + toUtf16(std::to_string(i * 37)) + u", 12345.678, '2024-02-29', "
                                u"'2024-03-05 14:07:09', " + (maria ? u"1, 'ab\\0c')" : u"TRUE, 'ab\\000c')")});
    executeAll(connection, {u"INSERT INTO texts VALUES (99, NULL, NULL, NULL, NULL, NULL, NULL, NULL)"});
    const std::u16string sql = u"SELECT * FROM texts ORDER BY id";
    Values wide = readAll(connection, sql, TextTransfer::Wide, false);
    ASSERT_EQ(wide.size(), 8 * (texts.size() + 1));
    if (maria) {
        EXPECT_EQ(wide[1]->size(), 4999u);
        EXPECT_EQ(wide[1]->back(), u'\xD83D') << "the driver's wide fetch keeps the first half of a cut pair";
    }
    EXPECT_EQ(readAll(connection, sql, TextTransfer::Utf8, true), wide);
    EXPECT_EQ(readAll(connection, sql, TextTransfer::Utf8, false), wide);
}

TABRA_INSTANTIATE_BACKEND_TEST(RowSetReaderTest);

} // namespace
} // namespace tabra::test
