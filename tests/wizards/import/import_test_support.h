// What the import tests share: a backend with a scratch folder and a registry of its
// own, source files written byte for byte, the wizard played through the public script
// interface, and the imported rows read back. (Header only.)
#pragma once

#include "rowset/row_set_test_support.h"
#include "support/scoped_environment.h"
#include "tabra_wizards.h"
#include "wizards/import/resource_ids.h"

namespace tabra::test {

namespace ids = tabra::wizards::importing::ids;

// Script lines of the wizard's frame and pages.
inline std::string next(int32_t page) { return click(page, WIZZARD_ID_NEXT); }
inline std::string finish(int32_t page) { return click(page, WIZZARD_ID_FINISH); }
inline std::string set(int32_t page, int32_t control, std::u16string_view text) {
    return onDialog(page, "set", control, quoted(text));
}
inline std::string check(int32_t page, int32_t control) { return onDialog(page, "check", control); }

// The pages from the source kind to the file page of a file kind.
inline std::vector<std::string> fileSource(int32_t kind, int32_t page, const std::u16string &file) {
    return {check(ids::kSourceKindPage.id, kind), next(ids::kSourceKindPage.id),
            set(page, ids::kTextFilePage.fileName, file)};
}
// The pages after the mapping: the new table's name, then Finish.
inline std::vector<std::string> intoTable(std::u16string_view table) {
    return {next(ids::kMappingPage.id), set(ids::kDestinationPage.id, ids::kDestinationPage.tableName, table),
            next(ids::kDestinationPage.id), finish(ids::kClosingPage.id)};
}
// The field dialog on a row of the mapping page: the column's type by its label, and
// its length when given.
inline std::vector<std::string> columnType(int32_t row, std::string_view label, std::string_view length = {}) {
    std::vector<std::string> lines{
        onDialog(ids::kMappingPage.id, "doubleclick", ids::kMappingPage.fields, "#" + std::to_string(row)),
        onDialog(ids::kFieldDialog.id, "select", ids::kFieldDialog.type, "\"" + std::string(label) + "\"")};
    if (!length.empty()) lines.push_back(onDialog(ids::kFieldDialog.id, "set", ids::kFieldDialog.length,
                                                  "\"" + std::string(length) + "\""));
    lines.push_back(click(ids::kFieldDialog.id, IDOK));
    return lines;
}

inline std::vector<std::string> operator+(std::vector<std::string> first, const std::vector<std::string> &second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

class ImportTest : public ConnectedBackendTest {
protected:
    // Writes a file into the scratch folder; returns its name.
    std::u16string writeFile(const std::string &name, const std::string &bytes) const {
        std::ofstream(toUtf8(scratch_.file(name)), std::ios::binary | std::ios::trunc) << bytes;
        return scratch_.file(name);
    }
    // Plays the lines; the wizard's result. Every line must be used and none fail.
    int32_t play(const std::vector<std::string> &lines, ScriptedRun &run, std::u16string *table = nullptr) {
        for (const std::string &line : lines) run.queue(line);
        char16_t name[50] = {};
        int32_t result = Tabra_ImportTableWizzard(connection_->handle(), name, 50);
        if (table != nullptr) *table = name;
        return result;
    }
    int32_t play(const std::vector<std::string> &lines) {
        ScriptedRun run;
        int32_t result = play(lines, run);
        expectPlayed(run);
        return result;
    }
    // The rows of a query whose names are quoted with '"' (backquotes on MariaDB).
    std::vector<Row> rows(std::u16string sql) const {
        if (backend() == Backend::MariaDB) std::replace(sql.begin(), sql.end(), u'"', u'`');
        return queryRows(*connection_, sql);
    }

    ScopedRegistryRoot registry_;
    ScratchFolder scratch_;
};

// A row as the test writes it: nullopt is NULL.
inline Row row(std::initializer_list<std::optional<std::u16string>> values) { return Row(values); }

} // namespace tabra::test
