// A source of rows for the import: a text, SDI or selection file, or a table of
// another data source. Each kind reads its field list into the import's fields
// (text_file_source.h, sdi_file_source.h, selection_file_source.h, table_source.h) and
// then hands the rows out one by one, each value at the position of its field in the
// source order.
#pragma once

#include "wizards/import/value_conversion.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tabra::wizards::importing {

// One row: the value of each field by source position; nullopt where the row has none.
using SourceValues = std::vector<std::optional<std::u16string>>;

class RowSource {
public:
    virtual ~RowSource() = default;
    // Starts reading once the table has been created (a table source runs its SELECT
    // here); false when that failed (shown).
    virtual bool start() { return true; }
    // The number of rows the import reads at most: the progress indicator's range.
    virtual int32_t rowCount() const = 0;
    // The next row into values (sized to the field count); false when there is none.
    virtual bool next(SourceValues &values) = 0;
    // How this source's values are converted.
    virtual ConversionRules rules() const = 0;
};

} // namespace tabra::wizards::importing
