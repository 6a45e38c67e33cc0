// The ODBC error dialog and the quiet diagnostic queries, on real diagnostics of the
// installed drivers and on states the test driver makes up.
#include "catalog/resource_ids.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "support/backend_test.h"
#include "support/script_lines.h"
#include "support/scripted_run.h"
#include "support/test_text.h"
#include "tabra_connection.h"
#include "ostrel.h"
#include "tabra_window.h"

#include <gtest/gtest.h>

namespace tabra::test {
namespace {

namespace ids = core::ids;
using ids::kErrorDialog;

// Runs a statement that fails and leaves its diagnostics on the handle.
void failStatement(SQLHSTMT statement, const char16_t *sql) {
    SQLRETURN rc = SQLExecDirectW(statement, reinterpret_cast<SQLWCHAR *>(const_cast<char16_t *>(sql)), SQL_NTS);
    ASSERT_EQ(rc, SQL_ERROR);
}

class OdbcErrorDialogTest : public BackendTest {};

TEST_P(OdbcErrorDialogTest, SplitsTheDriversMessageIntoItsParts) {
    auto connection = connect();
    OdbcStatement statement(connection);
    const char16_t *sql = u"SELECT * FROM no_such_table_here";
    failStatement(statement.handle(), sql);
    auto raw = diagnosticRecords(SQL_HANDLE_STMT, statement.handle());
    ASSERT_FALSE(raw.empty());

    ScriptedRun run;
    run.queue(click(kErrorDialog.id, IDOK));
    EXPECT_EQ(Tabra_DisplayErrorHstmt(statement.handle(), sql), 1);
    EXPECT_FALSE(run.failed());

    auto shown = [&](int32_t control) { return run.closedControlText(kErrorDialog.id, control); };
    EXPECT_EQ(shown(kErrorDialog.state), raw.front().state);
    EXPECT_EQ(shown(kErrorDialog.statement), sql);
    std::u16string vendor = shown(kErrorDialog.vendor), component = shown(kErrorDialog.component);
    std::u16string dataSource = shown(kErrorDialog.dataSource), text = shown(kErrorDialog.message);
    // A bracketed part is taken only while the rest starts with "[": what follows is
    // the message, whatever the driver puts in front of it.
    switch (backend()) {
    case Backend::SQLite: // "[SQLite]no such table: ... (1)": one part
        EXPECT_EQ(vendor, u"SQLite");
        EXPECT_EQ(component, u"");
        EXPECT_EQ(text.rfind(u"no such table", 0), 0u) << toUtf8(text);
        break;
    case Backend::PostgreSQL: // "ERROR: relation ... does not exist": no part at all
        EXPECT_EQ(vendor, u"");
        EXPECT_EQ(component, u"");
        EXPECT_EQ(text, raw.front().message);
        break;
    case Backend::MariaDB: // "[ma-3.1.15][10.11...-MariaDB]Table ... doesn't exist": two parts
        EXPECT_EQ(vendor.rfind(u"ma-", 0), 0u) << toUtf8(vendor);
        EXPECT_NE(component.find(u"MariaDB"), std::u16string::npos) << toUtf8(component);
        EXPECT_NE(text.find(u"doesn't exist"), std::u16string::npos) << toUtf8(text);
        break;
    }
    EXPECT_EQ(dataSource, u"");
    EXPECT_EQ(vendor.find(u'['), std::u16string::npos);
}

TEST_P(OdbcErrorDialogTest, CancelAnswersTwoAndTheStateStaysReadable) {
    auto connection = connect();
    OdbcStatement statement(connection);
    failStatement(statement.handle(), u"SELEC nonsense");
    ScriptedRun run;
    run.queue(click(kErrorDialog.id, IDCANCEL));
    EXPECT_EQ(Tabra_DisplayErrorHstmt(statement.handle(), nullptr), 2);
    EXPECT_EQ(run.closedControlText(kErrorDialog.id, kErrorDialog.statement), u"");

    char16_t state[6] = {};
    EXPECT_EQ(Tabra_GetErrorCode(SQL_HANDLE_STMT, statement.handle(), state, 6), 5);
    EXPECT_EQ(std::u16string(state), diagnosticRecords(SQL_HANDLE_STMT, statement.handle()).front().state);
}

TABRA_INSTANTIATE_BACKEND_TEST(OdbcErrorDialogTest);

class OdbcErrorDialogTestDriverTest : public TestDriverTest {};

TEST_F(OdbcErrorDialogTestDriverTest, OptionValueChangedOffersItsExplanation) {
    auto connection = connect(dsn::ExecInfo);
    OdbcStatement statement(connection);
    ASSERT_EQ(statement.execute(u"SELECT 1"), SQL_SUCCESS_WITH_INFO);

    bool buttonVisible = false;
    auto seeButton = [](HWND dialog, void *visible) {
        *static_cast<bool *>(visible) = IsWindowVisible(GetDlgItem(dialog, kErrorDialog.furtherMessage)) != 0;
    };
    ScriptedRun run;
    run.queueCallback(kErrorDialog.id, seeButton, &buttonVisible);
    run.queue(click(kErrorDialog.id, kErrorDialog.furtherMessage), answer(ids::kMessage.optionValueChanged, "ok"),
              click(kErrorDialog.id, IDOK));
    EXPECT_EQ(Tabra_DisplayErrorHstmt(statement.handle(), u"SELECT 1"), 1);
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(run.pending(), 0);
    EXPECT_TRUE(buttonVisible);
    EXPECT_EQ(run.closedControlText(kErrorDialog.id, kErrorDialog.state), u"01S02");
    EXPECT_EQ(run.records(TABRA_RECORD_MESSAGE, ids::kMessage.optionValueChanged).size(), 1u);

    // Other states keep the button hidden.
    auto plain = connect(dsn::TestDriver);
    OdbcStatement failed(plain);
    failStatement(failed.handle(), u"SELECT FROM WHERE");
    run.queueCallback(kErrorDialog.id, seeButton, &buttonVisible);
    run.queue(click(kErrorDialog.id, IDOK));
    Tabra_DisplayErrorHstmt(failed.handle(), nullptr);
    EXPECT_FALSE(buttonVisible);
}

TEST_F(OdbcErrorDialogTestDriverTest, APartIsBracketedOnlyWhileTheRestStartsWithABracket) {
    const struct {
        const char *message;
        std::u16string_view vendor, component, dataSource, text;
    } cases[] = {
        {"[a][b][c]the text", u"a", u"b", u"c", u"the text"},
        {"[a][b]text [x] more", u"a", u"b", u"", u"text [x] more"},
        {"[SQLite]no such table: x (1)", u"SQLite", u"", u"", u"no such table: x (1)"},
        {"ERROR: relation x does not exist", u"", u"", u"", u"ERROR: relation x does not exist"},
        {"ERROR: column [1] is wrong", u"", u"", u"", u"ERROR: column [1] is wrong"},
        {"[unterminated part", u"", u"", u"", u"[unterminated part"},
        {"[[a]]rest", u"a", u"", u"", u"]rest"},
    };
    for (const auto &c : cases) {
        auto connection = connect(addDataSource({{"FailPattern", "boom"}, {"FailMessage", c.message}}));
        OdbcStatement statement(connection);
        failStatement(statement.handle(), u"SELECT 'boom'");
        ScriptedRun run;
        run.queue(click(kErrorDialog.id, IDOK));
        EXPECT_EQ(Tabra_DisplayErrorHstmt(statement.handle(), nullptr), 1);
        auto shown = [&](int32_t control) { return run.closedControlText(kErrorDialog.id, control); };
        EXPECT_EQ(shown(kErrorDialog.vendor), c.vendor) << c.message;
        EXPECT_EQ(shown(kErrorDialog.component), c.component) << c.message;
        EXPECT_EQ(shown(kErrorDialog.dataSource), c.dataSource) << c.message;
        EXPECT_EQ(shown(kErrorDialog.message), c.text) << c.message;
    }
}

TEST_F(OdbcErrorDialogTestDriverTest, AHandleWithoutDiagnosticsShowsNothing) {
    auto connection = connect(dsn::TestDriver);
    OdbcStatement statement(connection);
    ASSERT_EQ(statement.execute(u"SELECT 1"), SQL_SUCCESS);
    ScriptedRun run; // no action queued: any prompt would fail the run
    EXPECT_EQ(Tabra_DisplayErrorHstmt(statement.handle(), u"SELECT 1"), 1);
    EXPECT_EQ(Tabra_DisplayErrorHdbc(connection.handle()), 1);
    EXPECT_EQ(Tabra_DisplayErrorHenv(connection.environment()), 1);
    EXPECT_EQ(OdbcEh_HandleErrorHstmt(0, statement.handle(), nullptr), 1);
    EXPECT_EQ(DialogBoxParamW(module::resourceLibrary(), kErrorDialog.id, nullptr, DisplayOdbcErrorCallback, 0), IDOK)
        << "no request at all";
    EXPECT_FALSE(run.failed());
    EXPECT_TRUE(run.records(TABRA_RECORD_MESSAGE).empty());
}

TEST_F(OdbcErrorDialogTestDriverTest, InformationIsShownOnlyWhenTheSwitchAsksForIt) {
    auto connection = connect(dsn::ExecInfo);
    OdbcStatement statement(connection);
    ASSERT_EQ(statement.execute(u"SELECT 1"), SQL_SUCCESS_WITH_INFO);
    const struct {
        int32_t dumpState;
        SQLRETURN returnCode;
        int32_t button; // 0: nothing is shown
        int32_t result;
    } cases[] = {
        {0, SQL_SUCCESS_WITH_INFO, 0, 1},
        {OSTREL_DUMP_SHOW_INFO, SQL_SUCCESS_WITH_INFO, IDCANCEL, 2},
        {0, SQL_ERROR, IDOK, 1}, // an error is always shown
    };
    for (const auto &c : cases) {
        ScriptedRun run;
        Ostrel_SetDumpState(c.dumpState);
        if (c.button != 0) run.queue(click(kErrorDialog.id, c.button));
        EXPECT_EQ(Tabra_DisplayErrorOrInfoHstmt(statement.handle(), c.returnCode, nullptr), c.result);
        EXPECT_FALSE(run.failed());
        EXPECT_EQ(run.records(TABRA_RECORD_DIALOG_OPENED).size(), c.button != 0 ? 1u : 0u);
    }
    Ostrel_SetDumpState(-1);
}

TEST_F(OdbcErrorDialogTestDriverTest, LastErrorInList) {
    std::u16string first = addDataSource({{"FailPattern", "FROM missing"}, {"FailState", "XY0AB"}});
    std::u16string second = addDataSource({{"FailPattern", "FROM missing"}, {"FailState", "XY0AC"}});
    auto one = connect(first);
    OdbcStatement failed(one);
    failStatement(failed.handle(), u"SELECT * FROM missing");
    EXPECT_EQ(Tabra_IsLastErrorInList(SQL_HANDLE_STMT, failed.handle(), u"XY0AB,XY0AC", SQL_ERROR), 1);
    EXPECT_EQ(Tabra_IsLastErrorInList(SQL_HANDLE_STMT, failed.handle(), u"xy0ac,xy0ab", SQL_ERROR), 1);
    EXPECT_EQ(Tabra_IsLastErrorInList(SQL_HANDLE_STMT, failed.handle(), u"XY0AC", SQL_ERROR), 0);
    EXPECT_EQ(Tabra_IsLastErrorInList(SQL_HANDLE_STMT, failed.handle(), u"NOINFO", SQL_ERROR), 0);

    auto two = connect(second);
    OdbcStatement other(two);
    failStatement(other.handle(), u"SELECT * FROM missing");
    // The blank after the comma stays part of the token.
    EXPECT_EQ(Tabra_IsLastErrorInList(SQL_HANDLE_STMT, other.handle(), u"XY0AB, XY0AC", SQL_ERROR), 0);
    EXPECT_EQ(Tabra_IsLastErrorInList(SQL_HANDLE_STMT, other.handle(), u"XY0AB,XY0AC", SQL_ERROR), 1);

    EXPECT_EQ(Tabra_IsLastErrorInList(SQL_HANDLE_STMT, nullptr, u"*", SQL_ERROR), 1);
    EXPECT_EQ(Tabra_IsLastErrorInList(SQL_HANDLE_STMT, other.handle(), u"", SQL_ERROR), 0);
    EXPECT_EQ(Tabra_IsLastErrorInList(SQL_HANDLE_STMT, other.handle(), u" \t ", SQL_ERROR), 0);
    EXPECT_EQ(Tabra_IsLastErrorInList(SQL_HANDLE_STMT, other.handle(), nullptr, SQL_ERROR), 0);
    EXPECT_EQ(Tabra_IsLastErrorInList(SQL_HANDLE_STMT, other.handle(), u"42S02,NOINFO", SQL_SUCCESS_WITH_INFO), 1);
}

TEST_F(OdbcErrorDialogTestDriverTest, TheLibrarysOdbc2EnvironmentSeesOdbc2States) {
    // The driver reports "42S02" (table not found); the driver manager hands an ODBC 2
    // application the ODBC 2 form "S0002". Callers that expect a missing table list both.
    std::u16string source = addDataSource({{"FailPattern", "DROP TABLE"}, {"FailState", "42S02"}});
    auto connection = connect(source);
    OdbcStatement statement(connection);
    failStatement(statement.handle(), u"DROP TABLE nothing_here");
    EXPECT_EQ(Tabra_IsLastErrorInList(SQL_HANDLE_STMT, statement.handle(), u"42S02,S0002", SQL_ERROR), 1);
    char16_t state[6] = {};
    Tabra_GetErrorCode(SQL_HANDLE_STMT, statement.handle(), state, 6);
    EXPECT_EQ(std::u16string(state), u"S0002");
}

TEST_F(OdbcErrorDialogTestDriverTest, ErrorCodeCopiesTheStateWithinTheBuffer) {
    std::u16string source = addDataSource({{"FailPattern", "boom"}, {"FailState", "HY123"}});
    auto connection = connect(source);
    OdbcStatement statement(connection);
    failStatement(statement.handle(), u"SELECT 'boom'");
    char16_t small[4] = {u'#', u'#', u'#', u'#'};
    EXPECT_EQ(Tabra_GetErrorCode(SQL_HANDLE_STMT, statement.handle(), small, 3), 2);
    EXPECT_EQ(std::u16string(small), u"HY");
    EXPECT_EQ(small[3], u'#');
    EXPECT_EQ(Tabra_GetErrorCode(SQL_HANDLE_STMT, statement.handle(), nullptr, 3), -1);

    OdbcStatement clean(connection);
    char16_t state[6] = {u'x'};
    EXPECT_EQ(Tabra_GetErrorCode(SQL_HANDLE_STMT, clean.handle(), state, 6), 0);
    EXPECT_EQ(state[0], u'\0');
}

TEST(ShowMessage, FormatsInsertsAnswersTheButtonAndCarriesTheMessageCode) {
    // The message codes are the routine's own table, checked here against its values.
    const struct {
        int32_t id;
        const char16_t *insert;
        const char *answer;
        int32_t result;
        uint32_t buttons, code;
    } cases[] = {
        {ids::kMessage.noDataSource, nullptr, "ok", IDOK, MB_OK, 0x8004A02Eu},
        {ids::kMessage.fileNotOpened, u"/tmp/Müller.txt", "ok", IDOK, MB_OK, 0x8004A01Fu},
        {catalog::ids::kMessage.confirmDropTable, u"Orders", "no", IDNO, MB_YESNO, 0x8004A000u}, // the default code
        {ids::kMessage.emptyDataSourceName, nullptr, "ok", IDOK, MB_OK, 0x8004A000u},
    };
    ScriptedRun run;
    for (const auto &c : cases) {
        run.queue(answer(c.id, c.answer));
        EXPECT_EQ(ShowMessage(c.id, c.insert, nullptr, nullptr), c.result);
        auto shown = run.records(TABRA_RECORD_MESSAGE, c.id);
        ASSERT_EQ(shown.size(), 1u);
        EXPECT_EQ(shown[0].code, c.code) << c.id;
        EXPECT_EQ(shown[0].style & MB_TYPEMASK, c.buttons) << c.id;
        EXPECT_FALSE(shown[0].caption.empty());
        if (c.insert) {
            EXPECT_NE(shown[0].text.find(c.insert), std::u16string::npos) << toUtf8(shown[0].text);
        }
    }
    EXPECT_FALSE(run.failed());
}

} // namespace
} // namespace tabra::test
