// The join type and comparison tables.
#include "query/designer/join_tables.h"

#include "platform/text/case_folding.h"

#include <array>

namespace tabra::query::designer {

namespace {

constexpr std::array<JoinType, 4> kJoinTypes{{
    {1, u"", u"", 3600},
    {2, u"LJ", u"LEFT JOIN", 3601},
    {3, u"IJ", u"INNER JOIN", 3602},
    {4, u"RJ", u"RIGHT JOIN", 3603},
}};

constexpr std::array<Comparison, 6> kComparisons{{
    {1, u"EQ", u"=", 3610},
    {2, u"NE", u"<>", 3611},
    {3, u"GT", u"<", 3612},
    {4, u"GE", u"<=", 3613},
    {5, u"LT", u">", 3614},
    {6, u"LE", u">=", 3615},
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
