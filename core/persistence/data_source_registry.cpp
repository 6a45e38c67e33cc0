// Data source and database object records in the registry. Wizards and dialogs keep
// their last choices below the module's registry root, one sub-key each.
#include "ostrel.h"
#include "tabra_connection.h"

namespace {

constexpr int32_t kNameLength = 100;
constexpr int32_t kUserLength = 50;
constexpr int32_t kPasswordLength = 50;
constexpr int32_t kObjectNameLength = 50;

} // namespace

extern "C" void Tabra_WriteDataSourceToRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                                const char16_t *subKey, const DataSourceInfo *record) {
    if (record == nullptr) return;
    DataSourceInfo fields = *record; // fixed-width fields: make sure each is terminated
    fields.DataSourceName[kNameLength - 1] = u'\0';
    fields.UserId[kUserLength - 1] = u'\0';
    fields.Password[kPasswordLength - 1] = u'\0';
    Ostrel_WriteStringToRegistry(root, keyPath, flags, subKey, u"DataSourceName", fields.DataSourceName);
    Ostrel_WriteStringToRegistry(root, keyPath, flags, subKey, u"UserId", fields.UserId);
    Ostrel_WriteStringToRegistry(root, keyPath, flags, subKey, u"Password", fields.Password);
}

namespace {

// Reads the three fields of a data source record with one string reader, each
// defaulting to the default record's field (empty without one).
template <typename ReadString>
void readDataSource(ReadString read, const DataSourceInfo *defaults, DataSourceInfo *record) {
    if (record == nullptr) return;
    DataSourceInfo fallback = defaults ? *defaults : DataSourceInfo{};
    fallback.DataSourceName[kNameLength - 1] = u'\0';
    fallback.UserId[kUserLength - 1] = u'\0';
    fallback.Password[kPasswordLength - 1] = u'\0';
    read(u"DataSourceName", fallback.DataSourceName, record->DataSourceName, kNameLength);
    read(u"UserId", fallback.UserId, record->UserId, kUserLength);
    read(u"Password", fallback.Password, record->Password, kPasswordLength);
}

} // namespace

extern "C" void Tabra_ReadDataSourceFromRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                                 const char16_t *subKey, const DataSourceInfo *defaults,
                                                 DataSourceInfo *record) {
    readDataSource(
        [&](const char16_t *name, const char16_t *fallback, char16_t *out, int32_t width) {
            Ostrel_ReadStringFromRegistry(root, keyPath, flags, subKey, name, fallback, out, width, width - 1);
        },
        defaults, record);
}

extern "C" void Tabra_ReadDataSourceFromHKCUorHKLM(const char16_t *keyPath, const char16_t *subKey,
                                                   const DataSourceInfo *defaults, DataSourceInfo *record) {
    readDataSource(
        [&](const char16_t *name, const char16_t *fallback, char16_t *out, int32_t width) {
            Ostrel_ReadStringFromHKCUorHKLM(keyPath, subKey, name, fallback, out, width, width - 1);
        },
        defaults, record);
}

extern "C" void Tabra_WriteDbObjectToRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                              const char16_t *subKey, const DbObjectInfo *object) {
    if (object == nullptr) return;
    DbObjectInfo fields = *object;
    fields.DbObjectName[kObjectNameLength - 1] = u'\0';
    Ostrel_WriteStringToRegistry(root, keyPath, flags, subKey, u"DbObjectName", fields.DbObjectName);
    Ostrel_WriteLongToRegistry(root, keyPath, flags, subKey, u"DbObjectType", fields.DbObjectType);
}

extern "C" void Tabra_ReadDbObjectFromRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                               const char16_t *subKey, const DbObjectInfo *defaults,
                                               DbObjectInfo *object) {
    if (object == nullptr) return;
    DbObjectInfo fallback = defaults ? *defaults : DbObjectInfo{};
    Ostrel_ReadStringFromRegistry(root, keyPath, flags, subKey, u"DbObjectName", fallback.DbObjectName,
                                  object->DbObjectName, kObjectNameLength, kObjectNameLength - 1);
    object->DbObjectType =
        Ostrel_ReadLongFromRegistry(root, keyPath, flags, subKey, u"DbObjectType", fallback.DbObjectType);
}
