// Resource libraries from resource script files: reading a script from disk and
// turning it into a live resource module.
#pragma once

#include "platform/resources/resource_module.h"
#include "tabra_base.h"

#include <memory>
#include <optional>
#include <string>

namespace tabra::platform {

// The whole content of a file, or nothing when it cannot be read.
std::optional<std::string> readWholeFile(const std::string &path);

// Reads and checks the script at path; its picture files become absolute paths (they
// are relative to the script's folder). On failure returns null and sets error to a
// "path:line: message" text (or "path: cannot be read").
std::unique_ptr<ResourceModule> readResourceScriptFile(const std::string &path, std::string &error);

// Loads the script at path as a resource library: the module handle, or null after
// the reason was written to stderr. When sharedPictures names a script that exists
// (the pictures every language shares), its pictures are added to those the script
// has itself; that script may hold nothing but pictures. A faulty one is reported on
// stderr and left out, and the library loads without it.
HMODULE loadResourceScriptFile(const std::string &path, const std::string &sharedPictures = {});

} // namespace tabra::platform
