// The set of live resource modules. Handles are the addresses of the modules; the
// set tells a live handle from a stale or foreign one.
#include "platform/resources/resource_module.h"

#include <mutex>
#include <set>

namespace tabra::platform {
namespace {

struct LiveModules {
    std::mutex lock;
    std::set<ResourceModule *> modules;
};

LiveModules &liveModules() {
    static LiveModules *live = new LiveModules; // outlives every static destructor
    return *live;
}

} // namespace

HMODULE adoptResourceModule(std::unique_ptr<ResourceModule> module) {
    auto &live = liveModules();
    std::lock_guard guard(live.lock);
    ResourceModule *raw = module.release();
    live.modules.insert(raw);
    return raw;
}

const ResourceTables *resourceTablesOf(HMODULE handle) {
    auto &live = liveModules();
    std::lock_guard guard(live.lock);
    auto it = live.modules.find(static_cast<ResourceModule *>(handle));
    return it == live.modules.end() ? nullptr : &(*it)->tables;
}

bool releaseResourceModule(HMODULE handle) {
    auto &live = liveModules();
    std::unique_ptr<ResourceModule> owned;
    {
        std::lock_guard guard(live.lock);
        auto it = live.modules.find(static_cast<ResourceModule *>(handle));
        if (it == live.modules.end()) return false;
        owned.reset(*it);
        live.modules.erase(it);
    }
    return true;
}

} // namespace tabra::platform
