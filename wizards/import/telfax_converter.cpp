// The telephone/fax converter: its settings, the fields it recognises, and a row's
// numbers moved into the columns of their kinds.
#include "wizards/import/telfax_converter.h"

#include "ostrel_registry.h"
#include "ostrel_text.h"
#include "platform/text/case_folding.h"

#include <algorithm>

namespace tabra::wizards::importing {
namespace {

constexpr char16_t kKeyPath[] = u"Software\\Ostrel Software\\Lumo";
constexpr char16_t kSubKey[] = u"Settings";
constexpr int32_t kPrefixCapacity = 50;
constexpr int32_t kKeywordsCapacity = 100;

std::u16string readSetting(const char16_t *value, const std::u16string &fallback, int32_t capacity) {
    std::u16string text(static_cast<std::size_t>(capacity), u'\0');
    int32_t length = Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, kKeyPath, 0, kSubKey, value, fallback.c_str(),
                                                   text.data(), capacity, capacity - 1);
    text.resize(static_cast<std::size_t>(std::max(length, 0)));
    return text;
}

// The one or two digits after the prefix, or nothing when the name is no such field.
std::u16string suffixAfter(std::u16string_view name, std::u16string_view prefix) {
    if (name.size() <= prefix.size() || name.size() > prefix.size() + 2 ||
        !platform::equalIgnoringCase(name.substr(0, prefix.size()), prefix))
        return {};
    std::u16string_view digits = name.substr(prefix.size());
    bool allDigits = std::all_of(digits.begin(), digits.end(), [](char16_t c) { return c >= u'0' && c <= u'9'; });
    return allDigits ? std::u16string(digits) : std::u16string();
}

} // namespace

TelFaxSettings TelFaxSettings::fromRegistry() {
    TelFaxSettings settings;
    settings.on = Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, kKeyPath, 0, kSubKey, u"TelFaxConverter", 0) != 0;
    settings.kindPrefix = readSetting(u"FieldnamePrefix", settings.kindPrefix, kPrefixCapacity);
    settings.numberPrefix = readSetting(u"ContentsPrefix", settings.numberPrefix, kPrefixCapacity);
    settings.keywords = readSetting(u"FieldnameKeywords", settings.keywords, kKeywordsCapacity);
    return settings;
}

std::vector<std::u16string> TelFaxSettings::kinds() const {
    std::vector<std::u16string> list;
    char16_t kind[kKeywordsCapacity] = {};
    for (int32_t position = 0; Ostrel_ReadToken(keywords.c_str(), &position, u',', kind, kKeywordsCapacity) == 1;)
        if (kind[0] != u'\0') list.emplace_back(kind);
    return list;
}

ConverterField recognise(const TelFaxSettings &settings, std::u16string_view name) {
    if (auto suffix = suffixAfter(name, settings.kindPrefix); !suffix.empty()) return {ConverterRole::Kind, suffix};
    if (auto suffix = suffixAfter(name, settings.numberPrefix); !suffix.empty()) return {ConverterRole::Number, suffix};
    return {};
}

TelFaxConverter::TelFaxConverter(const TelFaxSettings &settings, const ImportFieldList &fields, std::size_t fileFields)
    : kinds_(settings.kinds()), firstKindColumn_(fileFields) {
    for (std::size_t kind = 0; kind < fileFields; ++kind) {
        ConverterField asKind = recognise(settings, fields.inSourceOrder(kind)->sourceName);
        if (asKind.role != ConverterRole::Kind) continue;
        for (std::size_t number = 0; number < fileFields; ++number) {
            ConverterField asNumber = recognise(settings, fields.inSourceOrder(number)->sourceName);
            if (asNumber.role == ConverterRole::Number && asNumber.suffix == asKind.suffix) {
                pairs_.push_back({kind, number});
                break;
            }
        }
    }
}

bool TelFaxConverter::apply(const ImportFieldList &fields,
                            const std::function<bool(ImportField &, const std::u16string &)> &set) const {
    bool converted = true;
    for (const Pair &pair : pairs_) {
        const ImportField *kind = fields.inSourceOrder(pair.kindField);
        if (!kind->value || kind->value->empty()) continue;
        auto found = std::find_if(kinds_.begin(), kinds_.end(), [&kind](const std::u16string &listed) {
            return platform::equalIgnoringCase(listed, *kind->value);
        });
        ImportField *column = fields.inSourceOrder(firstKindColumn_ + static_cast<std::size_t>(found - kinds_.begin()));
        if (found == kinds_.end() || column == nullptr) continue;
        const ImportField *number = fields.inSourceOrder(pair.numberField);
        column->value.reset();
        if (number->value && !set(*column, *number->value)) converted = false;
    }
    return converted;
}

} // namespace tabra::wizards::importing
