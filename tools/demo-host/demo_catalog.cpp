// Demo commands of the catalog: tables with their columns and keys, record counts,
// free table names.
#include "demo_host.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace demo {
namespace {

// Each table with its record count, its columns (name, ODBC and library type code)
// and its primary key, as the library's catalog reports them.
int runTables(SQLHDBC connection, const std::vector<std::string> &arguments) {
    std::vector<char16_t> list(30000);
    if (Tabra_GetTables(connection, TABRA_TABLE_TYPE_TABLE | TABRA_TABLE_TYPE_VIEW, list.data(), 30000, u"\t") != 0)
        return 1;
    std::printf("Tables and views (library catalog):\n");
    char16_t table[200];
    int32_t position = 0;
    while (Ostrel_ReadToken(list.data(), &position, u'\t', table, 200) == 1) {
        std::printf("  %s: %d records\n", toUtf8(table).c_str(), Tabra_GetRecordCount(connection, table, 0));
        std::vector<char16_t> fields(30000);
        Tabra_GetFields(connection, table, TABRA_FIELDS_WITH_TYPE, u"\t", fields.data(), 30000);
        char16_t name[200], type[20];
        int32_t at = 0;
        while (Ostrel_ReadToken(fields.data(), &at, u'\t', name, 200) == 1 &&
               Ostrel_ReadToken(fields.data(), &at, u'\t', type, 20) == 1) {
            int32_t code = Tabra_SqlDataTypeToTabraDataType(std::atoi(toUtf8(type).c_str()));
            std::printf("    %-24s ODBC type %-4s library type %d\n", toUtf8(name).c_str(), toUtf8(type).c_str(),
                        code);
        }
        char16_t keys[300] = {};
        if (Tabra_GetPrimaryKeyColumns(connection, table, 0, u", ", keys, 300) == 1 && keys[0] != u'\0')
            std::printf("    primary key: %s\n", toUtf8(keys).c_str());
    }
    return 0;
}

// The record count of a table, with an optional condition as the WHERE text.
int runCount(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (arguments.empty() || arguments.size() > 2) {
        std::fprintf(stderr, "tabra-demo: count TABLE [CONDITION]\n");
        return 2;
    }
    std::u16string table = toUtf16(arguments[0]);
    int32_t count = arguments.size() == 1
                        ? Tabra_GetRecordCount(connection, table.c_str(), 0)
                        : Tabra_GetRecordCountExt(connection, table.c_str(), toUtf16(arguments[1]).c_str());
    std::printf("%s: %d records\n", arguments[0].c_str(), count);
    return 0;
}

// The first free table name for each name given.
int runUniqueName(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (arguments.empty()) {
        std::fprintf(stderr, "tabra-demo: unique-name NAME...\n");
        return 2;
    }
    for (const std::string &argument : arguments) {
        char16_t name[100] = {};
        std::u16string wide = toUtf16(argument);
        OstrelCopyString(name, wide.c_str(), 100);
        Tabra_CreateUniqueTableName(connection, name, 100);
        std::printf("A free table name for \"%s\": %s\n", argument.c_str(), toUtf8(name).c_str());
    }
    return 0;
}

const DemoCommand tables{"tables", "", "lists tables and views with record counts, columns and keys", runTables};
const DemoCommand count{"count", "TABLE [CONDITION]", "counts the records of a table (matching the condition)",
                        runCount};
const DemoCommand uniqueName{"unique-name", "NAME...", "finds a free table name for each name", runUniqueName};

} // namespace
} // namespace demo
