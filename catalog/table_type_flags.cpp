// Table-type flags and the bookkeeping-table filter.
#include "catalog/table_type_flags.h"

#include "platform/text/case_folding.h"
#include "tabra_catalog.h"

namespace tabra::catalog {

namespace {

struct TypeName {
    int32_t bit;
    const char16_t *quoted;
};

// In the order the list is built, ended by a zero bit.
constexpr TypeName kTypeNames[] = {
    {TABRA_TABLE_TYPE_TABLE, u"'TABLE'"},         {TABRA_TABLE_TYPE_ALIAS, u"'ALIAS'"},
    {TABRA_TABLE_TYPE_VIEW, u"'VIEW'"},           {TABRA_TABLE_TYPE_SYNONYM, u"'SYNONYM'"},
    {TABRA_TABLE_TYPE_SYSTEM_TABLE, u"'SYSTEM TABLE'"}, {0, nullptr},
};

} // namespace

std::optional<std::u16string> tableTypeList(int32_t flags) {
    if (flags & TABRA_TABLE_TYPE_ALL) return std::nullopt;
    std::u16string list;
    for (const TypeName *type = kTypeNames; type->bit != 0; ++type) {
        if ((flags & type->bit) == 0) continue;
        if (!list.empty()) list += u',';
        list += type->quoted;
    }
    return list;
}

bool isBookkeepingTable(std::u16string_view name) {
    return name.substr(0, 4) == u"USys" || platform::equalIgnoringCase(name, u"OstrelSysTable");
}

} // namespace tabra::catalog
