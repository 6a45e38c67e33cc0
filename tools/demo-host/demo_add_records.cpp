// Demo command of the add records wizard: copies the rows of a table of a data source
// into a table of the demo connection, with the record counts before and after and the
// statements that change data.
#include "demo_host.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace demo {
namespace {

int runAddRecords(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (arguments.size() != 1) {
        std::fprintf(stderr, "tabra-demo: add-records TABLE\n");
        return 2;
    }
    const char *display = std::getenv("DISPLAY");
    if ((!display || !*display) && TabraScript_PendingCount() == 0) {
        std::fprintf(stderr, "tabra-demo: no display: the wizard needs a script "
                             "(--script tools/demo/add-records.script)\n");
        return 2;
    }
    DbObjectInfo object{};
    OstrelCopyString(object.DbObjectName, toUtf16(arguments[0]).c_str(), 50);
    object.DbObjectType = TABRA_OBJECT_TABLE;
    std::printf("%s: %d records\n", arguments[0].c_str(), Tabra_GetRecordCount(connection, object.DbObjectName, 0));

    Ostrel_SetStatementHook(printChangingStatement, nullptr);
    int32_t result = Tabra_AddRecordsWizzard(connection, &object);
    Ostrel_SetStatementHook(nullptr, nullptr);
    if (result != 1) {
        std::printf("The wizard ended without adding records (cancelled, or the source could not be read)\n");
        return 0;
    }
    std::printf("%s: %d records\n", toUtf8(object.DbObjectName).c_str(),
                Tabra_GetRecordCount(connection, object.DbObjectName, 0));
    return 0;
}

const DemoCommand addRecords{"add-records", "TABLE",
                             "adds the records of a table of a data source to a table, or updates those whose "
                             "id it has already, in the add records wizard",
                             runAddRecords};

} // namespace
} // namespace demo
