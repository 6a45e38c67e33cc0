#include "platform/registry/registry_key_path.h"

#include "platform/text/case_folding.h"
#include "platform/text/utf_conversion.h"

#include <algorithm>

namespace tabra::platform {
namespace {

bool isStorableName(std::u16string_view name) {
    const bool hasControl = std::any_of(name.begin(), name.end(), [](char16_t c) { return c < 32 || c == 127; });
    return !hasControl && isWellFormedUtf16(name);
}

bool appendNames(std::vector<std::u16string> &names, std::u16string_view path) {
    std::size_t start = 0;
    while (start <= path.size()) {
        std::size_t end = path.find(u'\\', start);
        if (end == std::u16string_view::npos)
            end = path.size();
        const std::u16string_view name = path.substr(start, end - start);
        if (!name.empty()) {
            if (!isStorableName(name))
                return false;
            names.emplace_back(name);
        }
        start = end + 1;
    }
    return true;
}

} // namespace

std::optional<RegistryKeyPath> RegistryKeyPath::parse(std::u16string_view keyPath, std::u16string_view subKey) {
    RegistryKeyPath path;
    if (!appendNames(path.names_, keyPath) || !appendNames(path.names_, subKey))
        return std::nullopt;
    return path;
}

std::u16string RegistryKeyPath::text() const {
    std::u16string joined;
    for (const auto &name : names_) {
        if (!joined.empty())
            joined += u'\\';
        joined += name;
    }
    return joined;
}

bool RegistryKeyPath::sameAs(const RegistryKeyPath &other) const {
    return names_.size() == other.names_.size() && isWithin(other);
}

bool RegistryKeyPath::isWithin(const RegistryKeyPath &ancestor) const {
    if (ancestor.names_.size() > names_.size())
        return false;
    return std::equal(ancestor.names_.begin(), ancestor.names_.end(), names_.begin(),
                      [](const std::u16string &a, const std::u16string &b) { return equalIgnoringCase(a, b); });
}

} // namespace tabra::platform
