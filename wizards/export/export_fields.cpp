// The export's fields, loaded from the column catalog.
#include "wizards/export/export_fields.h"

#include "catalog/catalog_calls.h"
#include "catalog/field_list.h"
#include "core/odbc/bound_column.h"
#include "core/odbc/statement_runner.h"
#include "core/resource_ids.h"
#include "platform/text/bounded_text.h"
#include "tabra_connection.h"
#include "wizards/resource_ids.h"

#include <algorithm>
#include <new>

namespace tabra::wizards::exporting {
namespace {

// COLUMN_NAME is bound with a declared length of 99: a name of up to 98 characters.
constexpr int32_t kColumnNameDeclared = 99;
constexpr SQLUSMALLINT kColumnNameColumn = 4;
constexpr SQLUSMALLINT kDataTypeColumn = 5;

} // namespace

std::u16string initialHeading(std::u16string_view name) {
    std::u16string heading(name);
    std::replace_if(heading.begin(), heading.end(), [](char16_t c) { return c == u'.' || c == u' '; }, u'-');
    return heading;
}

ExportField *ExportFieldList::at(std::size_t index) {
    return index < slots_.size() && slots_[index] ? &*slots_[index] : nullptr;
}

const ExportField *ExportFieldList::at(std::size_t index) const {
    return index < slots_.size() && slots_[index] ? &*slots_[index] : nullptr;
}

std::vector<const ExportField *> ExportFieldList::selected() const {
    std::vector<const ExportField *> fields;
    for (const auto &slot : slots_)
        if (slot && slot->selected) fields.push_back(&*slot);
    return fields;
}

std::size_t ExportFieldList::selectedNamedCount() const {
    return static_cast<std::size_t>(std::count_if(slots_.begin(), slots_.end(), [](const auto &slot) {
        return slot && slot->selected && !slot->name.empty();
    }));
}

bool ExportFieldList::load(SQLHDBC connection, const std::u16string &table) {
    clear();
    int32_t columns = catalog::fieldCount(connection, table.c_str());
    if (columns <= 0) {
        ShowMessage(wizards::ids::kMessage.tableWithoutColumns, table.c_str(), nullptr, nullptr);
        return false;
    }
    odbc::StatementRunner statement(connection, nullptr);
    if (statement.allocate() != odbc::RunResult::Done ||
        statement.check(catalog::callColumns(statement.handle(), nullptr, table.c_str())) != odbc::RunResult::Done)
        return false;
    odbc::BoundText<kColumnNameDeclared> name;
    odbc::BoundShort type;
    if (statement.check(name.bind(statement.handle(), kColumnNameColumn)) != odbc::RunResult::Done ||
        statement.check(type.bind(statement.handle(), kDataTypeColumn)) != odbc::RunResult::Done)
        return false;
    try {
        slots_.resize(static_cast<std::size_t>(columns));
        // A catalog that ends early leaves the remaining slots empty.
        for (auto &slot : slots_) {
            if (!SQL_SUCCEEDED(statement.fetch())) break;
            std::u16string column(name.text, platform::boundedLength(name.text, kColumnNameDeclared - 1));
            slot = ExportField{column, initialHeading(column), type.value, true};
        }
    } catch (const std::bad_alloc &) {
        clear();
        ShowMessage(core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
        return false;
    }
    return true;
}

} // namespace tabra::wizards::exporting
