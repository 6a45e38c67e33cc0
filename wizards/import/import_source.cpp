// Reading the chosen source's fields and opening its rows.
#include "wizards/import/import_source.h"

#include "wizards/import/sdi_file_source.h"
#include "wizards/import/selection_file_source.h"
#include "wizards/import/table_source.h"
#include "wizards/import/text_file_source.h"

#include <string>

namespace tabra::wizards::importing {
namespace {

constexpr auto &kKinds = ids::kSourceKindPage;

std::u16string kindText(int32_t kind) {
    std::string digits = std::to_string(kind);
    return std::u16string(digits.begin(), digits.end()) + u'|';
}

bool readFields(ImportWizardState &state) {
    if (state.sourceKind == kKinds.textFile) return readTextFileFields(state.textFile, state.textFormat, state.fields);
    if (state.sourceKind == kKinds.sdiFile) {
        state.usedConverter = state.converter;
        return readSdiFields(state.sdiFile, state.usedConverter, state.fields, state.sdiFileFields);
    }
    if (state.sourceKind == kKinds.selectionFile) return readSelectionFileFields(state.selectionFile, state.fields);
    return readTableFields(state.source.handle(), state.sourceTable, state.fields);
}

} // namespace

const std::u16string &ImportWizardState::sourceFile() const {
    static const std::u16string none;
    if (sourceKind == kKinds.textFile) return textFile;
    if (sourceKind == kKinds.sdiFile) return sdiFile;
    if (sourceKind == kKinds.selectionFile) return selectionFile;
    return none;
}

std::u16string sourceSignature(const ImportWizardState &state) {
    std::u16string signature = kindText(state.sourceKind);
    if (state.sourceKind == kKinds.textFile) return signature + textFileSignature(state.textFile, state.textFormat);
    if (state.sourceKind == kKinds.sdiFile) return signature + state.sdiFile + (state.converter.on ? u"|1" : u"|0");
    if (state.sourceKind == kKinds.selectionFile) return signature + state.selectionFile;
    return signature + state.source.dataSource() + u'|' + state.sourceTable;
}

bool readFieldsIfChanged(ImportWizardState &state) {
    std::u16string signature = sourceSignature(state);
    if (signature == state.fieldsReadFrom) return true;
    state.fieldsReadFrom.clear();
    if (!readFields(state)) {
        state.fields.clear();
        return false;
    }
    state.fieldsReadFrom = signature;
    return true;
}

std::unique_ptr<RowSource> openRows(ImportWizardState &state) {
    const std::size_t count = state.fields.count();
    if (state.sourceKind == kKinds.textFile) return openTextFileRows(state.textFile, state.textFormat, count);
    if (state.sourceKind == kKinds.sdiFile) return openSdiRows(state.sdiFile, state.sdiFileFields, count);
    if (state.sourceKind == kKinds.selectionFile) return openSelectionFileRows(state.selectionFile, count);
    return openTableRows(state.source.handle(), state.sourceTable, state.fields);
}

std::u16string proposedTableName(const ImportWizardState &state) {
    if (state.sourceKind == kKinds.table) return state.sourceTable;
    const std::u16string &file = state.sourceFile();
    std::u16string name = file.substr(file.find_last_of(u'/') + 1);
    if (auto dot = name.find_last_of(u'.'); dot != std::u16string::npos && dot > 0) name.resize(dot);
    return name;
}

} // namespace tabra::wizards::importing
