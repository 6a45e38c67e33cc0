// A dialog field filled from a registry value.
#include "ostrel_registry.h"
#include "ostrel_ui.h"

#include <string_view>
#include <vector>

namespace {

// The most an edit control takes from a user by default, and so the most read here.
constexpr int32_t kFieldCapacity = 32768;

} // namespace

extern "C" int32_t Ostrel_ReadEditFieldFromRegistry(HWND dialog, int32_t control, HKEY root, const char16_t *keyPath,
                                                    uint32_t flags, const char16_t *subKey,
                                                    const char16_t *valueName, const char16_t *defaultValue) {
    HWND field = GetDlgItem(dialog, control);
    if (field == nullptr) return -1;
    std::vector<char16_t> text(kFieldCapacity);
    // A bad key path still writes the default.
    Ostrel_ReadStringFromRegistry(root, keyPath, flags, subKey, valueName, defaultValue, text.data(), kFieldCapacity, 0);
    SetWindowTextW(field, text.data());
    return static_cast<int32_t>(std::u16string_view(text.data()).size());
}
