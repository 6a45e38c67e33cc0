#include "driver_entry.h"

#include <cstdio>
#include <cstdlib>

namespace tabra::testdriver {

void trace(const char *function, const void *handle) {
    static const bool enabled = [] {
        const char *value = std::getenv("TABRA_TESTDRIVER_TRACE");
        return value && *value && *value != '0';
    }();
    if (enabled) std::fprintf(stderr, "tabra test driver: %s(%p)\n", function, handle);
}

} // namespace tabra::testdriver
