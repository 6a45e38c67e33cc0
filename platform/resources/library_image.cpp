// Finding the library's own file. dladdr on an address inside the library names the
// shared object it belongs to; when the library's objects are linked into a program
// (as the tests do), that is the program itself.
#include "platform/resources/library_image.h"

#include <dlfcn.h>
#include <limits.h>
#include <stdlib.h>
#include <unistd.h>

namespace tabra::platform {
namespace {

// An object of the library: dladdr finds the shared object that holds its address.
const char gAnchor = 0;

std::string resolvedPath(const char *path) {
    char resolved[PATH_MAX];
    if (path != nullptr && path[0] != '\0') return realpath(path, resolved) != nullptr ? resolved : path;
    ssize_t length = readlink("/proc/self/exe", resolved, sizeof resolved - 1);
    return length > 0 ? std::string(resolved, static_cast<size_t>(length)) : std::string();
}

LibraryImage &image() {
    static LibraryImage own = [] {
        Dl_info info{};
        return LibraryImage{resolvedPath(dladdr(&gAnchor, &info) != 0 ? info.dli_fname : nullptr)};
    }();
    return own;
}

} // namespace

HMODULE ownLibraryImage() { return &image(); }

const LibraryImage *libraryImageOf(HMODULE module) {
    return module != nullptr && module == ownLibraryImage() ? &image() : nullptr;
}

std::string directoryOfModulePath(const std::string &path) {
    size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(0, slash + 1);
}

} // namespace tabra::platform
