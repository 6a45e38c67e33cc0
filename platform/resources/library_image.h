// The library's own module: the HMODULE that stands for libtabra.so itself, with the
// path the dynamic loader loaded it from.
#pragma once

#include "tabra_base.h"

#include <string>

namespace tabra::platform {

struct LibraryImage {
    std::string path; // absolute when it could be resolved
};

// The handle of the library that contains this code (made once, never freed).
HMODULE ownLibraryImage();

// The image behind a handle, or null when the handle is not the library's own.
const LibraryImage *libraryImageOf(HMODULE module);

// The directory of a module path with its trailing "/": everything up to and
// including the last "/"; a path without any "/" stays as it is.
std::string directoryOfModulePath(const std::string &path);

} // namespace tabra::platform
