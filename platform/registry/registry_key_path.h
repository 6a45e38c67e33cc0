// A registry key path: the key names between the "\" of "Software\Ostrel Software\Tabra".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabra::platform {

class RegistryKeyPath {
public:
    RegistryKeyPath() = default;

    // The path keyPath\subKey (subKey may be empty). Empty names, as from a leading,
    // trailing or doubled "\", are dropped. Nothing when a name holds a character the
    // store cannot keep on its section line: a control character (below 32 or 127) or
    // a surrogate without its partner.
    static std::optional<RegistryKeyPath> parse(std::u16string_view keyPath, std::u16string_view subKey = {});

    const std::vector<std::u16string> &names() const { return names_; }
    bool isRoot() const { return names_.empty(); }
    // The names joined by "\".
    std::u16string text() const;

    // Key names compare without regard to case.
    bool sameAs(const RegistryKeyPath &other) const;
    // This key is ancestor itself or lies below it.
    bool isWithin(const RegistryKeyPath &ancestor) const;

private:
    std::vector<std::u16string> names_;
};

} // namespace tabra::platform
