// The resource library loader.
#include "platform/resources/resource_library_loader.h"

#include "platform/resources/library_image.h"
#include "platform/resources/resource_script_file.h"
#include "platform/text/utf_conversion.h"
#include "tabra_window.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace tabra::platform {

std::array<std::string, 3> resourceLibraryCandidates(const std::string &directory, const LanguageNames &names,
                                                     const std::string &fileName) {
    auto inFolder = [&](const std::string &folder) { return directory + folder + "/" + fileName; };
    return {inFolder(names.localeName), inFolder(names.shortName), inFolder("en")};
}

ResourceLibraryLoad loadResourceLibraryFrom(const std::string &directory, const LanguageNames &names,
                                            const std::string &fileName, const MissingResourceReport &report) {
    std::array<std::string, 3> candidates = resourceLibraryCandidates(directory, names, fileName);
    for (const std::string &candidate : candidates) {
        if (access(candidate.c_str(), F_OK) == 0)
            return {loadResourceLibraryFile(candidate, directory + kSharedPicturesScript), candidate};
    }
    if (report) report(candidates.back());
    return {};
}

void reportMissingResourceLibrary(const std::string &enPath) {
    std::fprintf(stderr, "tabra: %s: %s\n", toUtf8(kMissingResourceCaption).c_str(), enPath.c_str());
    MessageBoxW(nullptr, fromUtf8(enPath).c_str(), kMissingResourceCaption, MB_ICONERROR | MB_OK);
}

std::string resourceDirectoryFor(HMODULE ownModule) {
    const char *overridden = std::getenv(kResourceDirectoryVariable);
    if (overridden != nullptr && overridden[0] != '\0') {
        std::string directory = overridden;
        if (directory.back() != '/') directory.push_back('/');
        return directory;
    }
    const LibraryImage *image = libraryImageOf(ownModule);
    return image != nullptr ? directoryOfModulePath(image->path) : std::string();
}

ResourceLibraryLoad loadResourceLibrary(const std::string &fileName, HMODULE ownModule) {
    return loadResourceLibraryFrom(resourceDirectoryFor(ownModule),
                                   chooseLanguageNames(LanguageEnvironment::fromProcess()), fileName,
                                   reportMissingResourceLibrary);
}

} // namespace tabra::platform
