// The SQL help: example statements a user takes into the performer's statement field
// (with OK or a double click) and edits there. The examples go in as they stand; they
// enter the history only when they are run.
#include "admin/sql_performer/resource_ids.h"
#include "core/dialogs/dialog.h"
#include "ostrel.h"
#include "tabra_admin.h"
#include "tabra_window.h"

namespace {

using tabra::admin::sql_performer::ids::kConnectionPerformerDialog;
using tabra::admin::sql_performer::ids::kSqlHelpDialog;

constexpr const char16_t *kExamples[] = {
    u"CREATE TABLE tablename (Name VARCHAR (255), BirthDate DATETIME, Count INTEGER, Price DOUBLE)",
    u"DROP TABLE tablename",
    u"CREATE VIEW viewname AS SELECT * FROM Table WHERE Name='Schmidt' ORDER BY Name",
    u"DROP VIEW viewname",
    u"ALTER TABLE tablename ADD colname varchar (255)",
    u"ALTER TABLE tablename ADD INDEX index (name)",
    u"ALTER TABLE tablename ADD UNIQUE index (name)",
    u"ALTER TABLE tablename ADD PRIMARY KEY (name)",
    u"ALTER TABLE tablename DROP name",
    u"ALTER TABLE tablename DROP PRIMARY KEY",
    u"ALTER TABLE tablename DROP INDEX name",
    u"ALTER TABLE tablename RENAME AS newname",
    u"INSERT INTO tablename (name,count) VALUES ('Schmidt',100)",
    u"UPDATE tablename SET name='Schmidt' WHERE name='Meier'",
    u"DELETE FROM tablename WHERE name='Meier'",
    u"SELECT * FROM tablename ORDER BY name",
    u"SELECT * FROM tablename WHERE name='schmidt' ORDER BY name",
    u"CREATE INDEX indexname ON tablename (colname)",
};
constexpr int32_t kExampleCapacity = 400;

// The help's parameter is the performer's window handle; the dialog base hands it over
// as a reference to this opaque type.
struct Performer;
HWND handleOf(Performer &performer) { return reinterpret_cast<HWND>(&performer); }

void fillExamples(HWND dialog, Performer &) {
    HWND list = GetDlgItem(dialog, kSqlHelpDialog.examples);
    for (const char16_t *example : kExamples) Ostrel_AddBoxEntry(list, example, 0, -1, 0);
}

// OK puts the selected example into the performer's statement field; with none
// selected the field keeps what the user typed.
bool takeExample(HWND dialog, Performer &performer) {
    char16_t example[kExampleCapacity];
    if (Ostrel_GetBoxEntry(GetDlgItem(dialog, kSqlHelpDialog.examples), -1, example, kExampleCapacity) >= 0)
        SetDlgItemTextW(handleOf(performer), kConnectionPerformerDialog.statement, example);
    return true;
}

constexpr tabra::dialogs::Dialog<Performer> kHelp{.initialise = fillExamples,
                                                  .accept = takeExample,
                                                  .doubleClick = {kSqlHelpDialog.examples, IDOK},
                                                  .endWithoutState = IDCANCEL};

} // namespace

extern "C" INT_PTR SqlHelpCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kHelp.answer(dialog, message, wParam, lParam);
}
