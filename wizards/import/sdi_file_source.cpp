// SDI files: their header's fields and their rows.
#include "wizards/import/sdi_file_source.h"

#include "catalog/number_text.h"
#include "core/resource_ids.h"
#include "platform/text/case_folding.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"
#include "wizards/import/delimited_tokens.h"
#include "wizards/import/import_file.h"
#include "wizards/import/value_files.h"

namespace tabra::wizards::importing {
namespace {

constexpr std::size_t kHeaderCapacity = 400;
constexpr std::size_t kLineCapacity = 30000;
constexpr int32_t kTextLength = 255;
constexpr int kSkippedHeaderLines = 3; // lines 2 to 4
constexpr std::u16string_view kFormat = u"FORMAT=";

bool isBlank(char16_t c) { return c == u' ' || c == u'\t'; }

// The type a FORMAT= token gives, or 0 when the token is none.
int32_t formatType(std::u16string_view token) {
    if (token.size() <= kFormat.size() + 1 || !platform::equalIgnoringCase(token.substr(0, kFormat.size()), kFormat))
        return 0;
    char16_t kind = platform::foldCase(token[7]);
    if (kind == u'D' || kind == u'T') return TdtDateTime;
    if (kind == u'N') return platform::foldCase(token[8]) == u'G' ? TdtInteger : TdtNumber;
    return TdtVarText;
}

// A field line: the name (behind its last ".") and the type of its last FORMAT= token.
ImportField fieldOf(std::u16string_view line) {
    std::u16string name;
    int32_t type = TdtVarText;
    for (std::size_t at = 0; at < line.size();) {
        while (at < line.size() && isBlank(line[at])) ++at;
        std::size_t end = at;
        while (end < line.size() && !isBlank(line[end])) ++end;
        if (end == at) break;
        std::u16string_view token = line.substr(at, end - at);
        if (name.empty()) {
            auto dot = token.rfind(u'.');
            name = token.substr(dot == std::u16string_view::npos ? 0 : dot + 1);
        } else if (int32_t given = formatType(token); given != 0) {
            type = given;
        }
        at = end;
    }
    return describedField(name, type, kTextLength);
}

// Opens the file and reads its header up to the field lines: N, or 0 after the message.
std::size_t openHeader(ImportFile &file, const std::u16string &fileName) {
    if (!file.open(fileName)) {
        ShowMessage(core::ids::kMessage.fileNotOpened, fileName.c_str(), nullptr, nullptr);
        return 0;
    }
    std::u16string line;
    bool valid = file.readLine(line, kHeaderCapacity) && platform::equalIgnoringCase(line, u"SDI");
    for (int i = 0; valid && i < kSkippedHeaderLines; ++i) valid = file.readLine(line, kLineCapacity);
    int32_t count = valid && file.readLine(line, kLineCapacity) ? catalog::readLong(line.c_str()) : 0;
    if (count >= 1) return static_cast<std::size_t>(count);
    ShowMessage(core::ids::kMessage.sdiFileInvalid, nullptr, nullptr, nullptr);
    return 0;
}

class SdiRows : public RowSource {
public:
    SdiRows(std::size_t fileFields, std::size_t fieldCount, const std::u16string &fileName)
        : fileFields_(fileFields), fieldCount_(fieldCount), files_(folderOf(fileName)) {}

    bool open(const std::u16string &fileName) {
        std::size_t count = openHeader(file_, fileName);
        if (count == 0) return false;
        // The field lines and the line after them.
        for (std::size_t i = 0; i <= count; ++i) {
            if (file_.readLine(line_, kLineCapacity)) continue;
            ShowMessage(core::ids::kMessage.sdiFileInvalid, nullptr, nullptr, nullptr);
            return false;
        }
        rows_ = file_.countNonEmptyLines();
        return true;
    }
    int32_t rowCount() const override { return rows_; }
    bool next(SourceValues &values) override {
        if (!file_.readLine(line_, kLineCapacity)) return false;
        values.assign(fieldCount_, std::nullopt);
        DelimitedTokens tokens(line_, {u'\t', 0, 0});
        for (std::size_t i = 0; i < fileFields_ && tokens.next(token_, kLineCapacity); ++i) values[i] = token_;
        return true;
    }
    ConversionRules rules() const override { return {u',', false, &files_}; }

private:
    std::size_t fileFields_, fieldCount_;
    ValueFiles files_;
    ImportFile file_;
    int32_t rows_ = 0;
    std::u16string line_, token_;
};

} // namespace

bool readSdiFields(const std::u16string &fileName, TelFaxSettings &converter, ImportFieldList &fields,
                   std::size_t &fileFields) {
    ImportFile file;
    fileFields = openHeader(file, fileName);
    if (fileFields == 0) return false;
    fields.clear();
    std::u16string line;
    for (std::size_t i = 0; i < fileFields; ++i) {
        if (!file.readLine(line, kLineCapacity)) {
            fields.clear();
            ShowMessage(core::ids::kMessage.sdiFileInvalid, nullptr, nullptr, nullptr);
            return false;
        }
        fields.add(fieldOf(line));
    }
    if (!converter.on) return true;
    for (const std::u16string &kind : converter.kinds()) fields.add(describedField(kind, TdtVarText, kTextLength));
    bool recognised = false;
    for (std::size_t i = 0; i < fileFields; ++i) {
        ImportField *field = fields.inSourceOrder(i);
        if (recognise(converter, field->sourceName).role == ConverterRole::None) continue;
        field->imported = false;
        recognised = true;
    }
    if (!recognised) {
        fields.truncate(fileFields);
        converter.on = false;
    }
    return true;
}

std::unique_ptr<RowSource> openSdiRows(const std::u16string &fileName, std::size_t fileFields,
                                       std::size_t fieldCount) {
    auto rows = std::make_unique<SdiRows>(fileFields, fieldCount, fileName);
    if (!rows->open(fileName)) return nullptr;
    return rows;
}

} // namespace tabra::wizards::importing
