// Demo commands of selection descriptors: a descriptor turned into a WHERE condition
// and counted, and the selection dialog over a table's columns.
#include "demo_host.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace demo {
namespace {

constexpr int32_t kConditionCapacity = 10000;
constexpr int32_t kDescriptorCapacity = 5000;
constexpr int32_t kColumnListCapacity = 30000;

// A descriptor as it is given on the command line: \t, \n, \v and \\ for the
// characters 9, 10, 11 and the backslash.
std::string escaped(const std::u16string &text) {
    std::u16string result;
    for (char16_t c : text) {
        switch (c) {
        case u'\t': result += u"\\t"; break;
        case u'\n': result += u"\\n"; break;
        case u'\v': result += u"\\v"; break;
        case u'\\': result += u"\\\\"; break;
        default: result += c; break;
        }
    }
    return toUtf8(result);
}

// Prints the condition of the descriptor and the number of records of the table that
// meet it.
void printConditionAndCount(SQLHDBC connection, const std::u16string &table, const std::u16string &descriptor) {
    std::vector<char16_t> condition(kConditionCapacity);
    Tabra_SelDesc_To_WhereClause(connection, descriptor.c_str(), condition.data(), kConditionCapacity);
    std::printf("WHERE %s\n", toUtf8(condition.data()).c_str());
    std::printf("%s: %d matching records\n", toUtf8(table).c_str(),
                Tabra_GetRecordCountExt(connection, table.c_str(), condition.data()));
}

int runWhere(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (arguments.size() != 2) {
        std::fprintf(stderr, "tabra-demo: where TABLE DESCRIPTOR (fields separated by \\t, lines ended by \\n, "
                             "groups by \\v)\n");
        return 2;
    }
    std::u16string descriptor = unescapeArgument(arguments[1]);
    std::printf("Descriptor: %s\n", escaped(descriptor).c_str());
    printConditionAndCount(connection, toUtf16(arguments[0]), descriptor);
    return 0;
}

// The selection dialog over the table's columns (with their ODBC types). Without a
// display and without a script of its own the dialog is answered with OK.
int runSelectDialog(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (arguments.empty() || arguments.size() > 2) {
        std::fprintf(stderr, "tabra-demo: select-dialog TABLE [DESCRIPTOR]\n");
        return 2;
    }
    std::u16string table = toUtf16(arguments[0]);
    std::vector<char16_t> columns(kColumnListCapacity);
    if (Tabra_GetFields(connection, table.c_str(), TABRA_FIELDS_WITH_TYPE, u"\t", columns.data(),
                        kColumnListCapacity) != 1) {
        std::fprintf(stderr, "tabra-demo: the columns of %s could not be read\n", arguments[0].c_str());
        return 1;
    }
    std::vector<char16_t> descriptor(kDescriptorCapacity);
    if (arguments.size() == 2)
        OstrelCopyString(descriptor.data(), unescapeArgument(arguments[1]).c_str(), kDescriptorCapacity);
    const char *display = std::getenv("DISPLAY");
    if ((!display || !*display) && TabraScript_PendingCount() == 0) {
        TabraScript_Begin();
        TabraScript_QueueUtf8("dialog 10019: click 1");
        std::printf("No display: the selection dialog is answered with its default (OK)\n");
    }
    if (Tabra_Edit_SelDesc(descriptor.data(), kDescriptorCapacity, columns.data(), 0, 0) != 1) {
        std::printf("The selection dialog was cancelled\n");
        return 0;
    }
    std::printf("Descriptor: %s\n", escaped(descriptor.data()).c_str());
    printConditionAndCount(connection, table, descriptor.data());
    return 0;
}

const DemoCommand where{"where", "TABLE DESCRIPTOR",
                        "turns a selection descriptor into a WHERE condition and counts the matching records",
                        runWhere};
const DemoCommand selectDialog{"select-dialog", "TABLE [DESCRIPTOR]",
                               "edits a selection over the table's columns in the selection dialog", runSelectDialog};

} // namespace
} // namespace demo
