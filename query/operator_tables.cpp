// The operator tables. Patterns use %s for the quoted column and the prepared value;
// the LIKE patterns also take the expansion characters (%c): opening quote,
// any-string wildcard, closing quote.
#include "query/operator_tables.h"

#include <array>

namespace tabra::query {

namespace {

constexpr std::array<OperatorEntry, 17> kSelectionOperators{{
    {101, u"BW", 0, 1904, u"%s LIKE %c%s%c%c"},
    {108, u"CT", 0, 1905, u"%s LIKE %c%c%s%c%c"},
    {109, u"IN", kNoValue, 1913, u"%s IS NULL"},
    {110, u"NN", kNoValue, 1912, u"%s IS NOT NULL"},
    {102, u"EQ", kLiteralValue, 1906, u"%s=%s"},
    {103, u"NE", kLiteralValue, 1918, u"NOT %s = %s"},
    {104, u"GT", kLiteralValue, 1910, u"%s > %s"},
    {105, u"GE", kLiteralValue, 1908, u"%s >= %s"},
    {106, u"LT", kLiteralValue, 1916, u"%s < %s"},
    {107, u"LE", kLiteralValue, 1914, u"%s <= %s"},
    {111, u"IL", kListValue, 1923, u"%s IN (%s)"},
    {201, u"EQF", kColumnValue, 1907, u"%s=%s"},
    {202, u"NEF", kColumnValue, 1919, u"NOT %s = %s"},
    {203, u"GTF", kColumnValue, 1911, u"%s > %s"},
    {204, u"GEF", kColumnValue, 1909, u"%s >= %s"},
    {205, u"LTF", kColumnValue, 1917, u"%s < %s"},
    {206, u"LEF", kColumnValue, 1915, u"%s <= %s"},
}};

constexpr std::array<OperatorEntry, 4> kAssignmentOperators{{
    {300, u"SNU", kNoValue, 2167, u""},
    {301, u"SCO", kLiteralValue, 2168, u""},
    {302, u"SFI", kColumnValue, 2169, u""},
    {303, u"SFO", 0, 2170, u""},
}};

} // namespace

std::span<const OperatorEntry> operatorTable(int32_t kind) {
    if (kind == kSelectionKind) return kSelectionOperators;
    if (kind == kAssignmentKind) return kAssignmentOperators;
    return {};
}

const OperatorEntry *findOperatorByKey(int32_t kind, std::u16string_view key) {
    for (const OperatorEntry &entry : operatorTable(kind))
        if (entry.key == key) return &entry;
    return nullptr;
}

const OperatorEntry *findOperatorByCode(int32_t kind, int32_t code) {
    for (const OperatorEntry &entry : operatorTable(kind))
        if (entry.code == code) return &entry;
    return nullptr;
}

} // namespace tabra::query
