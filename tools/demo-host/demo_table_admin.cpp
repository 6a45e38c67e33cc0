// Demo command of the table administration: one table's columns and keys changed in
// its dialog, with the structure and the record count printed before and after.
#include "demo_host.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace demo {
namespace {

constexpr int32_t kListCapacity = 30000;
constexpr int32_t kKeyCapacity = 400;

void printStructure(SQLHDBC connection, const std::u16string &table) {
    std::vector<char16_t> fields(kListCapacity);
    Tabra_GetFields(connection, table.c_str(), 0, u", ", fields.data(), kListCapacity);
    std::vector<char16_t> keys(kKeyCapacity);
    if (Tabra_GetPrimaryKeyColumns(connection, table.c_str(), 0, u", ", keys.data(), kKeyCapacity) != 1) keys[0] = 0;
    std::printf("  columns: %s\n  primary key: %s\n  records: %d\n", toUtf8(fields.data()).c_str(),
                keys[0] ? toUtf8(keys.data()).c_str() : "(none)", Tabra_GetRecordCount(connection, table.c_str(), 0));
}

// Without a display and without a script of its own the dialog is closed at once.
int runTableAdmin(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (arguments.size() != 1) {
        std::fprintf(stderr, "tabra-demo: table-admin TABLE\n");
        return 2;
    }
    std::u16string table = toUtf16(arguments[0]);
    std::printf("%s before:\n", arguments[0].c_str());
    printStructure(connection, table);
    const char *display = std::getenv("DISPLAY");
    if ((!display || !*display) && TabraScript_PendingCount() == 0) {
        TabraScript_Begin();
        TabraScript_QueueUtf8("dialog 10009: click 1");
        std::printf("No display: the table administration is closed at once\n");
    }
    if (Tabra_TableAdmin(connection, table.c_str(), 0) != 0) return 1;
    std::printf("%s after:\n", arguments[0].c_str());
    printStructure(connection, table);
    return 0;
}

const DemoCommand tableAdmin{"table-admin", "TABLE",
                             "shows the table's columns and keys and lets the user change them", runTableAdmin};

} // namespace
} // namespace demo
