// Selection files: their field lines and their records.
#include "wizards/import/selection_file_source.h"

#include "catalog/number_text.h"
#include "core/resource_ids.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"
#include "wizards/import/import_file.h"
#include "wizards/import/value_files.h"

namespace tabra::wizards::importing {
namespace {

constexpr std::size_t kLineCapacity = 1000;
constexpr int32_t kTextLength = 255;

// A line's text: trailing control characters removed, blanks around it cut.
std::u16string valueOf(std::u16string line) {
    while (!line.empty() && line.back() < u' ') line.pop_back();
    std::size_t first = line.find_first_not_of(u' ');
    if (first == std::u16string::npos) return {};
    return line.substr(first, line.find_last_not_of(u' ') - first + 1);
}

struct Counts {
    int32_t fields = 0;
    int32_t records = 0;
};

// Opens the file and reads lines 1 and 2; the counts, or nullopt after the message.
std::optional<Counts> openCounts(ImportFile &file, const std::u16string &fileName) {
    if (!file.open(fileName)) {
        ShowMessage(core::ids::kMessage.fileNotOpened, fileName.c_str(), nullptr, nullptr);
        return std::nullopt;
    }
    std::u16string title, counts;
    if (file.readLine(title, kLineCapacity) && file.readLine(counts, kLineCapacity)) {
        auto comma = counts.find(u',');
        Counts read{catalog::readLong(counts.c_str()),
                    comma == std::u16string::npos ? -1 : catalog::readLong(counts.c_str() + comma + 1)};
        if (read.fields >= 1 && read.records >= 0) return read;
    }
    ShowMessage(core::ids::kMessage.fileFormat, nullptr, nullptr, nullptr);
    return std::nullopt;
}

class SelectionFileRows : public RowSource {
public:
    SelectionFileRows(std::size_t fieldCount, const std::u16string &fileName)
        : fieldCount_(fieldCount), files_(folderOf(fileName)) {}

    bool open(const std::u16string &fileName) {
        auto counts = openCounts(file_, fileName);
        if (!counts) return false;
        for (int32_t i = 0; i < counts->fields; ++i) {
            if (file_.readLine(line_, kLineCapacity)) continue;
            ShowMessage(core::ids::kMessage.fileFormat, nullptr, nullptr, nullptr);
            return false;
        }
        lines_ = static_cast<std::size_t>(counts->fields);
        records_ = counts->records;
        return true;
    }
    int32_t rowCount() const override { return records_; }
    bool next(SourceValues &values) override {
        if (read_ >= records_ || !file_.readLine(line_, kLineCapacity)) return false;
        ++read_;
        values.assign(fieldCount_, std::nullopt);
        for (std::size_t i = 0; i < lines_; ++i) {
            if (i > 0 && !file_.readLine(line_, kLineCapacity)) break;
            if (i < fieldCount_) values[i] = valueOf(line_);
        }
        return true;
    }
    ConversionRules rules() const override { return {u',', false, &files_}; }

private:
    std::size_t fieldCount_;
    ValueFiles files_;
    ImportFile file_;
    std::size_t lines_ = 0;
    int32_t records_ = 0, read_ = 0;
    std::u16string line_;
};

} // namespace

bool readSelectionFileFields(const std::u16string &fileName, ImportFieldList &fields) {
    ImportFile file;
    auto counts = openCounts(file, fileName);
    if (!counts) return false;
    fields.clear();
    std::u16string line;
    for (int32_t i = 0; i < counts->fields; ++i) {
        if (!file.readLine(line, kLineCapacity)) {
            fields.clear();
            ShowMessage(core::ids::kMessage.fileFormat, nullptr, nullptr, nullptr);
            return false;
        }
        fields.add(describedField(valueOf(line), TdtVarText, kTextLength));
    }
    return true;
}

std::unique_ptr<RowSource> openSelectionFileRows(const std::u16string &fileName, std::size_t fieldCount) {
    auto rows = std::make_unique<SelectionFileRows>(fieldCount, fileName);
    if (!rows->open(fileName)) return nullptr;
    return rows;
}

} // namespace tabra::wizards::importing
