// Resource libraries in memory. A loaded resource library is an HMODULE that points
// at a ResourceModule; the handle stays valid until it is freed.
#pragma once

#include "platform/resources/resource_model.h"
#include "tabra_base.h"

#include <memory>
#include <string>

namespace tabra::platform {

struct ResourceModule {
    std::string path; // file it was loaded from (empty when built in memory)
    ResourceTables tables;
};

// Takes ownership of the tables and returns the module handle for them.
HMODULE adoptResourceModule(std::unique_ptr<ResourceModule> module);
// The tables behind a handle, or null when the handle is not a live resource module.
const ResourceTables *resourceTablesOf(HMODULE module);
// Frees a module made by adoptResourceModule; false when the handle is unknown.
bool releaseResourceModule(HMODULE module);

} // namespace tabra::platform
