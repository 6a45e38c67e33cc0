// Demo commands of the system table store: settings kept in the database itself.
#include "demo_host.h"

#include <cstdio>
#include <vector>

namespace demo {
namespace {

// Values and defaults take \t, \n, \v and \\ as on every command line of the demo.
int runWrite(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (arguments.size() != 4) {
        std::fprintf(stderr, "tabra-demo: sys-write OBJECT TYPE ITEM VALUE\n");
        return 2;
    }
    const int32_t result = Tabra_WriteSysTableString(connection, toUtf16(arguments[0]).c_str(),
                                                     toUtf16(arguments[1]).c_str(), toUtf16(arguments[2]).c_str(),
                                                     unescapeArgument(arguments[3]).c_str());
    std::printf("write: %d\n", result);
    return result == 1 ? 0 : 1;
}

int runRead(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (arguments.size() < 3 || arguments.size() > 4) {
        std::fprintf(stderr, "tabra-demo: sys-read OBJECT TYPE ITEM [DEFAULT]\n");
        return 2;
    }
    std::vector<char16_t> value(5000);
    const std::u16string fallback = arguments.size() == 4 ? unescapeArgument(arguments[3]) : u"";
    const int32_t result =
        Tabra_ReadSysTableString(connection, toUtf16(arguments[0]).c_str(), toUtf16(arguments[1]).c_str(),
                                 toUtf16(arguments[2]).c_str(), fallback.c_str(), value.data(), 5000);
    std::printf("read: %d\nvalue: %s\n", result, toUtf8(value.data()).c_str());
    return result == 1 ? 0 : 1;
}

int runDelete(SQLHDBC connection, const std::vector<std::string> &arguments) {
    if (arguments.size() < 2 || arguments.size() > 3) {
        std::fprintf(stderr, "tabra-demo: sys-delete OBJECT TYPE [ITEM]\n");
        return 2;
    }
    const std::u16string item = arguments.size() == 3 ? toUtf16(arguments[2]) : u"";
    const int32_t result = Tabra_DeleteSysTableItem(connection, toUtf16(arguments[0]).c_str(),
                                                    toUtf16(arguments[1]).c_str(), item.c_str());
    std::printf("delete: %d%s\n", result, result == 0 ? " (there is no system table)" : "");
    return result == 1 ? 0 : 1;
}

const DemoCommand sysWrite{"sys-write", "OBJECT TYPE ITEM VALUE", "keeps a value in the system table", runWrite};
const DemoCommand sysRead{"sys-read", "OBJECT TYPE ITEM [DEFAULT]", "reads a value from the system table", runRead};
const DemoCommand sysDelete{"sys-delete", "OBJECT TYPE [ITEM]",
                            "removes an item, or every item of the object and type", runDelete};

} // namespace
} // namespace demo
