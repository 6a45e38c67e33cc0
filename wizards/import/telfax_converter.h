// The telephone/fax converter of SDI imports. Address files of the sister product keep
// a person's numbers as pairs of fields: a kind field ("Ko_Name1" = "Telefax") and a
// number field with the same suffix ("Ko_Nummer1" = "0711 123"). With the converter
// switched on, the table gets one column per kind of its keyword list instead of the
// pairs, and each row's numbers go into the columns of their kinds.
//
// Its settings are the sister product's, under HKEY_CURRENT_USER
// "Software\Ostrel Software\Lumo", sub-key "Settings"; the German defaults are part of
// the product:
//   "TelFaxConverter"    number, non-zero switches it on                 default 0
//   "FieldnamePrefix"    prefix of the kind fields (50 characters)       "Ko_Name"
//   "ContentsPrefix"     prefix of the number fields (50 characters)     "Ko_Nummer"
//   "FieldnameKeywords"  comma-separated kinds (100 characters)          "Telefon,Handy,Telefax,eMail,Telefon_Privat"
#pragma once

#include "wizards/import/import_fields.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tabra::wizards::importing {

struct TelFaxSettings {
    bool on = false;
    std::u16string kindPrefix = u"Ko_Name";
    std::u16string numberPrefix = u"Ko_Nummer";
    std::u16string keywords = u"Telefon,Handy,Telefax,eMail,Telefon_Privat";

    static TelFaxSettings fromRegistry();
    // The kinds in list order; empty entries (",,", a trailing ",") are left out.
    std::vector<std::u16string> kinds() const;
};

// What a source field is to the converter: a kind or number field with the digits that
// pair it, or an ordinary field. A converter field's name is one of the prefixes
// (ignoring case) followed by exactly one or two decimal digits and nothing else.
enum class ConverterRole { None, Kind, Number };
struct ConverterField {
    ConverterRole role = ConverterRole::None;
    std::u16string suffix;
};
ConverterField recognise(const TelFaxSettings &settings, std::u16string_view name);

class TelFaxConverter {
public:
    // The converter over a field list whose first `fileFields` fields (source order)
    // are the file's and whose following fields are the kind columns, in list order.
    TelFaxConverter(const TelFaxSettings &settings, const ImportFieldList &fields, std::size_t fileFields);

    // Sets the kind columns of the current row: for each kind field (in source order)
    // whose value is a kind of the list (ignoring case), the column of that kind gets
    // the value of the number field with the same suffix through set (a later pair of
    // the same kind wins). Answers false when set did.
    bool apply(const ImportFieldList &fields,
               const std::function<bool(ImportField &, const std::u16string &)> &set) const;

private:
    struct Pair {
        std::size_t kindField;
        std::size_t numberField;
    };
    std::vector<Pair> pairs_;
    std::vector<std::u16string> kinds_;
    std::size_t firstKindColumn_;
};

} // namespace tabra::wizards::importing
