// The query designer as text: statements from descriptors, descriptors through get
// and set, the cuts, editing on a copy, handles and result codes, and the wildcard of
// views on a database of type DbAccess.
#include "catalog/catalog_test_support.h"
#include "query/designer/design_copy.h"
#include "query/designer/design_descriptors.h"
#include "query/designer/statement_generation.h"
#include "tabra.h"

#include <array>
#include <new>

namespace {

using namespace tabra::query::designer;
using tabra::test::toUtf8;

// A designer handle that is destroyed with the test.
class Designer {
public:
    explicit Designer(SQLHDBC connection = nullptr, uint32_t flags = 0, const char16_t *schema = u"") {
        EXPECT_EQ(Tabra_SelFact_Create(&handle_, connection, schema, flags), TABRA_SELFACT_OK);
    }
    ~Designer() { Tabra_SelFact_Destroy(handle_); }
    Designer(const Designer &) = delete;
    Designer &operator=(const Designer &) = delete;
    SelFact handle() const { return handle_; }

    // Sets the descriptors of kinds 1 to 4 in order.
    Designer &set(std::array<std::u16string, 4> descriptors) {
        for (int32_t kind = TABRA_SELFACT_TABLES; kind <= TABRA_SELFACT_SELECTION; ++kind)
            Tabra_SelFact_SetDescriptor(handle_, kind, descriptors[static_cast<size_t>(kind - 1)].c_str());
        return *this;
    }
    std::u16string get(int32_t kind, int32_t capacity = 5000) const {
        std::u16string out(static_cast<size_t>(capacity), u'#');
        Tabra_SelFact_GetDescriptor(handle_, kind, out.data(), capacity);
        return out.c_str();
    }
    std::u16string sql(int32_t capacity = 30000) const {
        std::u16string out(static_cast<size_t>(capacity), u'#');
        EXPECT_EQ(Tabra_SelFact_CreateSql(handle_, out.data(), capacity, 0), TABRA_SELFACT_OK);
        return out.c_str();
    }

private:
    SelFact handle_ = nullptr;
};

// Descriptors: tables, columns, sort order, selection.
constexpr char16_t kExampleTables[] = u"Orders\to\t\t\t\t\nCustomer\tc\tLJ\tEQ\to.CustNo\tc.No\n";
constexpr char16_t kExampleColumns[] = u"o.*\t\nc.Name\tCustomer\n";
constexpr char16_t kExampleSort[] = u"o.Date\tDESC\n";
constexpr char16_t kExampleSelection[] = u"o.Total\tGT\t100\t4\n";

// The example comes out character for character; the edge cases.
TEST(DesignerStatement, FromTheDescriptors) {
    struct Case {
        std::array<std::u16string, 4> descriptors; // tables, columns, sort, selection
        const char16_t *statement;
    } cases[] = {
        {{kExampleTables, kExampleColumns, kExampleSort, kExampleSelection},
         u"SELECT o.*, c.Name AS Customer FROM Orders AS o LEFT JOIN Customer AS c ON o.CustNo = c.No WHERE "
         u"(o.Total > 100) ORDER BY o.Date DESC"},
        {{u"", u"", u"", u""}, u"SELECT"},
        {{u" \n\t", u"\n", u"  ", u"a\tEQ\t\t4\n"}, u"SELECT"}, // blank lists, a condition that yields nothing
        {{u"a\t\tRJ\tNE\tx\ty"}, u"SELECT FROM RIGHT JOIN a ON x <> y"},       // a first join, as stored
        {{u"a\nb\t\tij\tgt\tx\ty\nc\nd\t\tLJ\tLE\tx\ty"},                       // keys in any case
         u"SELECT FROM a INNER JOIN b ON x < y, c LEFT JOIN d ON x >= y"},     // "GT" writes "<"
        {{u"a\t \tXX\tGT\tx\ty"}, u"SELECT FROM a"},                          // unknown join: plain, no ON
        {{u"", u"a\t \nb"}, u"SELECT a, b"},                                   // blank alias
        {{u"", u"", u"a\tasc\nb\tASC\nc\tdesc\nd\t \ne\tDown"}, u"SELECT ORDER BY a, b, c desc, d, e Down"},
    };
    for (const Case &c : cases) {
        Designer designer;
        designer.set(c.descriptors);
        EXPECT_EQ(designer.sql(), c.statement) << toUtf8(c.statement);
        // The statement is not read back: ParseSql leaves the lists as they are.
        EXPECT_EQ(Tabra_SelFact_ParseSql(designer.handle(), u"SELECT x FROM y", 0), TABRA_SELFACT_OK);
        EXPECT_EQ(designer.sql(), c.statement);
    }
}

TEST(DesignerDescriptors, RoundTripThroughGetAndSet) {
    struct Case {
        int32_t kind;
        const char16_t *text, *written;
    } cases[] = {
        {TABRA_SELFACT_TABLES, kExampleTables, u"Orders\to\t\tEQ\t\t\nCustomer\tc\tLJ\tEQ\to.CustNo\tc.No"},
        {TABRA_SELFACT_TABLES, u"a\t \txx\tge\n\nb\t\trj\tzz\tl\tr\textra\n", u"a\t\t\tGE\t\t\nb\t\tRJ\tEQ\tl\tr"},
        {TABRA_SELFACT_COLUMNS, kExampleColumns, u"o.*\t\nc.Name\tCustomer"},
        {TABRA_SELFACT_SORT_ORDER, u"a\n\nb\tdesc\tx\n", u"a\t\nb\tdesc"},
        {TABRA_SELFACT_SELECTION, kExampleSelection, kExampleSelection},
        {TABRA_SELFACT_SELECTION, u" \t\n", u""},
    };
    for (const Case &c : cases) {
        Designer designer, again;
        Tabra_SelFact_SetDescriptor(designer.handle(), c.kind, c.text);
        EXPECT_EQ(designer.get(c.kind), c.written) << toUtf8(c.text);
        Tabra_SelFact_SetDescriptor(again.handle(), c.kind, c.written);
        EXPECT_EQ(again.get(c.kind), c.written) << toUtf8(c.text);
    }
}

TEST(DesignerLimits, ItemsPartsStatementsAndLinesAreCut) {
    const std::u16string longName(1200, u'n'), name600(600, u'n');
    Designer designer;
    designer.set({u"", longName + u"\tx"});
    EXPECT_EQ(designer.sql(), u"SELECT " + longName.substr(0, kItemLength));
    std::u16string many;
    for (int i = 0; i < 20; ++i) many += name600 + u"\n";
    designer.set({many, many, many, u""});
    std::u16string list; // twenty items joined by ", ", the same for every part
    for (int i = 0; i < 20; ++i) (list += i ? u", " : u"") += name600;
    list.resize(kPartLength);
    std::u16string whole = u"SELECT " + list + u" FROM " + list + u" ORDER BY " + list;
    EXPECT_EQ(designer.sql(40000), whole);
    EXPECT_EQ(designer.sql(12), whole.substr(0, 11)); // the caller's capacity
    std::u16string untouched = u"#####";
    EXPECT_EQ(Tabra_SelFact_CreateSql(designer.handle(), untouched.data(), 0, 0), TABRA_SELFACT_OK);
    EXPECT_EQ(untouched, u"#####");
    // Descriptor lines are cut at kLineLength when read and written.
    designer.set({u"", longName + u"\tlost", u"", u""});
    EXPECT_EQ(designer.get(TABRA_SELFACT_COLUMNS), longName.substr(0, kLineLength)); // the alias was beyond
    EXPECT_EQ(designer.get(TABRA_SELFACT_COLUMNS, 10), longName.substr(0, 9));
    for (int32_t kind : {TABRA_SELFACT_TABLES, TABRA_SELFACT_COLUMNS, TABRA_SELFACT_SORT_ORDER})
        EXPECT_EQ(designer.get(kind, 1), u"#") << kind; // below 2: untouched
    EXPECT_EQ(designer.get(TABRA_SELFACT_SELECTION, 1), u"");
}

TEST(DesignerHandles, NullHandlesUnknownKindsAndErrors) {
    EXPECT_EQ(Tabra_SelFact_Create(nullptr, nullptr, nullptr, 0), TABRA_SELFACT_NO_HANDLE);
    char16_t out[8] = u"keep";
    EXPECT_EQ(Tabra_SelFact_CreateSql(nullptr, out, 8, 0), TABRA_SELFACT_NO_HANDLE);
    EXPECT_EQ(Tabra_SelFact_ParseSql(nullptr, u"SELECT", 0), TABRA_SELFACT_NO_HANDLE);
    Tabra_SelFact_GetDescriptor(nullptr, TABRA_SELFACT_TABLES, out, 8);
    Tabra_SelFact_SetDescriptor(nullptr, TABRA_SELFACT_TABLES, u"a");
    Tabra_SelFact_Destroy(nullptr);
    EXPECT_EQ(std::u16string(out), u"keep");
    Designer designer;
    for (int32_t kind : {0, 5}) {
        Tabra_SelFact_SetDescriptor(designer.handle(), kind, u"a\tb\n");
        EXPECT_EQ(designer.get(kind, 6), u"######") << kind;
    }
    EXPECT_EQ(designer.sql(), u"SELECT");
    EXPECT_EQ(editSelFact(nullptr, nullptr, [](HWND, QueryDesign &) { return 1; }), 2);

    tabra::test::ScriptedRun run;
    run.queue("message 1600: answer ok");
    EXPECT_EQ(Tabra_SelFact_DisplayError(TABRA_SELFACT_NO_HANDLE), 1);
    EXPECT_EQ(Tabra_SelFact_DisplayError(TABRA_SELFACT_NO_MEMORY), 1);
    EXPECT_FALSE(run.failed()) << run.report();
    EXPECT_EQ(run.records(TABRA_RECORD_MESSAGE).size(), 1u);
}

class DesignerTestDriverTest : public tabra::test::TestDriverTest {};

// LIKE patterns of views use "*" on databases of type DbAccess, and only there.
TEST_F(DesignerTestDriverTest, AnAsteriskOnlyForViewsOnDbAccess) {
    struct Case {
        const char16_t *dataSource;
        uint32_t flags;
        const char16_t *condition;
    } cases[] = {
        {tabra::test::dsn::Access, TABRA_SELFACT_VIEW, u"(a LIKE 'x*')"},
        {tabra::test::dsn::Access, 0, u"(a LIKE 'x%')"},
        {tabra::test::dsn::TestDriver, TABRA_SELFACT_VIEW, u"(a LIKE 'x%')"},
    };
    for (const Case &c : cases) {
        auto connection = connect(c.dataSource);
        Designer designer(connection.handle(), c.flags);
        designer.set({u"t", u"", u"", u"a\tBW\tx\t12\n"});
        EXPECT_EQ(designer.sql(), u"SELECT FROM t WHERE " + std::u16string(c.condition)) << toUtf8(c.dataSource);
    }
}

TEST_F(DesignerTestDriverTest, TheDialogWorksOnACopyThatReplacesTheListsOnlyAfterOk) {
    struct Case {
        int32_t answer;
        bool failsForMemory;
        int32_t result;
        bool changed;
    } cases[] = {{1, false, 1, true}, {2, false, 2, false}, {1, true, 2, false}};
    for (const Case &c : cases) {
        tabra::test::ScriptedRun run;
        if (c.failsForMemory) run.queue("message 1600: answer ok");
        auto connection = connect(tabra::test::dsn::TestDriver);
        Designer designer(connection.handle(), TABRA_SELFACT_VIEW, u"dbo");
        designer.set({kExampleTables, kExampleColumns, kExampleSort, kExampleSelection});
        std::u16string before = designer.sql();
        int32_t result = editSelFact(designer.handle(), nullptr, [&](HWND, QueryDesign &copy) -> int32_t {
            EXPECT_EQ(copy.connection, connection.handle());
            EXPECT_EQ(copy.schema, u"dbo");
            EXPECT_EQ(copy.flags, TABRA_SELFACT_VIEW);
            EXPECT_EQ(copy.tables.size(), 2u);
            EXPECT_EQ(copy.selection, kExampleSelection);
            copy.tables.pop_back();
            copy.columns.push_back({u"o.Total", u"Sum"});
            copy.sortOrder.clear();
            copy.selection.clear();
            if (c.failsForMemory) throw std::bad_alloc();
            return c.answer;
        });
        EXPECT_EQ(result, c.result);
        EXPECT_EQ(designer.sql(), c.changed ? u"SELECT o.*, c.Name AS Customer, o.Total AS Sum FROM Orders AS o" : before);
        EXPECT_FALSE(run.failed()) << run.report();
        EXPECT_EQ(run.records(TABRA_RECORD_MESSAGE, tabra::core::ids::kMessage.outOfMemory).size(), c.failsForMemory ? 1u : 0u);
    }
}

} // namespace
