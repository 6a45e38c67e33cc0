#include "core/connection/installer_library.h"

#include <dlfcn.h>

namespace tabra::connection {

void holdInstallerLibrary() {
    static void *const library = dlopen("libodbcinst.so.2", RTLD_NOW | RTLD_LOCAL);
    (void)library;
}

} // namespace tabra::connection
