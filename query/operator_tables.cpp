// The operator tables. Patterns use %s for the quoted column and the prepared value;
// the LIKE patterns also take the expansion characters (%c): opening quote,
// any-string wildcard, closing quote.
#include "query/operator_tables.h"

#include "query/resource_ids.h"

#include <array>

namespace tabra::query {

namespace {

using ids::kOperatorLabel;

constexpr std::array<OperatorEntry, 17> kSelectionOperators{{
    {101, u"BW", 0, kOperatorLabel.beginsWith, u"%s LIKE %c%s%c%c"},
    {108, u"CT", 0, kOperatorLabel.contains, u"%s LIKE %c%c%s%c%c"},
    {109, u"IN", kNoValue, kOperatorLabel.empty, u"%s IS NULL"},
    {110, u"NN", kNoValue, kOperatorLabel.notEmpty, u"%s IS NOT NULL"},
    {102, u"EQ", kLiteralValue, kOperatorLabel.equal, u"%s=%s"},
    {103, u"NE", kLiteralValue, kOperatorLabel.notEqual, u"NOT %s = %s"},
    {104, u"GT", kLiteralValue, kOperatorLabel.greater, u"%s > %s"},
    {105, u"GE", kLiteralValue, kOperatorLabel.greaterOrEqual, u"%s >= %s"},
    {106, u"LT", kLiteralValue, kOperatorLabel.less, u"%s < %s"},
    {107, u"LE", kLiteralValue, kOperatorLabel.lessOrEqual, u"%s <= %s"},
    {111, u"IL", kListValue, kOperatorLabel.oneOf, u"%s IN (%s)"},
    {201, u"EQF", kColumnValue, kOperatorLabel.equalColumn, u"%s=%s"},
    {202, u"NEF", kColumnValue, kOperatorLabel.notEqualColumn, u"NOT %s = %s"},
    {203, u"GTF", kColumnValue, kOperatorLabel.greaterColumn, u"%s > %s"},
    {204, u"GEF", kColumnValue, kOperatorLabel.greaterOrEqualColumn, u"%s >= %s"},
    {205, u"LTF", kColumnValue, kOperatorLabel.lessColumn, u"%s < %s"},
    {206, u"LEF", kColumnValue, kOperatorLabel.lessOrEqualColumn, u"%s <= %s"},
}};

constexpr std::array<OperatorEntry, 4> kAssignmentOperators{{
    {300, u"SNU", kNoValue, kOperatorLabel.setNull, u""},
    {301, u"SCO", kLiteralValue, kOperatorLabel.setValue, u""},
    {302, u"SFI", kColumnValue, kOperatorLabel.setColumn, u""},
    {303, u"SFO", 0, kOperatorLabel.setExpression, u""},
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
