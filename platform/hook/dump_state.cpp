// The diagnostic switch: which statements and diagnostics are shown to the user.
#include "ostrel_hook.h"
#include "ostrel_registry.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>

namespace {

constexpr int32_t kNoOverride = -1;
std::atomic<int32_t> overrideState{kNoOverride};

// TABRA_DUMP_STATE as a whole non-negative decimal number, else nothing.
bool environmentState(int32_t &state) {
    const char *text = std::getenv("TABRA_DUMP_STATE");
    if (!text || !*text)
        return false;
    char *end = nullptr;
    errno = 0;
    const long value = std::strtol(text, &end, 10);
    if (errno != 0 || *end != '\0' || value < 0 || value > INT32_MAX)
        return false;
    state = static_cast<int32_t>(value);
    return true;
}

} // namespace

extern "C" {

int32_t Ostrel_GetDumpState(int32_t) {
    const int32_t forced = overrideState.load();
    if (forced >= 0)
        return forced;
    int32_t state = 0;
    if (environmentState(state))
        return state;
    return Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, u"Software\\Ostrel Software\\Tabra", 0, nullptr,
                                       u"DumpState", 0);
}

void Ostrel_SetDumpState(int32_t state) { overrideState.store(state < 0 ? kNoOverride : state); }

} // extern "C"
