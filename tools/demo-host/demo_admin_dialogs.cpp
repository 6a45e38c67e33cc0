// Demo commands of the create table wizard and the driver information dialog.
#include "demo_host.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace demo {
namespace {

constexpr int32_t kNameCapacity = 50;
constexpr int32_t kFieldListCapacity = 30000;
constexpr int32_t kDriverInfoDialog = 10061;

bool hasDisplay() {
    const char *display = std::getenv("DISPLAY");
    return display && *display;
}

// Prints every statement the library runs but its catalog queries.
int32_t printStatement(const char16_t *statement, void *) {
    std::string text = toUtf8(statement);
    if (text.rfind("SELECT Count", 0) != 0) std::printf("Statement: %s\n", text.c_str());
    return 1;
}

// The wizard; on success the new table's columns with their ODBC types.
int runCreateTable(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (!arguments.empty()) {
        std::fprintf(stderr, "tabra-demo: create-table takes no arguments\n");
        return 2;
    }
    if (!hasDisplay() && TabraScript_PendingCount() == 0) {
        std::fprintf(stderr, "tabra-demo: no display: the wizard needs a script (--script "
                             "tools/demo/create-table.script)\n");
        return 2;
    }
    char16_t name[kNameCapacity] = {};
    Ostrel_SetStatementHook(printStatement, nullptr);
    int32_t result = Tabra_CreateTableWizzard(connection, name, kNameCapacity);
    Ostrel_SetStatementHook(nullptr, nullptr);
    if (result != 1) {
        std::printf("No table was created (cancelled, not possible here, or the statement failed)\n");
        return 0;
    }
    std::printf("Created %s with the columns (name, ODBC type):\n", toUtf8(name).c_str());
    std::vector<char16_t> fields(kFieldListCapacity);
    Tabra_GetFields(connection, name, TABRA_FIELDS_WITH_TYPE, u"\t", fields.data(), kFieldListCapacity);
    char16_t column[200], type[20];
    int32_t at = 0;
    while (Ostrel_ReadToken(fields.data(), &at, u'\t', column, 200) == 1 &&
           Ostrel_ReadToken(fields.data(), &at, u'\t', type, 20) == 1)
        std::printf("  %-24s %s\n", toUtf8(column).c_str(), toUtf8(type).c_str());
    return 0;
}

// The driver information dialog. Without a display and a script of its own it is
// answered with OK; after a scripted run its fields are printed as they were shown.
int runDriverInfo(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (!arguments.empty()) {
        std::fprintf(stderr, "tabra-demo: driver-info takes no arguments\n");
        return 2;
    }
    if (!hasDisplay() && TabraScript_PendingCount() == 0) {
        TabraScript_Begin();
        TabraScript_QueueUtf8("dialog 10061: click 1");
        std::printf("No display: the driver information dialog is answered with its default (OK)\n");
    }
    Tabra_DisplayDriverInformation(connection, nullptr);
    int32_t closed = TabraScript_FindRecord(TABRA_RECORD_DIALOG_CLOSED, kDriverInfoDialog, 0);
    if (closed < 0) return 0;
    const struct {
        const char *label;
        int32_t control;
    } fields[] = {{"Database product", 1001}, {"Product version", 1002}, {"Database", 1007},
                  {"Data source", 1014},      {"Driver version", 1004},  {"ODBC version", 1003},
                  {"Quote character", 1006}};
    std::printf("The driver information dialog showed:\n");
    for (const auto &field : fields) {
        char16_t text[300] = {};
        TabraScript_GetRecordControlText(closed, field.control, text, 300);
        std::printf("  %-17s %s\n", field.label, toUtf8(text).c_str());
    }
    return 0;
}

const DemoCommand createTable{"create-table", "",
                              "creates a table in the create table wizard (key column only, a copy of a table's "
                              "structure, or default columns)",
                              runCreateTable};
const DemoCommand driverInfo{"driver-info", "", "shows what the ODBC driver reports in the driver information dialog",
                             runDriverInfo};

} // namespace
} // namespace demo
