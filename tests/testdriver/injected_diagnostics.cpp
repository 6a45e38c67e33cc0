#include "injected_diagnostics.h"

#include <mutex>
#include <unordered_map>
#include <vector>

namespace tabra::testdriver {
namespace {

struct HandleDiagnostics {
    SQLRETURN returnCode = SQL_SUCCESS;
    std::vector<InjectedRecord> records;
    size_t nextForSqlError = 0;
};

struct Store {
    std::mutex mutex;
    std::unordered_map<SQLHANDLE, HandleDiagnostics> handles;
};

Store &store() {
    static Store instance;
    return instance;
}

} // namespace

void injectDiagnostic(SQLHANDLE handle, SQLRETURN returnCode, InjectedRecord record) {
    Store &s = store();
    std::lock_guard lock(s.mutex);
    HandleDiagnostics &diagnostics = s.handles[handle];
    diagnostics.returnCode = returnCode;
    diagnostics.records.push_back(std::move(record));
}

void clearInjectedDiagnostics(SQLHANDLE handle) {
    if (!handle) return;
    Store &s = store();
    std::lock_guard lock(s.mutex);
    s.handles.erase(handle);
}

bool hasInjectedDiagnostics(SQLHANDLE handle) {
    Store &s = store();
    std::lock_guard lock(s.mutex);
    return s.handles.count(handle) != 0;
}

std::optional<InjectedRecord> injectedRecord(SQLHANDLE handle, SQLSMALLINT number) {
    Store &s = store();
    std::lock_guard lock(s.mutex);
    auto found = s.handles.find(handle);
    if (found == s.handles.end() || number < 1 || static_cast<size_t>(number) > found->second.records.size())
        return std::nullopt;
    return found->second.records[static_cast<size_t>(number) - 1];
}

SQLINTEGER injectedRecordCount(SQLHANDLE handle) {
    Store &s = store();
    std::lock_guard lock(s.mutex);
    auto found = s.handles.find(handle);
    return found == s.handles.end() ? 0 : static_cast<SQLINTEGER>(found->second.records.size());
}

SQLRETURN injectedReturnCode(SQLHANDLE handle) {
    Store &s = store();
    std::lock_guard lock(s.mutex);
    auto found = s.handles.find(handle);
    return found == s.handles.end() ? SQL_SUCCESS : found->second.returnCode;
}

std::optional<InjectedRecord> takeInjectedRecord(SQLHANDLE handle) {
    Store &s = store();
    std::lock_guard lock(s.mutex);
    auto found = s.handles.find(handle);
    if (found == s.handles.end() || found->second.nextForSqlError >= found->second.records.size())
        return std::nullopt;
    return found->second.records[found->second.nextForSqlError++];
}

} // namespace tabra::testdriver
