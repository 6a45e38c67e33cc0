// Demo commands of the records wizards: delete or update records of a table, with the
// table's record count and the statement the wizard runs.
#include "demo_host.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace demo {
namespace {

int runRecordsWizard(SQLHDBC connection, const std::vector<std::string> &arguments, bool deleting) {
    const char *name = deleting ? "delete-records" : "update-records";
    if (arguments.size() != 1) {
        std::fprintf(stderr, "tabra-demo: %s TABLE\n", name);
        return 2;
    }
    const char *display = std::getenv("DISPLAY");
    if ((!display || !*display) && TabraScript_PendingCount() == 0) {
        std::fprintf(stderr, "tabra-demo: no display: the wizard needs a script (--script tools/demo/%s.script)\n",
                     name);
        return 2;
    }
    DbObjectInfo object{};
    OstrelCopyString(object.DbObjectName, toUtf16(arguments[0]).c_str(), 50);
    object.DbObjectType = TABRA_OBJECT_TABLE;
    std::printf("%s: %d records\n", arguments[0].c_str(), Tabra_GetRecordCount(connection, object.DbObjectName, 0));

    Ostrel_SetStatementHook(printChangingStatement, nullptr);
    int32_t result = deleting ? Tabra_DeleteRecordsWizzard(connection, &object, 0)
                              : Tabra_UpdateRecordsWizzard(connection, &object, 0);
    Ostrel_SetStatementHook(nullptr, nullptr);
    if (result != 1) {
        std::printf("The wizard ended without a change (cancelled, or the statement failed)\n");
        return 0;
    }
    std::string table = toUtf8(object.DbObjectName);
    if (deleting)
        std::printf("%s: %d records left\n", table.c_str(), Tabra_GetRecordCount(connection, object.DbObjectName, 0));
    else
        std::printf("%s: the records were updated\n", table.c_str());
    return 0;
}

int runDeleteRecords(SQLHDBC connection, const std::vector<std::string> &arguments) {
    return runRecordsWizard(connection, arguments, true);
}

int runUpdateRecords(SQLHDBC connection, const std::vector<std::string> &arguments) {
    return runRecordsWizard(connection, arguments, false);
}

const DemoCommand deleteRecords{"delete-records", "TABLE",
                                "deletes the records of a table that meet a condition, in the delete records wizard",
                                runDeleteRecords};
const DemoCommand updateRecords{"update-records", "TABLE",
                                "gives columns of the records that meet a condition new values, in the update "
                                "records wizard",
                                runUpdateRecords};

} // namespace
} // namespace demo
