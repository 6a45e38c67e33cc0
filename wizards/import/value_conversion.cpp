// Source values converted into current values, and the number cleanings.
#include "wizards/import/value_conversion.h"

#include "ostrel_dates.h"
#include "platform/text/bounded_text.h"
#include "tabra_catalog.h"

#include <cmath>
#include <cstdlib>
#include <string>

namespace tabra::wizards::importing {
namespace {

constexpr std::size_t kTableNumberCapacity = 100;
constexpr int32_t kTimestampCapacity = 40;
constexpr char16_t kDatePattern[] = u"%D1.%M1.%Y2";

bool isText(int32_t type) { return type == TdtText || type == TdtMemo || type == TdtVarText; }
bool isNumber(int32_t type) { return type == TdtInteger || type == TdtNumber; }
bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// Reads the digits from position on; answers how many.
std::size_t digitsAt(std::u16string_view text, std::size_t &position) {
    std::size_t start = position;
    while (position < text.size() && isDigit(text[position])) ++position;
    return position - start;
}

// A number literal: [+-] digits [. digits] or [+-] . digits, with an exponent when asked.
bool isNumberLiteral(std::u16string_view text, bool exponent) {
    std::size_t at = 0;
    if (at < text.size() && (text[at] == u'+' || text[at] == u'-')) ++at;
    std::size_t digits = digitsAt(text, at);
    if (at < text.size() && text[at] == u'.') {
        ++at;
        digits += digitsAt(text, at);
    }
    if (digits == 0) return false;
    if (exponent && at < text.size() && (text[at] == u'e' || text[at] == u'E')) {
        ++at;
        if (at < text.size() && (text[at] == u'+' || text[at] == u'-')) ++at;
        if (digitsAt(text, at) == 0) return false;
    }
    return at == text.size();
}

std::u16string_view trimmed(std::u16string_view text) {
    while (!text.empty() && text.front() <= u' ') text.remove_prefix(1);
    while (!text.empty() && text.back() <= u' ') text.remove_suffix(1);
    return text;
}

std::optional<std::u16string> toTimestamp(const DateTimeStruct &value) {
    char16_t text[kTimestampCapacity] = {};
    if (DateTimeStruct_To_OdbcTimeStamp(&value, text, kTimestampCapacity) != 1) return std::nullopt;
    return std::u16string(text);
}

std::optional<std::u16string> userDateToTimestamp(std::u16string_view text) {
    DateTimeStruct value{};
    std::u16string copy(text);
    if (FormattedDate_To_DateTimeStruct(copy.c_str(), &value, 0) != 1) return std::nullopt;
    return toTimestamp(value);
}

std::optional<DateTimeStruct> fromTimestamp(std::u16string_view text) {
    DateTimeStruct value{};
    std::u16string copy(text);
    if (OdbcTimeStamp_To_DateTimeStruct(copy.c_str(), &value) != 1) return std::nullopt;
    return value;
}

std::optional<std::u16string> dateAsText(std::u16string_view text) {
    auto value = fromTimestamp(text);
    if (!value) return std::nullopt;
    char16_t written[kTimestampCapacity] = {};
    if (DateTimeStruct_To_PatternText(&*value, kDatePattern, written, kTimestampCapacity) != 1) return std::nullopt;
    return std::u16string(written);
}

std::optional<std::u16string> cleanedFor(int32_t type, std::u16string_view text) {
    return type == TdtInteger ? cleanedInteger(text) : cleanedNumber(text);
}

// A conversion's result: nullopt is a failure, an empty text no value.
std::optional<std::u16string> outcome(std::optional<std::u16string> value, bool &failed) {
    failed = !value;
    if (!value || value->empty()) return std::nullopt;
    return value;
}

// The new value of a field, or nullopt (with failed set when that is a failure).
std::optional<std::u16string> converted(const ImportField &field, std::u16string_view text,
                                        const ConversionRules &rules, bool &failed) {
    if (isText(field.sourceType) || isNumber(field.sourceType)) {
        if (isText(field.type)) {
            if (!field.valueFiles || rules.files == nullptr) return std::u16string(text);
            return rules.files->read(std::u16string(text), field.silentFiles);
        }
        if (isNumber(field.type)) {
            if (isText(field.sourceType) && !rules.tableSource) return outcome(fileNumber(text, rules.decimal), failed);
            return outcome(cleanedFor(field.type, platform::boundedPrefix(text, kTableNumberCapacity)), failed);
        }
        if (field.type == TdtDateTime && isText(field.sourceType)) return outcome(userDateToTimestamp(text), failed);
        return std::nullopt;
    }
    if (field.sourceType == TdtDateTime) {
        if (isText(field.type)) return outcome(dateAsText(text), failed);
        if (field.type != TdtDateTime) return std::nullopt;
        auto date = fromTimestamp(text);
        return outcome(date ? toTimestamp(*date) : std::nullopt, failed);
    }
    return std::nullopt;
}

} // namespace

bool setValue(ImportField &field, std::u16string_view text, const ConversionRules &rules) {
    field.value.reset();
    if (text.empty()) return true;
    bool failed = false;
    field.value = converted(field, text, rules, failed);
    return !failed;
}

bool convertTableValue(int32_t sourceType, int32_t type, std::u16string_view text,
                       std::optional<std::u16string> &value) {
    ImportField field;
    field.sourceType = sourceType;
    field.type = type;
    const bool converted = setValue(field, text, {u'.', true, nullptr});
    value = std::move(field.value);
    return converted;
}

std::optional<std::u16string> fileNumber(std::u16string_view text, char16_t decimal) {
    std::u16string number;
    for (char16_t c : text) {
        if (isDigit(c) || c == u'+' || c == u'-') number.push_back(c);
        else if (c == decimal) number.push_back(u'.');
    }
    if (number.empty() && trimmed(text).empty()) return number;
    if (!isNumberLiteral(number, false)) return std::nullopt;
    return number;
}

std::optional<std::u16string> cleanedNumber(std::u16string_view text) {
    std::u16string number(trimmed(text));
    if (number.empty()) return number;
    if (number.find(u'.') == std::u16string::npos && number.find(u',') == number.rfind(u',')) {
        if (auto comma = number.find(u','); comma != std::u16string::npos) number[comma] = u'.';
    }
    if (!isNumberLiteral(number, true)) return std::nullopt;
    return number;
}

std::optional<std::u16string> cleanedInteger(std::u16string_view text) {
    auto number = cleanedNumber(text);
    if (!number || number->empty()) return number;
    std::size_t at = (*number)[0] == u'+' || (*number)[0] == u'-' ? 1 : 0;
    if (digitsAt(*number, at) > 0 && at == number->size()) return number;
    std::string ascii(number->begin(), number->end());
    long double value = std::roundl(std::strtold(ascii.c_str(), nullptr));
    if (!(std::fabs(value) < 9.2e18L)) return std::nullopt;
    std::string rounded = std::to_string(static_cast<long long>(value));
    return std::u16string(rounded.begin(), rounded.end());
}

} // namespace tabra::wizards::importing
