#include "platform/registry/registry_location.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace tabra::platform {
namespace {

std::optional<std::filesystem::path> homeDirectory() {
    const char *home = std::getenv("HOME");
    if (home && home[0] == '/')
        return std::filesystem::path(home);
    long size = sysconf(_SC_GETPW_R_SIZE_MAX);
    std::vector<char> buffer(size > 0 ? static_cast<std::size_t>(size) : 16384);
    passwd entry{};
    passwd *result = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &result) == 0 && result && result->pw_dir &&
        result->pw_dir[0] == '/')
        return std::filesystem::path(result->pw_dir);
    return std::nullopt;
}

std::optional<std::filesystem::path> userRegistryDirectory() {
    const char *configHome = std::getenv("XDG_CONFIG_HOME");
    if (configHome && configHome[0] == '/')
        return std::filesystem::path(configHome) / "tabra" / "registry";
    if (const auto home = homeDirectory())
        return *home / ".config" / "tabra" / "registry";
    return std::nullopt;
}

} // namespace

std::optional<RegistryLocation> registryLocationOf(HKEY root) {
    const char *fileName;
    bool perUser;
    if (root == HKEY_CURRENT_USER)
        fileName = "current-user.reg", perUser = true;
    else if (root == HKEY_USERS)
        fileName = "users.reg", perUser = true;
    else if (root == HKEY_LOCAL_MACHINE)
        fileName = "local-machine.reg", perUser = false;
    else
        return std::nullopt;

    const mode_t fileMode = perUser ? 0600 : 0644;
    const mode_t directoryMode = perUser ? 0700 : 0755;
    const char *rootOverride = std::getenv("TABRA_REGISTRY_ROOT");
    if (rootOverride && *rootOverride)
        return RegistryLocation{std::filesystem::path(rootOverride) / fileName, fileMode, directoryMode};
    if (!perUser)
        return RegistryLocation{std::filesystem::path("/etc/tabra/registry") / fileName, fileMode, directoryMode};
    const auto directory = userRegistryDirectory();
    if (!directory)
        return std::nullopt;
    return RegistryLocation{*directory / fileName, fileMode, directoryMode};
}

} // namespace tabra::platform
