// The SQLite3 ODBC driver behind the test driver: loaded once with dlopen, its entry
// points looked up by name. The test driver passes its handles through unchanged.
#pragma once

#include <sql.h>
#include <sqlext.h>

namespace tabra::testdriver {

// Address of the real driver's exported function `name`; aborts the process with a
// message when the driver or the function cannot be found (a test set-up fault).
void *realFunctionAddress(const char *name);

template <typename Function>
Function realFunction(const char *name) {
    return reinterpret_cast<Function>(realFunctionAddress(name));
}

} // namespace tabra::testdriver

// The real driver's function of the same name (looked up once per call site).
#define TABRA_REAL(name)                                                                                       \
    ([] {                                                                                                      \
        static const auto function = ::tabra::testdriver::realFunction<decltype(&::name)>(#name);             \
        return function;                                                                                       \
    }())
