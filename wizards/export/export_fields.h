// The columns of the export: one field per column of the chosen table, in the order
// the catalog gives them, each with the heading written in the file's header line and
// whether it is written at all. The list survives going back and forth between the
// wizard's pages and is loaded again only for another table.
#pragma once

#include <sql.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabra::wizards::exporting {

struct ExportField {
    std::u16string name;    // as the catalog gives it
    std::u16string heading; // written in the header line
    int16_t sqlType = 0;    // the catalog's DATA_TYPE
    bool selected = true;   // written to the file
};

// The heading a column starts with: its name with every "." and every blank turned
// into "-". A heading the user edits keeps what he types.
std::u16string initialHeading(std::u16string_view name);

class ExportFieldList {
public:
    // Slots, some of which may be empty (the catalog gave fewer columns than it counted).
    std::size_t count() const { return slots_.size(); }
    // The field of a slot; null for an index outside the list or an empty slot.
    ExportField *at(std::size_t index);
    const ExportField *at(std::size_t index) const;

    // The fields written to the file, in list order.
    std::vector<const ExportField *> selected() const;
    // Fields with a name that are written: the fields page wants at least one.
    std::size_t selectedNamedCount() const;

    void clear() { slots_.clear(); }
    // The columns of table from the column catalog: counted first (none: message 1617
    // with the table), then read into the slots. false after a failure, which has been
    // shown; the list is then empty.
    bool load(SQLHDBC connection, const std::u16string &table);

    // Adds a field at the end (a list built without the catalog).
    void add(ExportField field) { slots_.emplace_back(std::move(field)); }

private:
    std::vector<std::optional<ExportField>> slots_;
};

} // namespace tabra::wizards::exporting
