// The connection-information reader: the one question about the quote string, read
// by the rules of each caller, on the test driver's quoting variants.
#include "core/connection/connection_info.h"
#include "support/backend_test.h"
#include "support/test_text.h"

#include <gtest/gtest.h>

namespace tabra::test {
namespace {

class ConnectionInfoTest : public TestDriverTest {};

TEST_F(ConnectionInfoTest, EachQuoteRuleReadsTheOneAnswer) {
    const std::u16string noQuote = addDataSource({{"QuoteChar", "none"}});
    struct Case {
        std::u16string dataSource;
        std::u16string quoteString; // identifier preparation: empty when the driver does not quote
        char16_t first;             // the delimiter as it came
        char16_t splitting;         // clause splitting: 0 for a space
    };
    const Case cases[] = {
        {dsn::TestDriver, u"\"", u'"', u'"'},
        {dsn::MySql, u"`", u'`', u'`'},
        {dsn::BlankQuote, u"", u' ', u'\0'},
        {noQuote, u"", u'\0', u'\0'},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(toUtf8(c.dataSource));
        auto connection = connect(c.dataSource);
        const auto quote = connection::identifierQuote(connection.handle());
        EXPECT_EQ(quote.quoteString(), c.quoteString);
        EXPECT_EQ(quote.first(), c.first);
        EXPECT_EQ(quote.splittingQuote(), c.splitting);
    }
    const auto none = connection::identifierQuote(nullptr);
    EXPECT_TRUE(none.text.empty());
    EXPECT_FALSE(none.answered);
    EXPECT_EQ(connection::schemaUsage(nullptr, odbc::Acceptance::InformationalAccepted), 0u);
    EXPECT_EQ(connection::dbmsName(nullptr), u"");
}

} // namespace
} // namespace tabra::test
