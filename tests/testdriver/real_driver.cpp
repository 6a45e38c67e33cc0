#include "real_driver.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <unordered_map>

#ifndef TABRA_REAL_DRIVER_PATH
#define TABRA_REAL_DRIVER_PATH "libsqlite3odbc.so"
#endif

namespace tabra::testdriver {
namespace {

[[noreturn]] void fail(const std::string &what) {
    std::fprintf(stderr, "tabra test driver: %s\n", what.c_str());
    std::abort();
}

// The loaded driver and the addresses looked up so far. The library stays loaded
// until this driver is unloaded; then it is closed.
class RealDriver {
public:
    void *address(const char *name) {
        std::lock_guard lock(mutex_);
        if (!library_) {
            // TABRA_TESTDRIVER_REAL_DRIVER lets a machine with the driver elsewhere run the tests.
            const char *path = std::getenv("TABRA_TESTDRIVER_REAL_DRIVER");
            if (!path || !*path) path = TABRA_REAL_DRIVER_PATH;
            library_ = dlopen(path, RTLD_NOW | RTLD_LOCAL);
            if (!library_) fail(std::string("cannot load the SQLite3 ODBC driver: ") + dlerror());
        }
        auto found = addresses_.find(name);
        if (found != addresses_.end()) return found->second;
        void *function = dlsym(library_, name);
        if (!function) fail(std::string("the SQLite3 ODBC driver has no ") + name);
        addresses_.emplace(name, function);
        return function;
    }

    ~RealDriver() {
        if (library_) dlclose(library_);
    }

private:
    std::mutex mutex_;
    void *library_ = nullptr;
    std::unordered_map<std::string, void *> addresses_;
};

RealDriver &realDriver() {
    static RealDriver driver;
    return driver;
}

} // namespace

void *realFunctionAddress(const char *name) { return realDriver().address(name); }

} // namespace tabra::testdriver
