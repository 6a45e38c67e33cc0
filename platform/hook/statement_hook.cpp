// The statement hook every statement passes before it runs.
#include "ostrel_hook.h"
#include "platform/hook/statement_confirmation.h"
#include "platform/text/bounded_text.h"

#include <mutex>
#include <string>

using namespace tabra::platform;

namespace {

// The host's callback and its context, installed and read together.
struct InstalledHook {
    std::mutex mutex;
    OstrelStatementHook hook = nullptr;
    void *context = nullptr;
};

InstalledHook &installedHook() {
    static InstalledHook installed;
    return installed;
}

constexpr int32_t kRun = 1;
constexpr int32_t kCancel = 2;

} // namespace

extern "C" {

void Ostrel_SetStatementHook(OstrelStatementHook hook, void *context) {
    InstalledHook &installed = installedHook();
    std::lock_guard lock(installed.mutex);
    installed.hook = hook;
    installed.context = hook ? context : nullptr;
}

int32_t Ostrel_DumpSqlStatement(const char16_t *statement, int32_t capacity) {
    if (!statement)
        return kCancel;
    // The capacity only bounds the read of a buffer that might lack its terminator;
    // 0 (or less) means the statement is terminated.
    const std::u16string text = capacity > 0
                                    ? std::u16string(statement, boundedLength(statement, static_cast<std::size_t>(capacity)))
                                    : std::u16string(statement);

    OstrelStatementHook hook;
    void *context;
    {
        InstalledHook &installed = installedHook();
        std::lock_guard lock(installed.mutex);
        hook = installed.hook;
        context = installed.context;
    }
    // The callback is called without the lock held, so that it may replace itself.
    if (hook && hook(text.c_str(), context) != kRun)
        return kCancel;
    if ((Ostrel_GetDumpState(0) & OSTREL_DUMP_SHOW_STATEMENTS) && !confirmStatement(text))
        return kCancel;
    return kRun;
}

} // extern "C"
