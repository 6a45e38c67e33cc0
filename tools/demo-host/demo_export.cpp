// Demo command of the row-set transfer: a table or a SELECT written to a file with a
// header record under a progress indicator.
#include "demo_host.h"

#include <cctype>
#include <cstdio>
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

} // namespace
} // namespace demo
