// The designer's catalog.
#include "query/designer/designer_catalog.h"

#include "catalog/field_list.h"
#include "catalog/table_list.h"
#include "platform/text/bounded_text.h"
#include "query/descriptor_text.h"
#include "sqltext/name_parts.h"
#include "sqltext/sql92_names.h"
#include "tabra_catalog.h"

#include <string_view>

namespace tabra::query::designer {

namespace {

constexpr int32_t kListCapacity = 30000;
constexpr int32_t kNameCapacity = 300;

int32_t typeOf(std::u16string_view digits) {
    int32_t value = 0;
    for (char16_t c : digits) {
        if (c < u'0' || c > u'9') break;
        value = value * 10 + (c - u'0');
    }
    return digits.starts_with(u'-') ? -typeOf(digits.substr(1)) : value;
}

} // namespace

const std::vector<std::u16string> &DesignerCatalog::tables(const std::u16string &schema) {
    if (tables_) return *tables_;
    tables_.emplace();
    bool qualified = !platform::isBlank(schema);
    auto list = catalog::tableList(connection_, TABRA_TABLE_TYPE_TABLE | TABRA_TABLE_TYPE_VIEW,
                                   qualified ? schema.c_str() : nullptr, qualified ? TABRA_QUALIFY_SCHEMA : 0,
                                   kListCapacity, u"\t");
    if (!list) return *tables_;
    for (std::u16string_view name : splitNonEmpty(*list, kFieldSeparator))
        tables_->push_back(sqltext::prepareNameForSql92(connection_, std::u16string(name).c_str(), kNameCapacity));
    return *tables_;
}

std::vector<CatalogColumn> DesignerCatalog::columns(const std::u16string &table) {
    if (auto known = columns_.find(table); known != columns_.end()) return known->second;
    std::vector<CatalogColumn> &found = columns_[table];
    std::u16string bare = sqltext::stripDelimiters(connection_, table);
    auto list = catalog::fieldList(connection_, bare.c_str(), TABRA_FIELDS_WITH_TYPE | TABRA_FIELDS_QUOTE, u"\t",
                                   kListCapacity);
    if (!list) return found;
    auto fields = splitNonEmpty(*list, kFieldSeparator);
    for (size_t i = 0; i + 1 < fields.size(); i += 2) found.push_back({std::u16string(fields[i]), typeOf(fields[i + 1])});
    return found;
}

void DesignerCatalog::forget() {
    tables_.reset();
    columns_.clear();
}

} // namespace tabra::query::designer
