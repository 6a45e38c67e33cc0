// The rules that keep a plain identifier bare or have it quoted.
#include "sqltext/bare_names.h"

#include "core/connection/connection_info.h"
#include "sqltext/reserved_words.h"

#include <sqlext.h>

#include <algorithm>

namespace tabra::sqltext {
namespace {

bool hasLetterBetween(std::u16string_view name, char16_t first, char16_t last) {
    return std::any_of(name.begin(), name.end(), [=](char16_t c) { return c >= first && c <= last; });
}

} // namespace

bool BareNameRules::staysBare(std::u16string_view plainName) {
    if (!identifierCase_) identifierCase_ = connection::identifierCase(connection_);
    if (*identifierCase_ == SQL_IC_LOWER && hasLetterBetween(plainName, u'A', u'Z')) return false;
    if (*identifierCase_ == SQL_IC_UPPER && hasLetterBetween(plainName, u'a', u'z')) return false;
    if (isOdbcReservedWord(plainName)) return false;
    // The driver's own list is asked last: some drivers take long over it.
    if (!keywords_) keywords_ = connection::keywords(connection_);
    return !isInWordList(plainName, *keywords_);
}

} // namespace tabra::sqltext
