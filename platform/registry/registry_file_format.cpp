#include "platform/registry/registry_file_format.h"

#include "platform/text/bounded_text.h"
#include "platform/text/utf_conversion.h"

namespace tabra::platform {
namespace {

constexpr char kHeader[] = "; Tabra registry. Sections name keys; values are \"name\"=\"text\" or "
                           "\"name\"=dword:hex. Written whole on every change: edit only while no program uses it.\n";

constexpr char16_t kHex[] = u"0123456789abcdef";

void appendHex(std::u16string &out, unsigned value, int digits) {
    for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4)
        out += kHex[(value >> shift) & 0xF];
}

std::u16string quoted(std::u16string_view text) {
    std::u16string out = u"\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        switch (c) {
        case u'\\': out += u"\\\\"; break;
        case u'"': out += u"\\\""; break;
        case u'\n': out += u"\\n"; break;
        case u'\r': out += u"\\r"; break;
        case u'\t': out += u"\\t"; break;
        default:
            if (c < 32 || c == 127) {
                out += u"\\x";
                appendHex(out, c, 2);
            } else if (isHighSurrogate(c) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
                out += c;
                out += text[++i];
            } else if (isHighSurrogate(c) || isLowSurrogate(c)) {
                out += u"\\u";
                appendHex(out, c, 4);
            } else {
                out += c;
            }
        }
    }
    out += u'"';
    return out;
}

// Reads hex digits (exactly `digits` of them, or 1 to `digits` when !exact).
std::optional<uint32_t> readHex(std::u16string_view text, std::size_t &at, std::size_t digits, bool exact) {
    uint32_t value = 0;
    std::size_t count = 0;
    while (count < digits && at < text.size()) {
        const char16_t c = text[at];
        unsigned digit;
        if (c >= u'0' && c <= u'9')
            digit = c - u'0';
        else if (c >= u'a' && c <= u'f')
            digit = c - u'a' + 10;
        else if (c >= u'A' && c <= u'F')
            digit = c - u'A' + 10;
        else
            break;
        value = value * 16 + digit;
        ++count;
        ++at;
    }
    if (count == 0 || (exact && count != digits))
        return std::nullopt;
    return value;
}

// Reads a quoted text starting at text[at] (the opening quote); leaves at after the
// closing quote.
std::optional<std::u16string> readQuoted(std::u16string_view text, std::size_t &at) {
    if (at >= text.size() || text[at] != u'"')
        return std::nullopt;
    ++at;
    std::u16string out;
    while (at < text.size()) {
        const char16_t c = text[at++];
        if (c == u'"')
            return out;
        if (c != u'\\') {
            out += c;
            continue;
        }
        if (at >= text.size())
            return std::nullopt;
        const char16_t kind = text[at++];
        switch (kind) {
        case u'\\': out += u'\\'; break;
        case u'"': out += u'"'; break;
        case u'n': out += u'\n'; break;
        case u'r': out += u'\r'; break;
        case u't': out += u'\t'; break;
        case u'x':
        case u'u': {
            const auto value = readHex(text, at, kind == u'x' ? 2 : 4, true);
            if (!value || *value == 0)
                return std::nullopt;
            out += static_cast<char16_t>(*value);
            break;
        }
        default: return std::nullopt;
        }
    }
    return std::nullopt; // no closing quote
}

std::u16string_view trimmedLine(std::u16string_view line) {
    const auto isBlankChar = [](char16_t c) { return c == u' ' || c == u'\t' || c == u'\r'; };
    while (!line.empty() && isBlankChar(line.front()))
        line.remove_prefix(1);
    while (!line.empty() && isBlankChar(line.back()))
        line.remove_suffix(1);
    return line;
}

// A value line, `"name"=...` or `@=...`; nothing when the line is not one.
std::optional<RegistryValue> parseValueLine(std::u16string_view line) {
    std::size_t at = 0;
    RegistryValue value;
    if (line[0] == u'@') {
        at = 1;
    } else {
        const auto name = readQuoted(line, at);
        if (!name)
            return std::nullopt;
        value.name = *name;
    }
    if (at >= line.size() || line[at++] != u'=')
        return std::nullopt;
    const std::u16string_view rest = line.substr(at);
    if (rest.substr(0, 6) == u"dword:") {
        std::size_t hexAt = 6;
        const auto number = readHex(rest, hexAt, 8, false);
        if (!number || hexAt != rest.size())
            return std::nullopt;
        value.kind = RegistryValue::Kind::Number;
        value.number = *number;
    } else {
        std::size_t textAt = 0;
        const auto text = readQuoted(rest, textAt);
        if (!text || textAt != rest.size())
            return std::nullopt;
        value.text = *text;
    }
    return value;
}

} // namespace

std::optional<RegistryDocument> parseRegistryText(std::string_view utf8) {
    if (!isValidUtf8(utf8) || utf8.find('\0') != std::string_view::npos)
        return std::nullopt;
    const std::u16string text = fromUtf8(utf8);
    RegistryDocument document;
    std::optional<RegistryKeyPath> currentKey;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find(u'\n', start);
        if (end == std::u16string::npos)
            end = text.size();
        const std::u16string_view line = trimmedLine(std::u16string_view(text).substr(start, end - start));
        start = end + 1;
        if (line.empty() || line[0] == u';' || line[0] == u'#')
            continue;
        if (line[0] == u'[') {
            if (line.back() != u']')
                return std::nullopt;
            currentKey = RegistryKeyPath::parse(line.substr(1, line.size() - 2));
            if (!currentKey)
                return std::nullopt;
            document.ensureKey(*currentKey);
            continue;
        }
        if (!currentKey)
            return std::nullopt; // a value before any section
        const auto value = parseValueLine(line);
        if (!value)
            return std::nullopt;
        // A name given twice in a hand-edited section: the later line wins.
        if (value->kind == RegistryValue::Kind::Number)
            document.setNumber(*currentKey, value->name, value->number);
        else
            document.setText(*currentKey, value->name, value->text);
    }
    return document;
}

std::string formatRegistryText(const RegistryDocument &document) {
    std::u16string out;
    for (const RegistryKey &key : document.keys()) {
        out += u"\n[";
        out += key.path.text();
        out += u"]\n";
        for (const RegistryValue &value : key.values) {
            out += value.name.empty() ? u"@" : quoted(value.name);
            out += u'=';
            if (value.kind == RegistryValue::Kind::Number) {
                out += u"dword:";
                appendHex(out, value.number, 8);
            } else {
                out += quoted(value.text);
            }
            out += u'\n';
        }
    }
    return kHeader + toUtf8(out);
}

} // namespace tabra::platform
