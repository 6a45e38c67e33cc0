// Turning a source value into a field's current value, by the field's source type and
// then its column type. An empty source text leaves no value (inserted as NULL).
//
//   text (1, 9, 10) -> text          the text, or the content of the file it names
//   text -> integer, number (2, 3)   files: digits, "+" and "-" kept, the decimal
//                                    character made ".", everything else dropped; a
//                                    table source: the integer or number cleaning
//   text -> date and time (4)        read in the user's date format, written as an
//                                    ODBC timestamp "yyyy-mm-dd hh:mm:ss"
//   integer, number -> text          the text
//   integer, number -> 2, 3          the integer or number cleaning
//   date -> text                     "%D1.%M1.%Y2" (5.3.24)
//   date -> date                     the ODBC timestamp
//   any other pair                   no value
//
// Numbers are written into the statement without quotes, so a cleaned text that is no
// number literal (a sign in its middle, two points, no digit) fails instead of
// reaching the statement; so does a date that cannot be read. A failed value stays
// without a value and ends the import after its row.
#pragma once

#include "wizards/import/import_fields.h"
#include "wizards/import/value_files.h"

#include <optional>
#include <string>
#include <string_view>

namespace tabra::wizards::importing {

struct ConversionRules {
    char16_t decimal = u',';  // the decimal character of text values going into numbers
    bool tableSource = false; // text values into numbers take the integer / number cleaning
    const ValueFiles *files = nullptr;
};

// Sets field.value from text; false when the value could not be converted.
bool setValue(ImportField &field, std::u16string_view text, const ConversionRules &rules);

// A value of a table column converted from one type code to another as setValue does
// for a table source; false when it could not be converted (value then has none).
bool convertTableValue(int32_t sourceType, int32_t type, std::u16string_view text,
                       std::optional<std::u16string> &value);

// The file kinds' cleaning of a text into a number; nullopt when the result is no
// number (an empty result of a blank text is the empty text).
std::optional<std::u16string> fileNumber(std::u16string_view text, char16_t decimal);
// The library's cleaning for table sources: blanks around the text removed, a number
// literal (sign, digits, one point or a single comma as the decimal point, an
// exponent) kept as it is; an integer keeps its digits, a number with a fraction is
// rounded to the nearest integer. nullopt for anything else.
std::optional<std::u16string> cleanedNumber(std::u16string_view text);
std::optional<std::u16string> cleanedInteger(std::u16string_view text);

} // namespace tabra::wizards::importing
