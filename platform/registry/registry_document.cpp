#include "platform/registry/registry_document.h"

#include "platform/text/case_folding.h"
#include "platform/text/utf_conversion.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace tabra::platform {

std::u16string RegistryValue::asText() const {
    if (kind == Kind::Text)
        return text;
    return fromUtf8(std::to_string(static_cast<int32_t>(number)));
}

bool RegistryValue::asNumber(int32_t &result) const {
    if (kind == Kind::Number) {
        result = static_cast<int32_t>(number);
        return true;
    }
    const std::string digits = toUtf8(text);
    int64_t parsed = 0;
    const char *begin = digits.data();
    const char *end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(begin, end, parsed);
    if (digits.empty() || error != std::errc() || stop != end)
        return false;
    if (parsed < std::numeric_limits<int32_t>::min() || parsed > std::numeric_limits<uint32_t>::max())
        return false;
    result = static_cast<int32_t>(static_cast<uint32_t>(parsed));
    return true;
}

RegistryKey *RegistryDocument::findKey(const RegistryKeyPath &key) {
    const auto found = std::find_if(keys_.begin(), keys_.end(), [&](const RegistryKey &k) { return k.path.sameAs(key); });
    return found == keys_.end() ? nullptr : &*found;
}

const RegistryKey *RegistryDocument::findKey(const RegistryKeyPath &key) const {
    return const_cast<RegistryDocument *>(this)->findKey(key);
}

RegistryKey &RegistryDocument::ensureKey(const RegistryKeyPath &key) {
    if (RegistryKey *existing = findKey(key))
        return *existing;
    keys_.push_back(RegistryKey{key, {}});
    return keys_.back();
}

const RegistryValue *RegistryDocument::findValue(const RegistryKeyPath &key, std::u16string_view name) const {
    const RegistryKey *k = findKey(key);
    if (!k)
        return nullptr;
    const auto found = std::find_if(k->values.begin(), k->values.end(),
                                    [&](const RegistryValue &v) { return equalIgnoringCase(v.name, name); });
    return found == k->values.end() ? nullptr : &*found;
}

bool RegistryDocument::setValue(const RegistryKeyPath &key, RegistryValue value) {
    RegistryKey &k = ensureKey(key);
    for (RegistryValue &existing : k.values) {
        if (!equalIgnoringCase(existing.name, value.name))
            continue;
        if (existing.kind == value.kind && existing.text == value.text && existing.number == value.number)
            return false;
        value.name = existing.name; // the first spelling stays
        existing = std::move(value);
        return true;
    }
    k.values.push_back(std::move(value));
    return true;
}

bool RegistryDocument::setText(const RegistryKeyPath &key, std::u16string_view name, std::u16string_view text) {
    RegistryValue value;
    value.name = name;
    value.kind = RegistryValue::Kind::Text;
    value.text = text;
    return setValue(key, std::move(value));
}

bool RegistryDocument::setNumber(const RegistryKeyPath &key, std::u16string_view name, uint32_t number) {
    RegistryValue value;
    value.name = name;
    value.kind = RegistryValue::Kind::Number;
    value.number = number;
    return setValue(key, std::move(value));
}

bool RegistryDocument::deleteValue(const RegistryKeyPath &key, std::u16string_view name) {
    RegistryKey *k = findKey(key);
    if (!k)
        return false;
    const auto removed = std::remove_if(k->values.begin(), k->values.end(),
                                        [&](const RegistryValue &v) { return equalIgnoringCase(v.name, name); });
    if (removed == k->values.end())
        return false;
    k->values.erase(removed, k->values.end());
    return true;
}

bool RegistryDocument::deleteTree(const RegistryKeyPath &key) {
    const auto removed =
        std::remove_if(keys_.begin(), keys_.end(), [&](const RegistryKey &k) { return k.path.isWithin(key); });
    if (removed == keys_.end())
        return false;
    keys_.erase(removed, keys_.end());
    return true;
}

} // namespace tabra::platform
