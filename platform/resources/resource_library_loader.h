// Finding and loading the resource library for the user-interface language.
//
// The library looks for its main resource script (tabraRes.rc) in language folders
// beside its own file: directory + name + "/" + file for the locale name, then the
// short name, then "en" (an empty name gives directory + "/" + file, which the file
// system reads as the directory itself). The first candidate that exists is loaded,
// with the family scripts beside it (resource_script_file.h); when none exists the
// user is told, once, with the path in the "en" folder.
//
// Pictures are the same in every language: the script "pictures/pictures.rc" in the
// same directory as the language folders lists them (PICTURE entries only, files
// relative to that folder), and every language's library gets them.
//
// The environment variable TABRA_RESOURCE_DIR, when set and not empty, replaces the
// library's own directory (tests and uninstalled builds use it).
#pragma once

#include "platform/resources/language_choice.h"
#include "tabra_base.h"

#include <array>
#include <functional>
#include <string>

namespace tabra::platform {

constexpr const char *kResourceDirectoryVariable = "TABRA_RESOURCE_DIR";
constexpr const char *kSharedPicturesScript = "pictures/pictures.rc";
constexpr const char16_t *kMissingResourceCaption = u"Fatal Error: File not found";

// The three candidate paths in the order they are tried. directory ends with "/".
std::array<std::string, 3> resourceLibraryCandidates(const std::string &directory, const LanguageNames &names,
                                                     const std::string &fileName);

// Told the full path in the "en" folder when no candidate exists.
using MissingResourceReport = std::function<void(const std::string &enPath)>;

struct ResourceLibraryLoad {
    HMODULE module = nullptr; // null when nothing exists or the file found does not load
    std::string path;         // the candidate that existed; empty when none did
};

// Tries the candidates of directory for the names. A file that exists but does not
// load gives a null module without a report (its fault went to stderr).
ResourceLibraryLoad loadResourceLibraryFrom(const std::string &directory, const LanguageNames &names,
                                            const std::string &fileName, const MissingResourceReport &report);

// The report the library makes: the path on stderr, and a message box with no owner,
// the path as its text, the caption above and an error icon with one OK button.
void reportMissingResourceLibrary(const std::string &enPath);

// The directory the resource folders are looked for in, with a trailing "/":
// TABRA_RESOURCE_DIR, else the directory of the own module's file.
std::string resourceDirectoryFor(HMODULE ownModule);

// The loader as the library runs it at load: the own module's directory, the
// language from the process environment, the report above.
ResourceLibraryLoad loadResourceLibrary(const std::string &fileName, HMODULE ownModule);

} // namespace tabra::platform
