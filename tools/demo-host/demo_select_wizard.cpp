// Demo command of the select statement wizard: the wizard on the connection, opened on
// a statement given on the command line (or none), then the statement it returns and
// the statement's first rows.
#include "demo_host.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace demo {
namespace {

constexpr int32_t kStatementCapacity = 10000;

// Without a display and without a script of its own, the wizard is answered with a
// short session: three columns of Orders, sorted by their date.
void answerWithoutDisplay() {
    const char *display = std::getenv("DISPLAY");
    if ((display && *display) || TabraScript_PendingCount() != 0) return;
    TabraScript_Begin();
    for (const char *line : {"dialog 10042: select 1005 \"Orders\"", "dialog 10042: uncheck 1026",
                             "dialog 10042: doubleclick 9000 \"OrderID\"", "dialog 10042: doubleclick 9000 \"OrderDate\"",
                             "dialog 10042: doubleclick 9000 \"Freight\"", "dialog 10042: uncheck 2102",
                             "dialog 10042: select 1012 \"OrderDate\"", "dialog 10042: click 1"})
        TabraScript_QueueUtf8(line);
    std::printf("No display: the wizard is answered with three columns of Orders by their date and OK\n");
}

int runSelectWizard(SQLHDBC connection, const std::vector<std::string> &arguments) {
    int32_t flags = 0;
    std::string opening;
    for (const std::string &argument : arguments) {
        if (argument == "--several-tables") flags |= TABRA_SELWIZZ_SEVERAL_TABLES;
        else if (opening.empty()) opening = argument;
        else {
            std::fprintf(stderr, "tabra-demo: select-wizard [--several-tables] [STATEMENT]\n");
            return 2;
        }
    }
    answerWithoutDisplay();
    std::vector<char16_t> statement(kStatementCapacity);
    std::u16string text = toUtf16(opening);
    text.copy(statement.data(), std::min<size_t>(text.size(), kStatementCapacity - 1));
    if (Tabra_SelectStatementWizzard(connection, statement.data(), kStatementCapacity, nullptr, flags, 0) != 1) {
        std::printf("The wizard was cancelled\n");
        return 0;
    }
    std::printf("Statement: %s\n", toUtf8(statement.data()).c_str());
    printFirstRows(connection, statement.data());
    return 0;
}

const DemoCommand selectWizard{"select-wizard", "[--several-tables] [STATEMENT]",
                               "composes a SELECT statement in the select statement wizard and shows its first rows",
                               runSelectWizard};

} // namespace
} // namespace demo
