// The mapping descriptors: one per destination column in the catalog's order, each
// taking the source column of the same name (compared without regard to case, as
// databases fold names differently) when the source table has one whose type and size
// could be read and the destination column may be written; else NULL.
#include "wizards/add_records/add_records_state.h"

#include "catalog/column_facts.h"
#include "catalog/table_columns.h"
#include "platform/text/bounded_text.h"
#include "tabra_catalog.h"
#include "wizards/resource_ids.h"

#include <algorithm>

namespace tabra::wizards::add_records {
namespace {

char16_t folded(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c; }

bool sameName(const std::u16string &a, const std::u16string &b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char16_t x, char16_t y) { return folded(x) == folded(y); });
}

std::vector<SourceColumn> readSourceColumns(const AddRecordsWizardState &state) {
    std::vector<SourceColumn> columns;
    if (auto listed = catalog::tableColumns(state.source.handle(), state.sourceTable.c_str()))
        for (const catalog::CatalogColumn &column : *listed)
            columns.push_back({column.name, Tabra_SqlDataTypeToTabraDataType(column.sqlType), column.size});
    return columns;
}

} // namespace

std::u16string AddRecordsWizardState::destinationTable() const {
    return std::u16string(platform::viewOfBuffer(object.DbObjectName, std::size(object.DbObjectName)));
}

bool buildFields(AddRecordsWizardState &state) {
    state.fields.clear();
    const std::u16string table = state.destinationTable();
    auto columns = catalog::tableColumns(state.connection, table.c_str());
    if (!columns) return false;
    if (columns->empty()) {
        ShowMessage(wizards::ids::kMessage.tableWithoutColumns, table.c_str(), nullptr, nullptr);
        return false;
    }
    state.sourceColumns = readSourceColumns(state);
    for (const catalog::CatalogColumn &column : *columns) {
        FieldDescriptor field;
        field.name = column.name;
        field.type = Tabra_SqlDataTypeToTabraDataType(column.sqlType);
        field.length = column.size;
        auto properties = catalog::columnProperties(state.connection, table.c_str(), column.name.c_str());
        field.skip = !properties || properties->autoIncrement != 0 || properties->updatable == 0;
        auto source = std::find_if(state.sourceColumns.begin(), state.sourceColumns.end(),
                                   [&](const SourceColumn &candidate) { return sameName(candidate.name, field.name); });
        if (!field.skip && source != state.sourceColumns.end() && source->type != 0 && source->length >= 0) {
            field.kind = ids::kValueKind.source;
            field.sourceName = source->name;
            field.sourceType = source->type;
            field.sourceLength = source->length;
        }
        state.fields.push_back(std::move(field));
    }
    return true;
}

} // namespace tabra::wizards::add_records
