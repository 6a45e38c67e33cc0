// The create table wizard: the state its pages share, the pages, and the statements it
// runs after Finish.
//
// Pages: the way the table is made (10036), the source table (10038, only for a copy),
// the new table's name (10039) and a closing page (10040). The way and the source are
// remembered in the registry (HKEY_CURRENT_USER, the library's root, key "Create
// Table", values "Type" and "Copy") as soon as their pages are left, so they come back
// in the next run even when this one is cancelled.
#pragma once

#include "core/connection/capabilities.h"
#include "core/dialogs/dialog.h"
#include "ostrel_wizard.h"
#include "wizards/create_table/resource_ids.h"

#include <sql.h>

#include <cstdint>
#include <string>

namespace tabra::wizards::create_table {

// Characters of the new table's name and of the source's, the terminator included.
inline constexpr int32_t kNameCapacity = 50;

inline constexpr char16_t kRegistryKey[] = u"Create Table";
inline constexpr char16_t kModeValue[] = u"Type";
inline constexpr char16_t kSourceValue[] = u"Copy";

struct CreateTableWizard {
    HWIZZARD wizard = 0;
    SQLHDBC connection = SQL_NULL_HDBC;
    const connection::Capabilities *database = nullptr; // asked once, when the wizard starts
    int32_t mode = ids::kModePage.keyColumnOnly;        // a radio button id of the mode page
    std::u16string name;   // the new table, at most kNameCapacity - 1 characters
    std::u16string source; // the table whose structure is copied
};

extern const dialogs::Dialog<CreateTableWizard> kModePage;
extern const dialogs::Dialog<CreateTableWizard> kSourcePage;
extern const dialogs::Dialog<CreateTableWizard> kNamePage;

// Whether the database can make a table the mode's way (the mode page enables exactly
// these).
bool modeSupported(const connection::Capabilities &database, int32_t mode);

// Runs the mode's statements for the new table on the connection; the database is the
// connection's capability row. A mode the database cannot do shows message 1642.
// Every statement passes the statement hook and counts as done only with SQL_SUCCESS;
// failures are shown with the statement. True when the table was made as the mode
// asks.
bool createTable(SQLHDBC connection, const connection::Capabilities &database, int32_t mode,
                 const std::u16string &name, const std::u16string &source);

// The wizard and, once it was finished, the new table: 1 with its name in name, 2
// when cancelled or failed (Tabra_CreateTableWizzard is the exported shell over it).
int32_t runCreateTableWizard(SQLHDBC connection, std::u16string &name);

} // namespace tabra::wizards::create_table
