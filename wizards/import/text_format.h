// The format of a delimited text file as the text file page sets it, and its
// signature: the file name with the settings in one text, which tells whether the
// field list must be read again.
#pragma once

#include "wizards/import/delimited_tokens.h"
#include "wizards/import/resource_ids.h"

#include <cstdint>
#include <string>

namespace tabra::wizards::importing {

// The kinds are the ids of the page's checked radio buttons.
struct TextFormat {
    int32_t valueForm = ids::kTextFilePage.valuesAsText; // either form reads the value text as it stands
    int32_t firstLine = ids::kTextFilePage.namesInFirstLine;
    int32_t separatorKind = ids::kTextFilePage.separatorTab;
    std::u16string ownSeparator; // only its first character is used; empty: no separator
    int32_t decimalKind = ids::kTextFilePage.decimalComma;
    std::u16string ownDecimal; // only its first character is used
    char16_t leading = 0;      // text delimiters; 0: none
    char16_t trailing = 0;

    bool namesInFirstLine() const { return firstLine == ids::kTextFilePage.namesInFirstLine; }
    // TAB, blank, or the own separator (0 when it is empty).
    char16_t separator() const;
    // ",", ".", or the own decimal character (0 when it is empty).
    char16_t decimal() const;
    TokenFormat tokens() const { return {separator(), leading, trailing}; }
};

// "%s\%d\%d\%c\%c\%c\%c": the file name, the value form and first-line kind ids, the
// separator, the decimal character, the leading and the trailing delimiter (a blank
// where none is set), at most 399 characters.
std::u16string textFileSignature(const std::u16string &fileName, const TextFormat &format);

} // namespace tabra::wizards::importing
