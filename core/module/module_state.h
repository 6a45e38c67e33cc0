// The module-wide values every part of the library reads. They are set once, when
// the library is loaded (process attach), and the resource library is released when
// it is unloaded (process detach); nothing else changes them, so readers need no lock.
#pragma once

#include "core/module/translated_string.h"
#include "tabra_base.h"

#include <cstdint>
#include <string_view>

namespace tabra::module {

// File name of the resource library in each language folder.
inline constexpr char kResourceFileName[] = "tabraRes.rc";
// Key below HKEY_CURRENT_USER (or HKEY_LOCAL_MACHINE where a caller says so) that
// holds every setting of the library.
inline constexpr char16_t kRegistryRoot[] = u"Software\\Ostrel Software\\Tabra";
// The name the library is known by to the translation layer and the wizard frame.
inline constexpr char16_t kTranslationModuleName[] = u"TABRADLL";
// Look of the short-lived message window (Ostrel_DisplayTempWind): background colour
// (red in the low byte) and display time; a notice the caller removes itself passes
// time 0 instead.
inline constexpr uint32_t kMessageWindowColour = 0xD2E6FA;
inline constexpr int32_t kMessageWindowTime = 10;
// Capacity of the profile name, in characters.
inline constexpr int32_t kProfileNameCapacity = 256;

// The library's own module handle.
HMODULE instance();
// The resource library; null when it could not be loaded (or after detach).
HMODULE resourceLibrary();
// The settings profile name filled at load.
std::u16string_view profileName();

// The entry point the loader calls, with the classic reasons. Attach (1) records the
// instance, loads the resource library (null when it is missing: the user has then
// been told), registers the translation module and fills the profile name; detach (0)
// frees the resource library. Both answer 1. Thread attach (2) and detach (3) do
// nothing and answer 0. The library's constructor and destructor call it.
enum ModuleEntryReason : int32_t { ProcessDetach = 0, ProcessAttach = 1, ThreadAttach = 2, ThreadDetach = 3 };
int32_t moduleEntryPoint(int32_t reason);

} // namespace tabra::module
