// The import wizard played through the public script interface on every backend: each
// value of the source arrives as it was, a failing row or an abort keeps the rows
// before it, and the mapping checks keep the user on the page.
#include "import_test_support.h"

namespace tabra::test {
namespace {

class ImportWizardTest : public ImportTest {};

constexpr auto &kText = ids::kTextFilePage;

// Lines that choose a radio button and fill its edit control on the text file page.
std::vector<std::string> ownCharacter(int32_t radio, int32_t edit, std::u16string_view text) {
    return {check(kText.id, radio), set(kText.id, edit, text)};
}

// Text files: umlauts, quotes, empty values, dates and decimals; header names or F0,
// F1, ...; separators, delimiters and decimal characters; UTF-16 and UTF-8 files.
// Value files: values that name files import each file's content (its trailing line
// ends removed) with the appendix of the setting "ImportExpandFileAppendix"; a missing
// one stays NULL. An SDI file: FORMAT tokens give the types (FORMAT=D is too short to
// count), the converter turns the kind and number pairs into one column per kind. A
// selection file: its values trimmed, its numbers with the decimal comma.
TEST_P(ImportWizardTest, FilesArriveValueByValue) {
    auto textFile = [&](const std::string &name, const std::string &bytes) {
        return fileSource(ids::kSourceKindPage.textFile, kText.id, writeFile(name + ".txt", bytes));
    };
    writeFile("letter1.txt", "Dear O'Neil,\r\nthank you.\r\n\r\n");
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, u"Lumo", u"ImportExpandFileAppendix",
                                 u".txt");
    const std::string sdi = "sdi\r\nhead\r\nhead\r\nhead\r\n9\r\nadr.name\r\nadr.born FORMAT=DT\r\n"
                            "code FORMAT=D\r\nnum FORMAT=NG\r\namount FORMAT=N2\r\nKo_Name1\r\nKo_Nummer1\r\n"
                            "ko_name12 X\r\nKo_Nummer12\r\nend of header\r\n"
                            "M\xC3\xBCller\t1999-12-31\tD-1\t42\t3,5\tTelefax\t0711 1\ttelefon\t0711 2\r\n"
                            "O'Neil\t\t\t\t\tHandy\t0170\tHANDY\t0171\r\n";
    const std::string selection = "Addresses\r\n3,2\r\nname\r\ncity\r\namount\r\nO'Neil\r\nK\xC3\xB6ln\r\n1,5\r\n"
                                  "  \xC3\x9Cnal \t\r\n\r\n -2,25 \r\n";
    struct FileCase {
        const char *name;
        std::vector<std::string> lines; // up to the mapping page, and on it
        std::u16string select;
        std::vector<Row> expected;
    };
    const FileCase cases[] = {
        {"NamesOwnSeparatorUtf16",
         textFile("a", utf16le(u"id;name;amount;day\r\n1;O'Neil;12,5;1999-12-31\r\n2;Müller \"Ä\";-3,25;\r\n"
                               u"3;;;2024-02-29\r\n")) +
             ownCharacter(kText.separatorOwn, kText.ownSeparator, u";") + std::vector<std::string>{next(kText.id)} +
             columnType(0, "Integer") + columnType(2, "Number") + columnType(3, "Date and time"),
         u"SELECT id, name, amount, day FROM imported ORDER BY id",
         {row({u"1", u"O'Neil", u"12.5", u"1999-12-31 00:00:00"}), row({u"2", u"Müller \"Ä\"", u"-3.25", {}}),
          row({u"3", {}, {}, u"2024-02-29 00:00:00"})}},
        // An empty line counts as a row of empty values, so the file's last line is not
        // read; a doubled delimiter gives no delimiter character.
        {"NoNamesBlankDelimitersUtf8",
         textFile("b", "\"a \"\"b\"\" c\" 1.5\n\nx 2\n") +
             std::vector<std::string>{check(kText.id, kText.dataInFirstLine), check(kText.id, kText.separatorBlank),
                                      check(kText.id, kText.decimalPoint), set(kText.id, kText.leadingDelimiter, u"\""),
                                      set(kText.id, kText.trailingDelimiter, u"\""), next(kText.id)} +
             columnType(1, "Number"),
         u"SELECT \"F0\", \"F1\" FROM imported", {row({{}, {}}), row({u"a b c", u"1.5"})}},
        {"TabOwnDecimal",
         textFile("c", "name\tprice\r\nT\xC3\xBCr\t3:75\r\n\xC3\x9F\t-0:5\r\n") +
             ownCharacter(kText.decimalOwn, kText.ownDecimal, u":") + std::vector<std::string>{next(kText.id)} +
             columnType(1, "Number"),
         u"SELECT name, price FROM imported ORDER BY price", {row({u"Tür", u"3.75"}), row({u"ß", u"-0.5"})}},
        {"ValueFiles",
         textFile("letters", "id\tdoc\n1\tletter1\n2\tmissing\n") +
             std::vector<std::string>{next(kText.id),
                                      onDialog(ids::kMappingPage.id, "doubleclick", ids::kMappingPage.fields, "#1"),
                                      check(ids::kFieldDialog.id, ids::kFieldDialog.valueFiles),
                                      click(ids::kFieldDialog.id, IDOK)},
         u"SELECT id, doc FROM imported", {row({u"1", u"Dear O'Neil,\r\nthank you."}), row({u"2", {}})}},
        {"SdiWithConverter",
         fileSource(ids::kSourceKindPage.sdiFile, ids::kSdiFilePage.id, writeFile("a.sdi", sdi)) +
             std::vector<std::string>{check(ids::kSdiFilePage.id, ids::kSdiFilePage.converter),
                                      next(ids::kSdiFilePage.id)},
         u"SELECT name, born, code, num, amount, \"Telefon\", \"Handy\", \"Telefax\", \"eMail\", \"Telefon_Privat\" "
         u"FROM imported",
         {row({u"Müller", u"1999-12-31 00:00:00", u"D-1", u"42", u"3.5", u"0711 2", {}, u"0711 1", {}, {}}),
          row({u"O'Neil", {}, {}, {}, {}, {}, u"0171", {}, {}, {}})}},
        {"Selection",
         fileSource(ids::kSourceKindPage.selectionFile, ids::kSelectionFilePage.id, writeFile("a.sel", selection)) +
             std::vector<std::string>{next(ids::kSelectionFilePage.id)} + columnType(2, "Number"),
         u"SELECT name, city, amount FROM imported",
         {row({u"O'Neil", u"Köln", u"1.5"}), row({u"Ünal", {}, u"-2.25"})}},
    };
    for (const FileCase &c : cases) {
        SCOPED_TRACE(c.name);
        executeSql(*connection_, u"DROP TABLE IF EXISTS imported");
        ScriptedRun run;
        std::u16string table;
        ASSERT_EQ(play(c.lines + intoTable(u"imported"), run, &table), 1) << run.report();
        EXPECT_EQ(table, u"imported");
        auto imported = rows(c.select);
        std::sort(imported.begin(), imported.end()); // NULLs sort differently on each database
        EXPECT_EQ(imported, c.expected);
    }
}

// A table of another data source (SQLite into the servers; on SQLite a second
// connection to its own file, so that no test of it waits on a server): the columns
// keep their types, the values arrive as they were.
TEST_P(ImportWizardTest, TableOfAnotherDataSource) {
    const Backend from = Backend::SQLite;
    std::optional<DataSource> source = configuredDataSource(from);
    if (!source) GTEST_SKIP() << backendName(from) << " not configured";
    {
        OdbcConnection other(*source);
        executeSql(other, u"DROP TABLE IF EXISTS src_people");
        executeSql(other, u"CREATE TABLE src_people (id INTEGER, name VARCHAR(40), amount DOUBLE PRECISION, born DATE)");
        executeSql(other, u"INSERT INTO src_people VALUES (1, 'O''Neil', 12.5, '1999-12-31'), (2, 'Müller', NULL, NULL)");
    }
    constexpr auto &kSources = ids::kDataSourcePage;
    constexpr auto &kTables = ids::kSourceTablePage;
    ScriptedRun run;
    int32_t result = play(std::vector<std::string>{check(ids::kSourceKindPage.id, ids::kSourceKindPage.table), next(ids::kSourceKindPage.id),
                           onDialog(kSources.id, "select", kSources.dataSources, tabra::test::quoted(source->name)),
                           set(kSources.id, kSources.user, source->user),
                           set(kSources.id, kSources.password, source->password), next(kSources.id),
                           onDialog(kTables.id, "select", kTables.tables, tabra::test::quoted(u"src_people")), next(kTables.id)} +
                              intoTable(u"imported"),
                          run);
    ASSERT_EQ(result, 1) << run.report();
    auto imported = rows(u"SELECT id, name, amount, born FROM imported");
    std::sort(imported.begin(), imported.end());
    EXPECT_EQ(imported, (std::vector<Row>{row({u"1", u"O'Neil", u"12.5", u"1999-12-31 00:00:00"}),
                                          row({u"2", u"Müller", {}, {}})}));
}

// A row the database refuses stops the import with its record number; an abort stops
// it too. The rows before are in the table either way.
TEST_P(ImportWizardTest, FailureAndAbortKeepTheRowsBefore) {
    std::u16string text = u"n\tv\r\n";
    for (char16_t n = u'1'; n <= u'6'; ++n)
        text += std::u16string(1, n) + u"\tvalue " + (n == u'4' ? std::u16string(1, u'\0') : u"") + u"\r\n";
    auto file = writeFile("rows.txt", utf16le(text));
    struct Stop {
        const char *name;
        std::vector<std::string> lines;
        int32_t kept;
    };
    const Stop stops[] = {
        {"RefusedRow",
         {click(core::ids::kErrorDialog.id, IDOK), answer(ids::kMessage.stoppedAtRecord, "ok")}, 3},
        {"Abort", {"progress: abort at 2"}, 2},
    };
    for (const Stop &stop : stops) {
        SCOPED_TRACE(stop.name);
        executeSql(*connection_, u"DROP TABLE IF EXISTS imported");
        ScriptedRun run;
        int32_t result = play(fileSource(ids::kSourceKindPage.textFile, kText.id, file) +
                                  std::vector<std::string>{next(kText.id)} + intoTable(u"imported") + stop.lines,
                              run);
        EXPECT_EQ(result, 1) << run.report();
        EXPECT_FALSE(run.failed()) << run.report();
        auto kept = rows(u"SELECT n FROM imported ORDER BY n");
        ASSERT_EQ(kept.size(), static_cast<size_t>(stop.kept));
        EXPECT_EQ(kept.back(), row({std::u16string(1, static_cast<char16_t>(u'0' + stop.kept))}));
        auto told = run.records(TABRA_RECORD_MESSAGE, ids::kMessage.stoppedAtRecord);
        ASSERT_EQ(told.size(), stop.lines.size() == 2 ? 1u : 0u);
        if (!told.empty()) {
            EXPECT_NE(told[0].text.find(u" 4."), std::u16string::npos) << toUtf8(told[0].text);
        }
    }
}

// Every statement passes the statement hook. Rows share INSERTs unless the statement
// display is on: then each row is a statement the user confirms, and a statement the
// user cancels stops the import quietly with the rows before it kept.
TEST_P(ImportWizardTest, StatementsPassTheHookOneRowEachWhenShown) {
    auto file = writeFile("three.txt", "n\n1\n2\n3\n");
    struct Display {
        const char *name;
        int32_t state;
        std::vector<std::string> answers; // to the CREATE TABLE and each INSERT shown
        size_t inserts, kept;
    };
    const Display displays[] = {
        {"Off", 0, {}, 1, 3},
        {"Shown", OSTREL_DUMP_SHOW_STATEMENTS, {"ok", "ok", "ok", "ok"}, 3, 3},
        {"SecondRowCancelled", OSTREL_DUMP_SHOW_STATEMENTS, {"ok", "ok", "cancel"}, 2, 1},
    };
    RecordingHook hook;
    for (const Display &display : displays) {
        SCOPED_TRACE(display.name);
        executeSql(*connection_, u"DROP TABLE IF EXISTS imported");
        hook.statements.clear();
        Ostrel_SetDumpState(display.state);
        std::vector<std::string> lines = fileSource(ids::kSourceKindPage.textFile, kText.id, file) +
                                         std::vector<std::string>{next(kText.id)} + intoTable(u"imported");
        for (const std::string &answer : display.answers) lines.push_back("message: answer " + answer);
        ScriptedRun run;
        EXPECT_EQ(play(lines, run), 1) << run.report();
        Ostrel_SetDumpState(-1);
        EXPECT_FALSE(run.failed()) << run.report();
        size_t inserts = 0;
        for (const std::u16string &statement : hook.statements) inserts += statement.starts_with(u"INSERT") ? 1 : 0;
        EXPECT_EQ(inserts, display.inserts);
        EXPECT_EQ(rows(u"SELECT n FROM imported").size(), display.kept);
    }
}

// A file that cannot be opened is named and the user stays on the page; names the
// checks refuse keep the user on the mapping page.
TEST_P(ImportWizardTest, RefusedSourcesAndMappings) {
    auto header = [this](const std::string &line) { return writeFile(line + ".txt", line + "\n1;2;3\n"); };
    struct Refusal {
        const char *name;
        std::u16string file;
        int32_t page, message;
    };
    const Refusal refusals[] = {
        {"MissingFile", scratch_.file("missing.txt"), kText.id, core::ids::kMessage.fileNotOpened},
        {"SuffixedNameKeepsItsDot", header("X_Y;X.Y;Z"), ids::kMappingPage.id, ids::kMessage.forbiddenCharacter},
        {"SameNameIgnoringCase", header("a;A;b"), ids::kMappingPage.id, ids::kMessage.sameColumnTwice},
        {"EmptyName", header("A;B;;C"), ids::kMappingPage.id, ids::kMessage.noColumnName},
    };
    for (const Refusal &refusal : refusals) {
        SCOPED_TRACE(refusal.name);
        ScriptedRun run;
        std::vector<std::string> lines = fileSource(ids::kSourceKindPage.textFile, kText.id, refusal.file) +
                                         ownCharacter(kText.separatorOwn, kText.ownSeparator, u";");
        lines.push_back(next(kText.id));
        if (refusal.page == ids::kMappingPage.id) lines.push_back(next(refusal.page));
        lines.push_back(answer(refusal.message, "ok"));
        lines.push_back(click(refusal.page, IDCANCEL));
        EXPECT_EQ(play(lines, run), 2);
        expectPlayed(run);
        EXPECT_EQ(run.records(TABRA_RECORD_MESSAGE, refusal.message).size(), 1u);
    }
}

// A file that is gone when the user finishes: message 1615 with its name, no table.
TEST_P(ImportWizardTest, FileGoneAtFinishCreatesNoTable) {
    static std::u16string file;
    file = writeFile("gone.txt", "n\n1\n");
    ScriptedRun run;
    std::vector<std::string> lines = fileSource(ids::kSourceKindPage.textFile, kText.id, file) +
                                     std::vector<std::string>{next(kText.id), next(ids::kMappingPage.id),
                                                              set(ids::kDestinationPage.id,
                                                                  ids::kDestinationPage.tableName, u"imported"),
                                                              next(ids::kDestinationPage.id)};
    for (const std::string &line : lines) run.queue(line);
    run.queueCallback(ids::kClosingPage.id, [](HWND, void *) { std::remove(toUtf8(file).c_str()); }, nullptr);
    run.queue(finish(ids::kClosingPage.id));
    run.queue(answer(core::ids::kMessage.fileNotOpened, "ok"));
    EXPECT_EQ(Tabra_ImportTableWizzard(connection_->handle(), nullptr, 0), 2);
    EXPECT_FALSE(run.failed()) << run.report();
    auto told = run.records(TABRA_RECORD_MESSAGE, core::ids::kMessage.fileNotOpened);
    ASSERT_EQ(told.size(), 1u);
    EXPECT_NE(told[0].text.find(file), std::u16string::npos);
    EXPECT_ANY_THROW(rows(u"SELECT n FROM imported"));
}

TABRA_INSTANTIATE_BACKEND_TEST(ImportWizardTest);

} // namespace
} // namespace tabra::test
