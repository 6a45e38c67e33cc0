// Picture names and their files.
#include "platform/resources/picture_resources.h"

#include "platform/resources/resource_module.h"

namespace tabra::platform {

std::u16string pictureName(int32_t pictureId) {
    std::string digits = std::to_string(pictureId);
    return u"#" + std::u16string(digits.begin(), digits.end());
}

std::string pictureFileNamed(HMODULE module, std::u16string_view name) {
    if (name.size() < 2 || name.size() > 6 || name.front() != u'#') return {};
    int32_t id = 0;
    for (char16_t c : name.substr(1)) {
        if (c < u'0' || c > u'9') return {};
        id = id * 10 + (c - u'0');
    }
    const ResourceTables *tables = resourceTablesOf(module);
    if (!tables) return {};
    auto found = tables->pictures.find(id);
    return found == tables->pictures.end() ? std::string() : found->second;
}

} // namespace tabra::platform
