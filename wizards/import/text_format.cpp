// The text file format's characters and its signature.
#include "wizards/import/text_format.h"

#include "platform/text/bounded_text.h"

#include <string>

namespace tabra::wizards::importing {
namespace {

constexpr std::size_t kSignatureCapacity = 400;

char16_t firstOf(const std::u16string &text) { return text.empty() ? u'\0' : text[0]; }

std::u16string decimalText(int32_t number) {
    std::string digits = std::to_string(number);
    return std::u16string(digits.begin(), digits.end());
}

char16_t orBlank(char16_t c) { return c == 0 ? u' ' : c; }

} // namespace

char16_t TextFormat::separator() const {
    if (separatorKind == ids::kTextFilePage.separatorTab) return u'\t';
    if (separatorKind == ids::kTextFilePage.separatorBlank) return u' ';
    return firstOf(ownSeparator);
}

char16_t TextFormat::decimal() const {
    if (decimalKind == ids::kTextFilePage.decimalComma) return u',';
    if (decimalKind == ids::kTextFilePage.decimalPoint) return u'.';
    return firstOf(ownDecimal);
}

std::u16string textFileSignature(const std::u16string &fileName, const TextFormat &format) {
    std::u16string signature = fileName + u'\\' + decimalText(format.valueForm) + u'\\' +
                               decimalText(format.firstLine) + u'\\' + format.separator() + u'\\' +
                               format.decimal() + u'\\' + orBlank(format.leading) + u'\\' + orBlank(format.trailing);
    return std::u16string(platform::boundedPrefix(signature, kSignatureCapacity));
}

} // namespace tabra::wizards::importing
