// The module's lifetime: what happens when libtabra.so is loaded and unloaded.
#include "core/module/module_state.h"

#include "core/connection/installer_library.h"
#include "core/module/character_type.h"
#include "ostrel_lts.h"
#include "platform/resources/library_image.h"
#include "platform/resources/resource_library_loader.h"
#include "platform/resources/resource_module.h"
#include "platform/resources/translation_table.h"

namespace tabra::module {
namespace {

// Plain values only: the library's destructor reads them after the C++ static
// destructors may have run.
struct ModuleState {
    HMODULE instance = nullptr;
    HMODULE resourceLibrary = nullptr;
    char16_t profileName[kProfileNameCapacity] = {};
};

ModuleState gModule;

void detachProcess() {
    platform::unregisterTranslationModule(kTranslationModuleName);
    if (gModule.resourceLibrary != nullptr) {
        platform::releaseResourceModule(gModule.resourceLibrary);
        gModule.resourceLibrary = nullptr;
    }
}

void attachProcess() {
    detachProcess(); // a second attach replaces what the first one loaded
    gModule.instance = platform::ownLibraryImage();
    platform::ResourceLibraryLoad load = platform::loadResourceLibrary(kResourceFileName, gModule.instance);
    gModule.resourceLibrary = load.module;
    if (load.module != nullptr)
        platform::registerTranslationModule(kTranslationModuleName, platform::directoryOfModulePath(load.path));
    Ostrel_GetProfileName(gModule.instance, gModule.profileName, sizeof gModule.profileName);
}

__attribute__((constructor)) void libraryLoaded() {
    coerceCharacterType();
    connection::holdInstallerLibrary(); // for every connection the process makes, ours or the host's
    moduleEntryPoint(ProcessAttach);
}
__attribute__((destructor)) void libraryUnloaded() { moduleEntryPoint(ProcessDetach); }

} // namespace

HMODULE instance() { return gModule.instance; }
HMODULE resourceLibrary() { return gModule.resourceLibrary; }
std::u16string_view profileName() { return gModule.profileName; }

int32_t moduleEntryPoint(int32_t reason) {
    switch (reason) {
    case ProcessAttach: attachProcess(); return 1;
    case ProcessDetach: detachProcess(); return 1;
    default: return 0;
    }
}

} // namespace tabra::module
