// Demo commands of the exports: a table or a SELECT written to a file with a header
// record under a progress indicator, and the export wizard.
#include "demo_host.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <vector>

namespace demo {
namespace {

constexpr int32_t kStatementCapacity = 30000;

// "export TABLE_OR_SELECT FILE": a text starting with SELECT runs as it is; anything
// else is a table name, read whole (SELECT * FROM with the name quoted for the
// database). The expected rows for the progress indicator are counted first.
int runExport(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (arguments.size() != 2) {
        std::fprintf(stderr, "tabra-demo: export TABLE_OR_SELECT FILE\n");
        return 2;
    }
    std::u16string source = toUtf16(arguments[0]);
    std::vector<char16_t> statement(kStatementCapacity);
    std::string head = arguments[0].substr(0, 6);
    for (char &c : head) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    if (head == "SELECT")
        OstrelCopyString(statement.data(), source.c_str(), kStatementCapacity);
    else
        Tabra_SprintfSqlStatement(connection, statement.data(), kStatementCapacity, u"SELECT * FROM %t", source.c_str(),
                                  nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    int32_t count = Tabra_GetRowSetCount(connection, statement.data());
    std::printf("Exporting %s (%d rows expected)\n", toUtf8(statement.data()).c_str(), count);
    std::u16string file = toUtf16(arguments[1]);
    if (OdbcEh_SelectRowSetToFile(0, connection, statement.data(), nullptr, nullptr, file.c_str(), &count, nullptr,
                                  TABRA_ROWSET_HEADER | TABRA_ROWSET_PROGRESS) != 1) {
        std::fprintf(stderr, "tabra-demo: the export failed\n");
        return 1;
    }
    std::printf("%d records written to %s (the header included)\n", count, arguments[1].c_str());
    return 0;
}

const DemoCommand exportCommand{"export", "TABLE_OR_SELECT FILE",
                                "writes a table or a SELECT to a UTF-16LE file with a header record", runExport};

// "export-wizard [TABLE]": the export wizard on the tables and views, the table
// chosen on its first page. Without a display and a script, the pages are answered
// as they stand and the file goes to the temp folder.
int runExportWizard(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (arguments.size() > 1) {
        std::fprintf(stderr, "tabra-demo: export-wizard [TABLE]\n");
        return 2;
    }
    DbObjectInfo object{};
    object.DbObjectType = TABRA_OBJECT_TABLE | TABRA_OBJECT_VIEW;
    if (!arguments.empty())
        OstrelCopyString(object.DbObjectName, toUtf16(arguments[0]).c_str(), static_cast<int32_t>(std::size(object.DbObjectName)));
    const char *display = std::getenv("DISPLAY");
    if ((!display || !*display) && TabraScript_PendingCount() == 0) {
        TabraScript_Begin();
        for (const char *line : {"dialog 10050: click 12324", "dialog 10052: click 12324", "dialog 10051: click 12324",
                                 "dialog 10053: set 1001 \"/tmp/tabra-demo-export.txt\"", "dialog 10053: click 12324",
                                 "dialog 10054: click 12325"})
            TabraScript_QueueUtf8(line);
        std::printf("No display: the export wizard's pages are answered as they stand\n");
    }
    if (Tabra_ExportWizzard(connection, &object, 0) != 1) {
        std::printf("The export wizard was cancelled\n");
        return 0;
    }
    std::printf("%s exported\n", toUtf8(object.DbObjectName).c_str());
    return 0;
}

const DemoCommand exportWizard{"export-wizard", "[TABLE]",
                               "the export wizard: a table's records to a delimited UTF-16LE file", runExportWizard};

} // namespace
} // namespace demo
