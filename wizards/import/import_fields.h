// The import's fields: one descriptor per field of the source (and per kind of the
// telephone/fax converter), and the list that holds them in two orders. The source
// order is the order of the values in a source row; the display order is the order of
// the table's columns, which the user may change on the mapping page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tabra::wizards::importing {

struct ImportField {
    std::u16string sourceName;
    int32_t sourceType = 0; // TabraDataType code
    int32_t sourceLength = 0;
    std::u16string name; // the column in the table
    int32_t type = 0;    // TabraDataType code of the column
    int32_t length = 0;
    bool autoIncrement = false;
    bool imported = true;
    bool valueFiles = false;  // each value names a file whose whole content is imported
    bool silentFiles = true;  // a missing value file gives no message
    std::optional<std::u16string> value; // the current row's value; none is NULL
    int32_t reserved = -3;

    // Goes into the INSERT (and, for a table source, into the SELECT).
    bool inserted() const { return imported && !autoIncrement; }
};

// A new field as the source describes it: the column takes the source's type and
// length, except that binary (7) and memo (9) fields become variable text of 255
// characters and are not imported.
ImportField describedField(std::u16string sourceName, int32_t sourceType, int32_t sourceLength);

class ImportFieldList {
public:
    std::size_t count() const { return bySource_.size(); }
    // The field at a position of the source order / display order; null outside.
    ImportField *inSourceOrder(std::size_t index) const;
    ImportField *inDisplayOrder(std::size_t index) const;
    // The fields in display order (the columns of the table).
    const std::vector<ImportField *> &displayed() const { return byDisplay_; }

    // Appends a field at the end of both orders; its column name is made unique first.
    ImportField &add(ImportField field);
    // Removes the fields from position `from` of the source order on (from both orders).
    void truncate(std::size_t from);
    // Swaps the field at a display position with its neighbour (offset -1 or +1); false
    // when there is none.
    bool move(std::size_t displayIndex, int offset);
    void clear();
    // Forgets every current value.
    void forgetValues();

    // The unique column name for a source name: the name with each "." made "_"; when
    // another field has that column already, "<source name>_1", "_2", ... (the source
    // name as it is, its dots kept) until one is free.
    std::u16string uniqueName(const std::u16string &sourceName) const;

private:
    bool nameTaken(const std::u16string &name) const;

    std::vector<std::unique_ptr<ImportField>> owned_;
    std::vector<ImportField *> bySource_;
    std::vector<ImportField *> byDisplay_;
};

} // namespace tabra::wizards::importing
