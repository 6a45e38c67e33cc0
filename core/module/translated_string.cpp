// Translated string loading.
#include "core/module/translated_string.h"

#include "core/module/module_state.h"
#include "ostrel_lts.h"

#include <string>

namespace tabra::module {

int32_t LoadTranslatedString(HMODULE module, int32_t stringId, char16_t *buffer, int32_t size) {
    if (buffer == nullptr || size < 1) return 0;
    if (LoadStringW(module, static_cast<uint32_t>(stringId), buffer, size) < 1) return 0;
    LTS_TranslateString(kTranslationModuleName, 0, buffer, size);
    return static_cast<int32_t>(std::char_traits<char16_t>::length(buffer));
}

} // namespace tabra::module
