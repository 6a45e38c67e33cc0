// Resource libraries from resource script files: reading the scripts of a library
// from disk and turning them into a live resource module.
//
// A library is its main script (tabraRes.rc in a language folder) and the family
// scripts beside it whose names are the main script's stem, "-" and anything, with
// the extension ".rc" (tabraRes-catalog.rc, tabraRes-query.rc, ...). The main script
// is read first, then the family scripts in the byte order of their names; together
// they are one library, so an id defined in two of them is an error that names both
// places. Each subsystem keeps its dialogs and strings in its own family script, and a
// new family is a new file: no script lists the others.
#pragma once

#include "platform/resources/resource_module.h"
#include "tabra_base.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tabra::platform {

// The whole content of a file, or nothing when it cannot be read.
std::optional<std::string> readWholeFile(const std::string &path);

// The scripts of the library whose main script is at mainPath, in reading order
// (mainPath first; the family scripts found beside it after).
std::vector<std::string> resourceScriptsOf(const std::string &mainPath);

// Reads and checks every script of the library. Picture files become absolute paths
// (they are named relative to the script that lists them). On failure returns null
// and sets error to a "path:line: message" text (or "path: cannot be read").
std::unique_ptr<ResourceModule> readResourceLibrary(const std::string &mainPath, std::string &error);

// Reads and checks one script on its own, without family scripts (test libraries).
std::unique_ptr<ResourceModule> readResourceScriptFile(const std::string &path, std::string &error);

// Loads the library as a resource module: the module handle, or null after the
// reason was written to stderr. When sharedPictures names a script that exists (the
// pictures every language shares), its pictures are added to those the library has
// itself; that script may hold nothing but pictures. A faulty one is reported on
// stderr and left out, and the library loads without it.
HMODULE loadResourceLibraryFile(const std::string &mainPath, const std::string &sharedPictures = {});

} // namespace tabra::platform
