// The file name dialog: proposes the caller's name or the last one stored in the
// registry, lets the renderer ask, and stores the choice.
#include "ostrel_registry.h"
#include "ostrel_ui.h"
#include "platform/text/bounded_text.h"
#include "platform/window/focus.h"
#include "platform/window/renderer_selection.h"
#include "platform/widgets/resource_strings.h"
#include "platform/window/window_registry.h"

#include <vector>

using namespace tabra::window;

namespace {

constexpr int32_t kStoredNameCapacity = 4096;

// "Text files|*.txt|All files|*.*" as pairs; a description without patterns gets "*".
std::vector<std::pair<std::u16string, std::u16string>> parseFilters(const std::u16string &text) {
    std::vector<std::u16string> parts;
    std::size_t start = 0;
    while (start <= text.size() && !text.empty()) {
        std::size_t bar = text.find(u'|', start);
        if (bar == std::u16string::npos) bar = text.size();
        parts.push_back(text.substr(start, bar - start));
        start = bar + 1;
    }
    std::vector<std::pair<std::u16string, std::u16string>> filters;
    for (std::size_t i = 0; i < parts.size(); i += 2) {
        if (parts[i].empty() && (i + 1 >= parts.size() || parts[i + 1].empty())) continue;
        filters.emplace_back(parts[i], i + 1 < parts.size() && !parts[i + 1].empty() ? parts[i + 1] : u"*");
    }
    return filters;
}

} // namespace

extern "C" int32_t Ostrel_ExtendedFileNameDialog(HWND owner, int32_t mode, HMODULE module, int32_t filterId,
                                                 int32_t titleId, HKEY root, const char16_t *keyPath,
                                                 const char16_t *subKey, const char16_t *valueName,
                                                 char16_t *fileName, int32_t capacity) {
    if (!fileName || capacity < 1 || (mode != OSTREL_FILE_OPEN && mode != OSTREL_FILE_SAVE)) return -1;
    bool remembered = valueName && *valueName && keyPath;
    FileNamePrompt prompt;
    prompt.owner = findWindow(owner) ? owner : activeDialog();
    prompt.save = mode == OSTREL_FILE_SAVE;
    prompt.title = titleId ? resourceText(module, titleId) : std::u16string();
    prompt.filters = filterId ? parseFilters(resourceText(module, filterId)) : decltype(prompt.filters){};
    prompt.proposedName = std::u16string(tabra::platform::viewOfBuffer(fileName, static_cast<std::size_t>(capacity)));
    if (prompt.proposedName.empty() && remembered) {
        std::vector<char16_t> stored(kStoredNameCapacity, 0);
        int32_t length = Ostrel_ReadStringFromRegistry(root, keyPath, 0, subKey, valueName, u"", stored.data(),
                                                       kStoredNameCapacity, kStoredNameCapacity - 1);
        if (length > 0) prompt.proposedName.assign(stored.data(), static_cast<std::size_t>(length));
    }
    auto chosen = activeRenderer().fileName(prompt);
    if (!chosen) return 0;
    tabra::platform::writeBounded(fileName, capacity, *chosen);
    if (remembered) Ostrel_WriteStringToRegistry(root, keyPath, 0, subKey, valueName, chosen->c_str());
    return 1;
}
