// Splitting descriptors into groups, lines and fields.
#include "query/descriptor_text.h"

namespace tabra::query {

namespace {

// The next field up to the separator (or the end); moves the cursor past it.
std::u16string_view nextField(std::u16string_view text, size_t &cursor) {
    if (cursor >= text.size()) return {};
    size_t end = text.find(kFieldSeparator, cursor);
    if (end == std::u16string_view::npos) end = text.size();
    std::u16string_view field = text.substr(cursor, end - cursor);
    cursor = end + 1;
    return field;
}

int32_t parseDataType(std::u16string_view text) {
    size_t i = 0;
    while (i < text.size() && (text[i] == u' ' || text[i] == u'\t')) ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == u'-' || text[i] == u'+')) negative = text[i++] == u'-';
    int64_t value = 0;
    for (; i < text.size() && text[i] >= u'0' && text[i] <= u'9'; ++i) {
        value = value * 10 + (text[i] - u'0');
        if (value > INT32_MAX) return 0;
    }
    return static_cast<int32_t>(negative ? -value : value);
}

} // namespace

std::vector<std::u16string_view> splitNonEmpty(std::u16string_view text, char16_t separator) {
    std::vector<std::u16string_view> pieces;
    size_t start = 0;
    while (start <= text.size()) {
        size_t end = text.find(separator, start);
        if (end == std::u16string_view::npos) end = text.size();
        if (end > start) pieces.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return pieces;
}

std::vector<std::u16string_view> splitKeepingEmpty(std::u16string_view text, char16_t separator) {
    std::vector<std::u16string_view> pieces;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find(separator, start);
        if (end == std::u16string_view::npos) end = text.size();
        pieces.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return pieces;
}

DescriptorLine parseDescriptorLine(std::u16string_view line) {
    size_t cursor = 0;
    DescriptorLine parsed;
    parsed.column = std::u16string(nextField(line, cursor).substr(0, kColumnLength));
    parsed.key = std::u16string(nextField(line, cursor));
    parsed.value = std::u16string(nextField(line, cursor).substr(0, kValueLength));
    parsed.dataType = parseDataType(nextField(line, cursor));
    return parsed;
}

} // namespace tabra::query
