// The join type and comparison tables.
#include "query/designer/join_tables.h"

#include "platform/text/case_folding.h"
#include "query/resource_ids.h"

#include <array>

namespace tabra::query::designer {

namespace {

constexpr std::array<JoinType, 4> kJoinTypes{{
    {1, u"", u"", ids::kDesignerLabel.plainTable},
    {2, u"LJ", u"LEFT JOIN", ids::kDesignerLabel.leftJoin},
    {3, u"IJ", u"INNER JOIN", ids::kDesignerLabel.innerJoin},
    {4, u"RJ", u"RIGHT JOIN", ids::kDesignerLabel.rightJoin},
}};

constexpr std::array<Comparison, 6> kComparisons{{
    {1, u"EQ", u"=", ids::kDesignerLabel.equal},
    {2, u"NE", u"<>", ids::kDesignerLabel.notEqual},
    {3, u"GT", u"<", ids::kDesignerLabel.lessThan},
    {4, u"GE", u"<=", ids::kDesignerLabel.lessOrEqual},
    {5, u"LT", u">", ids::kDesignerLabel.greaterThan},
    {6, u"LE", u">=", ids::kDesignerLabel.greaterOrEqual},
}};

template <typename Entry> const Entry &entryOf(std::span<const Entry> table, int32_t code) {
    for (const Entry &entry : table)
        if (entry.code == code) return entry;
    return table.front();
}

template <typename Entry> int32_t codeOf(std::span<const Entry> table, std::u16string_view key) {
    if (key.empty()) return table.front().code;
    for (const Entry &entry : table)
        if (platform::equalIgnoringCase(entry.key, key)) return entry.code;
    return table.front().code;
}

} // namespace

std::span<const JoinType> joinTypes() { return kJoinTypes; }
std::span<const Comparison> comparisons() { return kComparisons; }

const JoinType &joinTypeOf(int32_t code) { return entryOf(joinTypes(), code); }
const Comparison &comparisonOf(int32_t code) { return entryOf(comparisons(), code); }

int32_t joinTypeCodeOf(std::u16string_view key) { return codeOf(joinTypes(), key); }
int32_t comparisonCodeOf(std::u16string_view key) { return codeOf(comparisons(), key); }

} // namespace tabra::query::designer
