// Demo command of the query designer: the designer dialog on the connection, then the
// lists it returns (as descriptors), its statement and the statement's first rows.
#include "demo_host.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace demo {
namespace {

constexpr int32_t kTextCapacity = 10000;

std::string descriptorOf(SelFact design, int32_t kind) {
    std::vector<char16_t> text(kTextCapacity);
    Tabra_SelFact_GetDescriptor(design, kind, text.data(), kTextCapacity);
    std::string shown;
    for (char c : toUtf8(text.data())) shown += c == '\t' ? std::string("\\t") : c == '\v' ? std::string("\\v")
                                               : c == '\n' ? std::string("\\n") : std::string(1, c);
    return shown;
}

// Without a display and without a script of its own, the designer is answered with
// a short session: the Orders table, confirmed.
int runDesigner(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (!arguments.empty()) {
        std::fprintf(stderr, "tabra-demo: designer (no arguments)\n");
        return 2;
    }
    const char *display = std::getenv("DISPLAY");
    if ((!display || !*display) && TabraScript_PendingCount() == 0) {
        TabraScript_Begin();
        TabraScript_QueueUtf8("dialog 10641: doubleclick 1201 \"Orders\"");
        TabraScript_QueueUtf8("dialog 10064: select 1101 \"Columns\"");
        TabraScript_QueueUtf8("dialog 10642: doubleclick 1201 \"o.*\"");
        TabraScript_QueueUtf8("dialog 10064: click 1");
        std::printf("No display: the designer is answered with the Orders table and OK\n");
    }
    SelFact design = nullptr;
    if (Tabra_SelFact_Create(&design, connection, u"", 0) != TABRA_SELFACT_OK) return 1;
    if (Tabra_SelFact_Edit(design, nullptr) != 1) {
        std::printf("The designer was cancelled\n");
        Tabra_SelFact_Destroy(design);
        return 0;
    }
    const struct {
        int32_t kind;
        const char *name;
    } lists[] = {{TABRA_SELFACT_TABLES, "Tables"},
                 {TABRA_SELFACT_COLUMNS, "Columns"},
                 {TABRA_SELFACT_SELECTION, "Selection"},
                 {TABRA_SELFACT_SORT_ORDER, "Sort order"}};
    for (const auto &list : lists) std::printf("%-10s %s\n", list.name, descriptorOf(design, list.kind).c_str());
    std::vector<char16_t> statement(kTextCapacity);
    Tabra_SelFact_CreateSql(design, statement.data(), kTextCapacity, 0);
    std::printf("Statement: %s\n", toUtf8(statement.data()).c_str());
    printFirstRows(connection, statement.data());
    Tabra_SelFact_Destroy(design);
    return 0;
}

const DemoCommand designer{"designer", "",
                           "builds a SELECT statement in the query designer and shows its lists and first rows",
                           runDesigner};

} // namespace
} // namespace demo
