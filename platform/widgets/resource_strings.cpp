// String lookup for message boxes, notices and file dialogs.
#include "platform/widgets/resource_strings.h"

#include "ostrel_lts.h"
#include "platform/resources/resource_module.h"

#include <vector>

namespace tabra::window {

std::optional<platform::StringEntry> loadResourceString(HMODULE module, int32_t stringId,
                                                        const char16_t *translationModule) {
    const auto *tables = platform::resourceTablesOf(module);
    if (!tables) return std::nullopt;
    auto found = tables->strings.find(stringId);
    if (found == tables->strings.end()) return std::nullopt;
    platform::StringEntry entry = found->second;
    if (translationModule) {
        // Translations may be longer than the original: give them generous room.
        std::vector<char16_t> buffer(entry.text.size() + 4096, 0);
        entry.text.copy(buffer.data(), entry.text.size());
        int32_t length = LTS_TranslateString(translationModule, 0, buffer.data(), static_cast<int32_t>(buffer.size()));
        if (length >= 0) entry.text.assign(buffer.data(), static_cast<std::size_t>(length));
    }
    return entry;
}

std::u16string resourceText(HMODULE module, int32_t stringId, const char16_t *translationModule) {
    auto entry = loadResourceString(module, stringId, translationModule);
    return entry ? entry->text : std::u16string();
}

} // namespace tabra::window
