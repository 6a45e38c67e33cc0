// The statement history in the per-user registry store, read and written through the
// store's document so that a save is one atomic change and a load one read of the file.
#include "admin/sql_performer/history_store.h"

#include "core/module/module_state.h"
#include "platform/registry/registry_store.h"
#include "platform/text/bounded_text.h"

#include <algorithm>
#include <optional>

namespace tabra::admin::sql_performer {
namespace {

constexpr char16_t kHistoryKey[] = u"SqlPerformer\\Recent";
constexpr char16_t kTotalName[] = u"Total";
constexpr size_t kEntryCapacity = 1000; // characters with the terminator

std::optional<platform::RegistryKeyPath> historyKey() {
    return platform::RegistryKeyPath::parse(module::kRegistryRoot, kHistoryKey);
}

// "E001" for 1; more digits as the number needs them.
std::u16string entryName(int64_t number) {
    std::u16string digits;
    for (int64_t rest = number; rest > 0 || digits.size() < 3; rest /= 10)
        digits.insert(digits.begin(), static_cast<char16_t>(u'0' + rest % 10));
    return u"E" + digits;
}

// The number of an entry's value name, when it is one as entryName writes it.
std::optional<int64_t> entryNumber(std::u16string_view name) {
    if (name.size() < 4 || name.size() > 12 || (name[0] != u'E' && name[0] != u'e')) return std::nullopt;
    int64_t number = 0;
    for (char16_t c : name.substr(1)) {
        if (c < u'0' || c > u'9') return std::nullopt;
        number = number * 10 + (c - u'0');
    }
    if (number < 1 || entryName(number).size() != name.size()) return std::nullopt; // "E0001" is none
    return number;
}

} // namespace

std::vector<std::u16string> readStoredHistory() {
    std::vector<std::u16string> entries;
    auto location = platform::registryLocationOf(HKEY_CURRENT_USER);
    auto key = historyKey();
    if (!location || !key) return entries;
    const platform::StoreSnapshot store = platform::loadRegistryStore(location->file);
    int32_t total = 0;
    const platform::RegistryValue *totalValue = store.document.findValue(*key, kTotalName);
    if (totalValue == nullptr || !totalValue->asNumber(total) || total < 1) return entries;

    // Entries beyond the highest one stored are all empty: the walk ends there, so that
    // a damaged "Total" of millions costs nothing.
    int64_t highest = 0;
    for (const platform::RegistryKey &stored : store.document.keys()) {
        if (!stored.path.sameAs(*key)) continue;
        for (const platform::RegistryValue &value : stored.values)
            if (auto number = entryNumber(value.name)) highest = std::max(highest, *number);
    }
    for (int64_t number = 1; number <= std::min<int64_t>(total, highest); ++number) {
        const platform::RegistryValue *value = store.document.findValue(*key, entryName(number));
        if (value == nullptr) continue;
        std::u16string text = value->asText();
        text.resize(platform::cutLength(text, kEntryCapacity - 1));
        if (!platform::isBlank(text)) entries.push_back(std::move(text));
    }
    return entries;
}

void writeStoredHistory(const std::vector<std::u16string> &entries) {
    auto location = platform::registryLocationOf(HKEY_CURRENT_USER);
    auto key = historyKey();
    if (!location || !key) return;
    platform::updateRegistryStore(*location, [&](platform::RegistryDocument &document) {
        document.deleteTree(*key);
        document.setNumber(*key, kTotalName, static_cast<uint32_t>(entries.size()));
        for (size_t i = 0; i < entries.size(); ++i) document.setText(*key, entryName(static_cast<int64_t>(i) + 1), entries[i]);
        return true;
    });
}

} // namespace tabra::admin::sql_performer
