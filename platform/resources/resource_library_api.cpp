// The exported calls on resource libraries: loading, freeing, strings and versions.
#include "ostrel_lts.h"
#include "ostrel_text.h"
#include "platform/resources/library_image.h"
#include "platform/resources/resource_module.h"
#include "platform/resources/resource_script_file.h"
#include "platform/text/utf_conversion.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

using namespace tabra::platform;

extern "C" HMODULE Ostrel_LoadResourceLibrary(const char16_t *path) {
    if (path == nullptr || path[0] == u'\0') return nullptr;
    return loadResourceLibraryFile(toUtf8(path));
}

extern "C" int32_t Ostrel_FreeResourceLibrary(HMODULE module) {
    return module != nullptr && releaseResourceModule(module) ? 1 : 0;
}

extern "C" int32_t LoadStringW(HMODULE module, uint32_t stringId, char16_t *buffer, int32_t size) {
    if (buffer == nullptr || size < 1) return 0;
    const ResourceTables *tables = resourceTablesOf(module);
    if (tables != nullptr) {
        auto found = tables->strings.find(static_cast<int32_t>(stringId));
        if (found != tables->strings.end()) return OstrelCopyString(buffer, found->second.text.c_str(), size);
    }
    buffer[0] = u'\0';
    return 0;
}

extern "C" int32_t Ostrel_GetResourceFileVersion(HMODULE module, int32_t which, char16_t *buffer, int32_t size,
                                                 uint32_t) {
    bool known = libraryImageOf(module) != nullptr && (which == 1 || which == 2);
    return OstrelCopyString(buffer, known ? u"" TABRA_VERSION_TEXT : u"", size);
}

extern "C" int32_t Ostrel_GetProfileName(HMODULE, char16_t *buffer, int32_t size) {
    if (buffer == nullptr || size < 2) return -1;
    std::string name;
    if (const char *user = std::getenv("USER"); user != nullptr && user[0] != '\0') {
        name = user;
    } else {
        passwd entry{};
        passwd *found = nullptr;
        char strings[1024];
        if (getpwuid_r(getuid(), &entry, strings, sizeof strings, &found) == 0 && found != nullptr) name = found->pw_name;
    }
    if (name.empty()) name = "Default";
    return OstrelCopyString(buffer, fromUtf8(name).c_str(), size / 2);
}
