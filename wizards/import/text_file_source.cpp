// Delimited text files: their fields and their rows.
#include "wizards/import/text_file_source.h"

#include "core/resource_ids.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"
#include "wizards/import/import_file.h"
#include "wizards/import/value_files.h"

#include <string>

namespace tabra::wizards::importing {
namespace {

constexpr std::size_t kLineCapacity = 30000;
constexpr std::size_t kNameCapacity = 100;
constexpr int32_t kTextLength = 255;

bool openShown(ImportFile &file, const std::u16string &fileName) {
    if (file.open(fileName)) return true;
    ShowMessage(core::ids::kMessage.fileNotOpened, fileName.c_str(), nullptr, nullptr);
    return false;
}

std::u16string generatedName(std::size_t index) {
    std::string name = "F" + std::to_string(index);
    return std::u16string(name.begin(), name.end());
}

class TextFileRows : public RowSource {
public:
    TextFileRows(const TextFormat &format, std::size_t fieldCount, const std::u16string &fileName)
        : tokens_(format.tokens()), decimal_(format.decimal()), fieldCount_(fieldCount), files_(folderOf(fileName)) {}

    bool open(const std::u16string &fileName, bool skipFirstLine) {
        if (!openShown(file_, fileName)) return false;
        if (skipFirstLine) file_.readLine(line_, kLineCapacity);
        rows_ = file_.countNonEmptyLines();
        return true;
    }
    int32_t rowCount() const override { return rows_; }
    bool next(SourceValues &values) override {
        if (!file_.readLine(line_, kLineCapacity)) return false;
        values.assign(fieldCount_, std::nullopt);
        DelimitedTokens tokens(line_, tokens_);
        for (std::size_t i = 0; i < fieldCount_ && tokens.next(token_, kLineCapacity); ++i) values[i] = token_;
        return true;
    }
    ConversionRules rules() const override { return {decimal_, false, &files_}; }

private:
    TokenFormat tokens_;
    char16_t decimal_;
    std::size_t fieldCount_;
    ValueFiles files_;
    ImportFile file_;
    int32_t rows_ = 0;
    std::u16string line_, token_;
};

} // namespace

bool readTextFileFields(const std::u16string &fileName, const TextFormat &format, ImportFieldList &fields) {
    ImportFile file;
    if (!openShown(file, fileName)) return false;
    std::u16string line, token;
    file.readLine(line, kLineCapacity);
    fields.clear();
    DelimitedTokens tokens(line, format.tokens());
    for (std::size_t i = 0; tokens.next(token, kNameCapacity); ++i)
        fields.add(describedField(format.namesInFirstLine() ? token : generatedName(i), TdtVarText, kTextLength));
    return true;
}

std::unique_ptr<RowSource> openTextFileRows(const std::u16string &fileName, const TextFormat &format,
                                            std::size_t fieldCount) {
    auto rows = std::make_unique<TextFileRows>(format, fieldCount, fileName);
    if (!rows->open(fileName, format.namesInFirstLine())) return nullptr;
    return rows;
}

} // namespace tabra::wizards::importing
