// The exported registry calls over the file stores (registry_store.h).
#include "ostrel_registry.h"
#include "platform/registry/registry_store.h"
#include "platform/text/bounded_text.h"

#include <algorithm>
#include <optional>
#include <string>

using namespace tabra::platform;

namespace {

// Where one value lives: the store of its root, its key and its name.
struct ValueAddress {
    RegistryLocation location;
    RegistryKeyPath key;
    std::u16string name; // empty: the key's default value
};

std::optional<ValueAddress> addressOf(HKEY root, const char16_t *keyPath, const char16_t *subKey,
                                      const char16_t *valueName) {
    if (!keyPath)
        return std::nullopt;
    auto location = registryLocationOf(root);
    auto key = RegistryKeyPath::parse(keyPath, viewOf(subKey));
    if (!location || !key)
        return std::nullopt;
    return ValueAddress{std::move(*location), std::move(*key), std::u16string(viewOf(valueName))};
}

// The stored value, read fresh from its store; nothing when it, its key or the store
// is missing or the store is damaged.
std::optional<RegistryValue> lookUp(const std::optional<ValueAddress> &address) {
    if (!address)
        return std::nullopt;
    const StoreSnapshot snapshot = loadRegistryStore(address->location.file);
    const RegistryValue *value = snapshot.document.findValue(address->key, address->name);
    return value ? std::optional<RegistryValue>(*value) : std::nullopt;
}

// Writes text into output, at most maxLength characters of it (maxLength below 1: as
// many as the capacity holds).
int32_t deliverText(std::u16string_view text, char16_t *output, int32_t capacity, int32_t maxLength) {
    const int32_t bound = maxLength > 0 ? std::min(capacity, maxLength + 1) : capacity;
    return writeBounded(output, bound, text);
}

int32_t readString(const std::optional<RegistryValue> &value, const char16_t *defaultValue, char16_t *output,
                   int32_t capacity, int32_t maxLength) {
    const std::u16string text = value ? value->asText() : std::u16string(viewOf(defaultValue));
    return deliverText(text, output, capacity, maxLength);
}

int32_t readLong(const std::optional<RegistryValue> &value, int32_t defaultValue) {
    int32_t number = defaultValue;
    if (value && value->asNumber(number))
        return number;
    return defaultValue;
}

int32_t write(const std::optional<ValueAddress> &address, const RegistryValue &value) {
    if (!address)
        return 0;
    const StoreUpdate result = updateRegistryStore(address->location, [&](RegistryDocument &document) {
        return value.kind == RegistryValue::Kind::Number ? document.setNumber(address->key, address->name, value.number)
                                                         : document.setText(address->key, address->name, value.text);
    });
    return result == StoreUpdate::Failed ? 0 : 1;
}

} // namespace

extern "C" {

int32_t Ostrel_ReadStringFromRegistry(HKEY root, const char16_t *keyPath, uint32_t flags, const char16_t *subKey,
                                      const char16_t *valueName, const char16_t *defaultValue, char16_t *output,
                                      int32_t capacity, int32_t maxLength) {
    if (!output || capacity < 1)
        return -1;
    const auto address = addressOf(root, keyPath, subKey, valueName);
    const int32_t length = readString(lookUp(address), defaultValue, output, capacity, maxLength);
    return address ? length : -1;
}

int32_t Ostrel_WriteStringToRegistry(HKEY root, const char16_t *keyPath, uint32_t flags, const char16_t *subKey,
                                     const char16_t *valueName, const char16_t *value) {
    RegistryValue stored;
    stored.kind = RegistryValue::Kind::Text;
    stored.text = viewOf(value);
    return write(addressOf(root, keyPath, subKey, valueName), stored);
}

int32_t Ostrel_ReadLongFromRegistry(HKEY root, const char16_t *keyPath, uint32_t flags, const char16_t *subKey,
                                    const char16_t *valueName, int32_t defaultValue) {
    return readLong(lookUp(addressOf(root, keyPath, subKey, valueName)), defaultValue);
}

int32_t Ostrel_WriteLongToRegistry(HKEY root, const char16_t *keyPath, uint32_t flags, const char16_t *subKey,
                                   const char16_t *valueName, int32_t value) {
    RegistryValue stored;
    stored.kind = RegistryValue::Kind::Number;
    stored.number = static_cast<uint32_t>(value);
    return write(addressOf(root, keyPath, subKey, valueName), stored);
}

int32_t Ostrel_ReadStringFromHKCUorHKLM(const char16_t *keyPath, const char16_t *subKey, const char16_t *valueName,
                                        const char16_t *defaultValue, char16_t *output, int32_t capacity,
                                        int32_t maxLength) {
    if (!output || capacity < 1)
        return -1;
    const auto userAddress = addressOf(HKEY_CURRENT_USER, keyPath, subKey, valueName);
    auto value = lookUp(userAddress);
    if (!value)
        value = lookUp(addressOf(HKEY_LOCAL_MACHINE, keyPath, subKey, valueName));
    const int32_t length = readString(value, defaultValue, output, capacity, maxLength);
    return keyPath ? length : -1;
}

int32_t Ostrel_ReadLongFromHKCU(const char16_t *keyPath, const char16_t *valueName, int32_t defaultValue) {
    return Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, keyPath, 0, nullptr, valueName, defaultValue);
}

int32_t Ostrel_WriteLongToHKCU(const char16_t *keyPath, const char16_t *valueName, int32_t value) {
    return Ostrel_WriteLongToRegistry(HKEY_CURRENT_USER, keyPath, 0, nullptr, valueName, value);
}

int32_t Ostrel_DeleteRegistryKey(HKEY root, const char16_t *keyPath, const char16_t *valueName) {
    const auto address = addressOf(root, keyPath, nullptr, valueName);
    // Deleting the whole root is never what a caller means.
    if (!address || (!valueName && address->key.isRoot()))
        return 0;
    const StoreUpdate result = updateRegistryStore(address->location, [&](RegistryDocument &document) {
        return valueName ? document.deleteValue(address->key, address->name) : document.deleteTree(address->key);
    });
    return result == StoreUpdate::Written ? 1 : 0;
}

} // extern "C"
