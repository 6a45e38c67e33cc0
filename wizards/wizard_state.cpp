// The wizards' last choices from the registry.
#include "wizards/wizard_state.h"

#include "core/module/module_state.h"
#include "ostrel_registry.h"

#include <algorithm>

namespace tabra::wizards {

std::u16string readWizardString(const char16_t *key, const char16_t *value, int32_t capacity) {
    std::u16string text(static_cast<std::size_t>(capacity), u'\0');
    int32_t length = Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, key, value, u"",
                                                   text.data(), capacity, capacity - 1);
    text.resize(static_cast<std::size_t>(std::max(length, 0)));
    return text;
}

} // namespace tabra::wizards
