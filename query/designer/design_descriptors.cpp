// Writing and reading the descriptors of the designer's lists.
#include "query/designer/design_descriptors.h"

#include "platform/text/bounded_text.h"
#include "query/descriptor_text.h"
#include "query/designer/join_tables.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace tabra::query::designer {

namespace {

using platform::cutLength;
using platform::isBlank;

std::u16string line(std::initializer_list<std::u16string_view> fields) {
    std::u16string text;
    for (const std::u16string_view &field : fields) {
        if (&field != fields.begin()) text += kFieldSeparator;
        text += field;
    }
    text.resize(cutLength(text, kLineLength));
    return text;
}

template <typename Entry, typename LineOf> std::u16string joinedLines(const std::vector<Entry> &entries, LineOf lineOf) {
    std::u16string text;
    for (const Entry &entry : entries) {
        if (&entry != &entries.front()) text += kLineEnd;
        text += lineOf(entry);
    }
    return text;
}

// The fields of one line, blank ones empty; missing fields read as empty.
class LineFields {
public:
    explicit LineFields(std::u16string_view line) : fields_(splitKeepingEmpty(line, kFieldSeparator)) {}
    std::u16string operator[](size_t index) const {
        if (index >= fields_.size() || isBlank(fields_[index])) return {};
        return std::u16string(fields_[index]);
    }

private:
    std::vector<std::u16string_view> fields_;
};

// The entries of a descriptor, one per non-empty line (cut to kLineLength).
template <typename Entry, typename EntryOf>
void readLines(std::vector<Entry> &entries, std::u16string_view text, EntryOf entryOf) {
    entries.clear();
    if (isBlank(text)) return;
    entries.reserve(static_cast<size_t>(std::count(text.begin(), text.end(), kLineEnd)) + 1);
    for (std::u16string_view piece : splitNonEmpty(text, kLineEnd))
        entries.push_back(entryOf(LineFields(piece.substr(0, cutLength(piece, kLineLength)))));
}

} // namespace

bool isDescriptorKind(int32_t kind) { return kind >= TABRA_SELFACT_TABLES && kind <= TABRA_SELFACT_SELECTION; }

std::u16string descriptorText(const QueryDesign &design, int32_t kind) {
    switch (kind) {
    case TABRA_SELFACT_TABLES:
        return joinedLines(design.tables, [](const TableEntry &t) {
            return line({t.name, t.alias, joinTypeOf(t.joinType).key, comparisonOf(t.comparison).key, t.leftColumn,
                         t.rightColumn});
        });
    case TABRA_SELFACT_COLUMNS:
        return joinedLines(design.columns, [](const ColumnEntry &c) { return line({c.expression, c.alias}); });
    case TABRA_SELFACT_SORT_ORDER:
        return joinedLines(design.sortOrder, [](const SortEntry &s) { return line({s.column, s.direction}); });
    case TABRA_SELFACT_SELECTION:
        return design.selection;
    default:
        return {};
    }
}

void setDescriptor(QueryDesign &design, int32_t kind, std::u16string_view text) {
    switch (kind) {
    case TABRA_SELFACT_TABLES:
        readLines(design.tables, text, [](const LineFields &f) {
            return TableEntry{f[0], f[1], joinTypeCodeOf(f[2]), comparisonCodeOf(f[3]), f[4], f[5]};
        });
        break;
    case TABRA_SELFACT_COLUMNS:
        readLines(design.columns, text, [](const LineFields &f) { return ColumnEntry{f[0], f[1]}; });
        break;
    case TABRA_SELFACT_SORT_ORDER:
        readLines(design.sortOrder, text, [](const LineFields &f) { return SortEntry{f[0], f[1]}; });
        break;
    case TABRA_SELFACT_SELECTION:
        design.selection = isBlank(text) ? std::u16string() : std::u16string(text);
        break;
    default:
        break;
    }
}

} // namespace tabra::query::designer
