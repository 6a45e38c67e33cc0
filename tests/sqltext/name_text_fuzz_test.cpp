// A bounded random run over the name and statement text functions with small
// capacities: whatever the input, nothing is written past the capacity, the output is
// terminated, and the same input gives the same output. Run under the sanitizers by
// the test command; the iteration count is fixed, not the time.
#include "support/backend_test.h"
#include "support/test_text.h"
#include "tabra_sqltext.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace tabra::test {
namespace {

constexpr int kIterations = 4000;
constexpr char16_t kGuard = u'\xA5A5';

// Characters that matter to the name rules, and a few that do not.
const std::u16string kAlphabet = u"aZ09_$ .\"`[]*\t\x01\xE4\xDF\x3A9\xD83D\xDE00%stf";

std::u16string randomText(std::mt19937 &random, size_t maxLength) {
    std::uniform_int_distribution<size_t> length(0, maxLength);
    std::uniform_int_distribution<size_t> pick(0, kAlphabet.size() - 1);
    std::u16string text(length(random), u'a');
    for (char16_t &c : text) c = kAlphabet[pick(random)];
    return text;
}

// A buffer of capacity characters with guard characters behind it.
struct GuardedBuffer {
    explicit GuardedBuffer(int32_t capacity, std::u16string_view content = u"")
        : size(capacity), data(static_cast<size_t>(capacity) + 8, kGuard) {
        size_t n = std::min(content.size(), static_cast<size_t>(capacity > 0 ? capacity - 1 : 0));
        content.substr(0, n).copy(data.data(), n);
        if (capacity > 0) data[n] = u'\0';
    }
    void check(const char *what, const std::u16string &input) const {
        for (size_t i = static_cast<size_t>(size); i < data.size(); ++i)
            ASSERT_EQ(data[i], kGuard) << what << " wrote past " << size << " for " << toUtf8(input);
        if (size >= 1) {
            bool terminated = false;
            for (int32_t i = 0; i < size && !terminated; ++i) terminated = data[static_cast<size_t>(i)] == u'\0';
            ASSERT_TRUE(terminated) << what << " left no terminator for " << toUtf8(input);
        }
    }
    std::u16string text() const { return size >= 1 ? std::u16string(data.c_str()) : std::u16string(); }
    int32_t size;
    std::u16string data;
};

class NameTextFuzzTestDriverTest : public TestDriverTest {};

TEST_F(NameTextFuzzTestDriverTest, NeverWritesPastTheCapacity) {
    auto quoting = connect(dsn::TestDriver);
    auto blank = connect(dsn::BlankQuote);
    std::mt19937 random(20261121);
    std::uniform_int_distribution<int32_t> capacity(0, 14);
    for (int i = 0; i < kIterations; ++i) {
        SQLHDBC h = (i % 3 == 0) ? blank.handle() : (i % 3 == 1 ? quoting.handle() : nullptr);
        std::u16string name = randomText(random, 24);
        int32_t size = capacity(random);

        GuardedBuffer prepared(size);
        Tabra_PrepareNameForSql92(h, name.c_str(), prepared.data.data(), size, 0);
        prepared.check("PrepareNameForSql92", name);
        GuardedBuffer again(size);
        Tabra_PrepareNameForSql92(h, name.c_str(), again.data.data(), size, 0);
        ASSERT_EQ(prepared.text(), again.text()) << "not stable for " << toUtf8(name);

        GuardedBuffer list(size, name);
        Tabra_PrepareNameListForSql92(h, list.data.data(), size, u'.', u',');
        list.check("PrepareNameListForSql92", name);

        GuardedBuffer quoted(size, name);
        Tabra_QuoteNameIfNotPureSql(h, quoted.data.data(), size);
        quoted.check("QuoteNameIfNotPureSql", name);

        GuardedBuffer bracket(size, name);
        Tabra_PrepareNameForSql(bracket.data.data(), size, i & 1);
        bracket.check("PrepareNameForSql", name);

        GuardedBuffer bracketList(size);
        Tabra_PrepareNameListForSql(name.c_str(), u',', bracketList.data.data(), size, i & 1);
        bracketList.check("PrepareNameListForSql", name);

        GuardedBuffer schema(size), table(capacity(random));
        Tabra_ParseSchemaAndTable(h, name.c_str(), schema.data.data(), schema.size, table.data.data(), table.size);
        schema.check("ParseSchemaAndTable schema", name);
        table.check("ParseSchemaAndTable table", name);

        GuardedBuffer stripped(static_cast<int32_t>(name.size()) + 1, name);
        Tabra_StripDelimitersFromName(h, stripped.data.data());
        stripped.check("StripDelimitersFromName", name);

        std::u16string format = randomText(random, 16);
        std::u16string a1 = randomText(random, 8), a2 = randomText(random, 8);
        GuardedBuffer statement(size);
        Tabra_SprintfSqlStatement(h, statement.data.data(), size, format.c_str(), a1.c_str(), a2.c_str(), nullptr,
                                  a1.c_str(), nullptr, a2.c_str(), a1.c_str(), a2.c_str());
        statement.check("SprintfSqlStatement", format);
        if (HasFatalFailure()) return;
    }
}

TEST_F(NameTextFuzzTestDriverTest, PreparedNamesStripBackToTheirParts) {
    // With room to spare, stripping a prepared name gives the name's parts freed of
    // the surrounding spaces and quotes.
    auto quoting = connect(dsn::TestDriver);
    std::mt19937 random(7);
    const std::u16string letters = u"abc XY_9\xE4";
    std::uniform_int_distribution<size_t> pick(0, letters.size() - 1);
    std::uniform_int_distribution<size_t> length(1, 12);
    for (int i = 0; i < kIterations; ++i) {
        std::u16string part(length(random), u'a');
        for (char16_t &c : part) c = letters[pick(random)];
        size_t first = part.find_first_not_of(u' ');
        if (first == std::u16string::npos) continue;
        std::u16string expected = part.substr(first, part.find_last_not_of(u' ') - first + 1);
        GuardedBuffer buffer(100);
        Tabra_PrepareNameForSql92(quoting.handle(), (u"  " + part + u" ").c_str(), buffer.data.data(), 100, 0);
        Tabra_StripDelimitersFromName(quoting.handle(), buffer.data.data());
        ASSERT_EQ(buffer.text(), expected) << toUtf8(part);
    }
}

} // namespace
} // namespace tabra::test
