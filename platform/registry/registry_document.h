// The contents of one registry store in memory: keys, each with its named values.
// Key and value names compare without regard to case, as on Windows; a name keeps the
// spelling it was first written with.
#pragma once

#include "platform/registry/registry_key_path.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tabra::platform {

struct RegistryValue {
    enum class Kind { Text, Number };

    std::u16string name; // empty: the key's default value
    Kind kind = Kind::Text;
    std::u16string text;  // when Kind::Text
    uint32_t number = 0;  // when Kind::Number (a DWORD)

    // The value read as text: a number gives its decimal form (signed, as written).
    std::u16string asText() const;
    // The value read as a number: a text that is a whole decimal number in the 32-bit
    // range (signed or unsigned) gives it; anything else gives nothing.
    bool asNumber(int32_t &result) const;
};

struct RegistryKey {
    RegistryKeyPath path;
    std::vector<RegistryValue> values;
};

class RegistryDocument {
public:
    const std::vector<RegistryKey> &keys() const { return keys_; }
    bool empty() const { return keys_.empty(); }

    const RegistryValue *findValue(const RegistryKeyPath &key, std::u16string_view name) const;

    // Sets a value, creating its key; answers whether the document changed.
    bool setText(const RegistryKeyPath &key, std::u16string_view name, std::u16string_view text);
    bool setNumber(const RegistryKeyPath &key, std::u16string_view name, uint32_t number);

    // Creates the key when it is missing (a key may hold no values).
    RegistryKey &ensureKey(const RegistryKeyPath &key);

    // Removes one value; answers whether there was one.
    bool deleteValue(const RegistryKeyPath &key, std::u16string_view name);
    // Removes the key and every key below it with their values; answers whether any
    // key was there.
    bool deleteTree(const RegistryKeyPath &key);

private:
    RegistryKey *findKey(const RegistryKeyPath &key);
    const RegistryKey *findKey(const RegistryKeyPath &key) const;
    bool setValue(const RegistryKeyPath &key, RegistryValue value);

    std::vector<RegistryKey> keys_; // in the order they were first written
};

} // namespace tabra::platform
