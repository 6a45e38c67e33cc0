#include "support/test_driver_control.h"

#include "support/test_configuration.h"
#include "tests/testdriver/tabra_test_driver.h"

#include <dlfcn.h>

#include <stdexcept>
#include <string>

namespace tabra::test {
namespace {

// The control functions of the loaded driver library (never unloaded).
struct Control {
    decltype(&TabraTestDriver_GetStatementCounts) getStatementCounts;
    decltype(&TabraTestDriver_GetStatementsFreedByDisconnect) getStatementsFreedByDisconnect;
    decltype(&TabraTestDriver_GetConnectionCounts) getConnectionCounts;
    decltype(&TabraTestDriver_ResetCounts) resetCounts;
    decltype(&TabraTestDriver_GetLastLogin) getLastLogin;
};

template <typename Function>
Function lookUp(void *library, const char *name) {
    void *address = dlsym(library, name);
    if (!address) throw std::runtime_error(std::string("the test driver has no ") + name);
    return reinterpret_cast<Function>(address);
}

const Control &control() {
    static const Control instance = [] {
        std::string path = testDriverLibrary().string();
        void *library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (!library) throw std::runtime_error("cannot load the test driver " + path + ": " + dlerror());
        return Control{
            lookUp<decltype(&TabraTestDriver_GetStatementCounts)>(library, "TabraTestDriver_GetStatementCounts"),
            lookUp<decltype(&TabraTestDriver_GetStatementsFreedByDisconnect)>(
                library, "TabraTestDriver_GetStatementsFreedByDisconnect"),
            lookUp<decltype(&TabraTestDriver_GetConnectionCounts)>(library, "TabraTestDriver_GetConnectionCounts"),
            lookUp<decltype(&TabraTestDriver_ResetCounts)>(library, "TabraTestDriver_ResetCounts"),
            lookUp<decltype(&TabraTestDriver_GetLastLogin)>(library, "TabraTestDriver_GetLastLogin"),
        };
    }();
    return instance;
}

} // namespace

StatementCounts testDriverStatementCounts() {
    StatementCounts counts;
    control().getStatementCounts(&counts.allocated, &counts.freed);
    counts.freedByDisconnect = control().getStatementsFreedByDisconnect();
    return counts;
}

ConnectionCounts testDriverConnectionCounts() {
    ConnectionCounts counts;
    control().getConnectionCounts(&counts.opened, &counts.closed);
    return counts;
}

void resetTestDriverCounts() { control().resetCounts(); }

LastLogin testDriverLastLogin() {
    LastLogin login;
    control().getLastLogin(&login.userGiven, &login.passwordGiven);
    return login;
}

} // namespace tabra::test
