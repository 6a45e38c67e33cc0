// Table lists straight into list and combo boxes, and the names of object types.
#include "ostrel.h"
#include "tabra_catalog.h"

#include <new>
#include <vector>

namespace {

constexpr int32_t kBoxListCapacity = 30000;

struct ObjectTypeName {
    int32_t code;
    const char16_t *name;
};

constexpr ObjectTypeName kObjectTypeNames[] = {
    {TABRA_OBJECT_TABLE, u"TABLE"}, {TABRA_OBJECT_VIEW, u"VIEW"}, {TABRA_OBJECT_FORM, u"FORM"},
    {TABRA_OBJECT_REPORT, u"REPORT"}, {0, nullptr},
};

} // namespace

extern "C" int32_t Tabra_FillTablesBox(SQLHDBC connection, int32_t typeFlags, HWND box) {
    return Tabra_FillTablesBoxExtended(connection, typeFlags, nullptr, 0, box);
}

extern "C" int32_t Tabra_FillTablesBoxExtended(SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                               uint8_t qualify, HWND box) {
    std::vector<char16_t> list;
    try {
        list.assign(kBoxListCapacity, u'\0');
    } catch (const std::bad_alloc &) {
        return -1;
    }
    if (Tabra_GetTablesExtended(connection, typeFlags, schema, qualify, list.data(), kBoxListCapacity, u"\t") < 0)
        return -1;
    uint32_t option = (qualify & TABRA_QUALIFY_SORTED) ? OSTREL_FILL_SORTED : 0u;
    Ostrel_FillBoxExtended(box, u'\t', list.data(), option);
    return 0;
}

extern "C" void Tabra_FillFormsBox(void) {}

extern "C" void Tabra_FillReportsBox(void) {}

extern "C" int32_t Tabra_ObjectTypeToName(int32_t objectType, char16_t *output, int32_t capacity) {
    const char16_t *name = u"";
    for (const ObjectTypeName *entry = kObjectTypeNames; entry->code != 0; ++entry)
        if (entry->code == objectType) name = entry->name;
    return OstrelCopyString(output, name, capacity);
}
