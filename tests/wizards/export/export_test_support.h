// What the export tests share: the people table on every backend (NULLs, separators,
// delimiters and line feeds inside values, umlauts, and characters outside the Basic
// Multilingual Plane where the driver carries them), the writer run on a state made
// as the wizard makes it, and the lines of the scripted driver. (Header only.)
#pragma once

#include "rowset/row_set_test_support.h"
#include "wizards/export/export_file.h"
#include "wizards/export/resource_ids.h"

#include <clocale>

namespace tabra::test {

namespace exporting = tabra::wizards::exporting;
namespace exportIds = tabra::wizards::exporting::ids;

class ExportBackendTest : public ConnectedBackendTest {
protected:
    void prepare(const OdbcConnection &connection) override {
        std::u16string dbl = backend() == Backend::PostgreSQL ? u"DOUBLE PRECISION" : u"DOUBLE";
        executeAll(connection,
                   {u"CREATE TABLE people (id INTEGER PRIMARY KEY, name VARCHAR(60), note VARCHAR(200), amount " +
                        dbl + u", born DATE)",
                    u"INSERT INTO people VALUES (1, 'M\u00fcller; \"Ann\"', 'line one\nline two\twith tab', 12.5, "
                    u"'1999-12-31')",
                    u"INSERT INTO people VALUES (2, NULL, 'ends with \"', NULL, NULL)",
                    u"INSERT INTO people VALUES (3, '" + wideText() + u"', '', -3.25, '2024-02-29')"});
    }
    std::u16string wideText() const { return test::wideText(backend()); }

    // A state as the wizard leaves it for the people table: every field loaded, the
    // count of all records, the file in the scratch folder.
    exporting::ExportWizardState peopleState() const {
        exporting::ExportWizardState state;
        state.connection = connection_->handle();
        std::u16string(u"people").copy(state.object.DbObjectName, 6);
        state.fields.load(state.connection, u"people");
        state.recordCount = 3;
        state.fileName = scratch_.file("people.txt");
        return state;
    }
    std::string fileText(const exporting::ExportWizardState &state) const { return fileBytes(state.fileName); }

    ScratchFolder scratch_;
};

// Sets the process's LC_TIME for one scope: the user's date format follows it.
class ScopedTimeLocale {
public:
    explicit ScopedTimeLocale(const char *name) : previous_(std::setlocale(LC_TIME, nullptr)) {
        std::setlocale(LC_TIME, name);
    }
    ~ScopedTimeLocale() { std::setlocale(LC_TIME, previous_.c_str()); }
    ScopedTimeLocale(const ScopedTimeLocale &) = delete;
    ScopedTimeLocale &operator=(const ScopedTimeLocale &) = delete;

private:
    std::string previous_;
};

// Script lines of the wizard's pages.
inline std::string next(int32_t page) { return click(page, WIZZARD_ID_NEXT); }
inline std::string back(int32_t page) { return click(page, WIZZARD_ID_BACK); }
inline std::string finish(int32_t page) { return click(page, WIZZARD_ID_FINISH); }
inline std::string chooseMenu(int32_t command) {
    return "menu " + std::to_string(exportIds::kFieldMenu.id) + ": choose " + std::to_string(command);
}

} // namespace tabra::test
