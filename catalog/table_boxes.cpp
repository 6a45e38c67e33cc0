// Table lists straight into list and combo boxes, and the names of object types.
#include "catalog/table_list.h"
#include "ostrel.h"
#include "tabra_catalog.h"

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
    if (connection == SQL_NULL_HDBC) return -1;
    const auto list = tabra::catalog::tableList(connection, typeFlags, schema, qualify, kBoxListCapacity, u"\t");
    if (!list) return -1;
    uint32_t option = (qualify & TABRA_QUALIFY_SORTED) ? OSTREL_FILL_SORTED : 0u;
    Ostrel_FillBoxExtended(box, u'\t', list->c_str(), option);
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
