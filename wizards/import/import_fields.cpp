// The import's field descriptors and their list in source and display order.
#include "wizards/import/import_fields.h"

#include "tabra_catalog.h"

#include <algorithm>
#include <string>

namespace tabra::wizards::importing {
namespace {

constexpr int32_t kBlobColumnLength = 255;

bool isBlob(int32_t type) { return type == TdtBinary || type == TdtMemo; }

} // namespace

ImportField describedField(std::u16string sourceName, int32_t sourceType, int32_t sourceLength) {
    ImportField field;
    field.sourceName = std::move(sourceName);
    field.sourceType = sourceType;
    field.sourceLength = sourceLength;
    field.type = isBlob(sourceType) ? TdtVarText : sourceType;
    field.length = isBlob(sourceType) ? kBlobColumnLength : sourceLength;
    field.imported = !isBlob(sourceType);
    return field;
}

ImportField *ImportFieldList::inSourceOrder(std::size_t index) const {
    return index < bySource_.size() ? bySource_[index] : nullptr;
}

ImportField *ImportFieldList::inDisplayOrder(std::size_t index) const {
    return index < byDisplay_.size() ? byDisplay_[index] : nullptr;
}

ImportField &ImportFieldList::add(ImportField field) {
    field.name = uniqueName(field.sourceName);
    owned_.push_back(std::make_unique<ImportField>(std::move(field)));
    bySource_.push_back(owned_.back().get());
    byDisplay_.push_back(owned_.back().get());
    return *owned_.back();
}

void ImportFieldList::truncate(std::size_t from) {
    if (from >= bySource_.size()) return;
    std::vector<ImportField *> gone(bySource_.begin() + static_cast<std::ptrdiff_t>(from), bySource_.end());
    auto isGone = [&gone](const ImportField *field) { return std::find(gone.begin(), gone.end(), field) != gone.end(); };
    std::erase_if(byDisplay_, isGone);
    bySource_.resize(from);
    std::erase_if(owned_, [&isGone](const std::unique_ptr<ImportField> &field) { return isGone(field.get()); });
}

bool ImportFieldList::move(std::size_t displayIndex, int offset) {
    auto target = static_cast<std::ptrdiff_t>(displayIndex) + offset;
    if (displayIndex >= byDisplay_.size() || target < 0 || target >= static_cast<std::ptrdiff_t>(byDisplay_.size()))
        return false;
    std::swap(byDisplay_[displayIndex], byDisplay_[static_cast<std::size_t>(target)]);
    return true;
}

void ImportFieldList::clear() {
    byDisplay_.clear();
    bySource_.clear();
    owned_.clear();
}

void ImportFieldList::forgetValues() {
    for (ImportField *field : bySource_) field->value.reset();
}

bool ImportFieldList::nameTaken(const std::u16string &name) const {
    return std::any_of(bySource_.begin(), bySource_.end(), [&name](const ImportField *field) {
        return field->name == name;
    });
}

std::u16string ImportFieldList::uniqueName(const std::u16string &sourceName) const {
    std::u16string name = sourceName;
    std::replace(name.begin(), name.end(), u'.', u'_');
    for (int n = 1; nameTaken(name); ++n) {
        std::string number = std::to_string(n);
        name = sourceName + u'_' + std::u16string(number.begin(), number.end());
    }
    return name;
}

} // namespace tabra::wizards::importing
