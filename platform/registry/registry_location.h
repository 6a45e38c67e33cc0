// Where each registry root lives on disk.
//
//   HKEY_CURRENT_USER   $XDG_CONFIG_HOME/tabra/registry/current-user.reg (mode 0600)
//   HKEY_USERS          $XDG_CONFIG_HOME/tabra/registry/users.reg        (mode 0600)
//   HKEY_LOCAL_MACHINE  /etc/tabra/registry/local-machine.reg            (mode 0644)
//
// XDG_CONFIG_HOME defaults to ~/.config (a relative value is ignored, as the XDG rules
// say). HKEY_USERS is kept with the user's files because its one use, the
// ".Default\..." keys a program deletes when it is done, must be writable without
// privileges. The environment variable TABRA_REGISTRY_ROOT names a directory that
// holds all three files instead (for tests and private installations).
#pragma once

#include "tabra_base.h"

#include <filesystem>
#include <optional>
#include <sys/types.h>

namespace tabra::platform {

struct RegistryLocation {
    std::filesystem::path file;
    mode_t fileMode;      // for the store and its lock file
    mode_t directoryMode; // for directories created on the first write
};

// The location of a root key; nothing for any other handle, or when no home
// directory can be found for a per-user root.
std::optional<RegistryLocation> registryLocationOf(HKEY root);

} // namespace tabra::platform
