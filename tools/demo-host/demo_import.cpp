// Demo command of the import wizard: the records of a file or of another data source's
// table into a new table of the demo database.
#include "demo_host.h"

#include <cstdio>
#include <string>
#include <vector>

namespace demo {
namespace {

constexpr int32_t kTableNameCapacity = 50;

// "import-wizard": the wizard on the connection; the new table's name and its record
// count when the import ran.
int runImportWizard(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (!arguments.empty()) {
        std::fprintf(stderr, "tabra-demo: import-wizard takes no arguments\n");
        return 2;
    }
    char16_t table[kTableNameCapacity] = {};
    if (Tabra_ImportTableWizzard(connection, table, kTableNameCapacity) != 1) {
        std::printf("The import wizard was cancelled or failed.\n");
        return 1;
    }
    std::printf("Imported into %s: %d records\n", toUtf8(table).c_str(), Tabra_GetRecordCount(connection, table, 0));
    return 0;
}

const DemoCommand importCommand{"import-wizard", "",
                                "the import wizard: a text, SDI or selection file or another data source's table "
                                "into a new table",
                                runImportWizard};

} // namespace
} // namespace demo
