// Demo command of the SQL performer: the user runs statements on the demo connection;
// afterwards the host prints the history the performer keeps in the registry.
#include "demo_host.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace demo {
namespace {

constexpr char16_t kHistoryKey[] = u"Software\\Ostrel Software\\Tabra\\SqlPerformer\\Recent";

// The stored history, newest first, each entry decoded to its statement.
void printHistory() {
    const int32_t total = Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, kHistoryKey, 0, nullptr, u"Total", 0);
    std::printf("Statement history (%d):\n", total);
    for (int32_t number = 1; number <= total; ++number) {
        char name[16];
        std::snprintf(name, sizeof name, "E%03d", number);
        char16_t statement[1000] = {};
        Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, kHistoryKey, 0, nullptr, toUtf16(name).c_str(), u"", statement,
                                      1000, 0);
        Ostrel_DecodeString(statement);
        std::string text = toUtf8(statement);
        for (size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1))
            text.insert(at + 1, "      "); // the lines of a statement stay under its first
        std::printf("  %2d  %s\n", number, text.c_str());
    }
}

// Without a display and without a script of its own the performer is closed at once.
int runSqlPerformer(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (!arguments.empty()) {
        std::fprintf(stderr, "tabra-demo: sql-performer takes no arguments\n");
        return 2;
    }
    const char *display = std::getenv("DISPLAY");
    if ((!display || !*display) && TabraScript_PendingCount() == 0) {
        TabraScript_Begin();
        TabraScript_QueueUtf8("dialog 10058: click 2");
        std::printf("No display: the SQL performer is closed at once\n");
    }
    Tabra_SqlPerformer(connection);
    printHistory();
    return 0;
}

const DemoCommand sqlPerformer{"sql-performer", "",
                               "runs statements typed in the SQL performer, then prints its statement history",
                               runSqlPerformer};

} // namespace
} // namespace demo
