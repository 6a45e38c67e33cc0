// Resource identifiers of subsystem 1 (module, connection, diagnostics, data source
// persistence): its dialog templates with their controls, its strings and the
// library's messages. Their texts are in resources/<language>/tabraRes.rc.
//
// Every family of the library has one such header, and every id of the family is
// spelled there and nowhere else, in code or in tests. Each family's texts are in a
// script of its own in every language folder resources/<language>/:
//   core/resource_ids.h              subsystem 1                      tabraRes.rc
//   catalog/resource_ids.h           subsystem 3                      tabraRes-catalog.rc
//   query/resource_ids.h             subsystem 4                      tabraRes-query.rc
//   wizards/resource_ids.h           shared by the data wizards       tabraRes-wizards.rc
//   wizards/<wizard>/resource_ids.h  one wizard                       tabraRes-wizards-<wizard>.rc
//   admin/resource_ids.h             shared by the administration     tabraRes-admin.rc
//   admin/<tool>/resource_ids.h      one administration tool          tabraRes-admin-<tool>.rc
// Messages shown by more than one family, and those the message routine knows by
// code, live here. Win32-style ids shared by all dialogs (IDOK, IDCANCEL, IDHELP, ...)
// stay in tabra_window_constants.h.
//
// Form: constant structs whose members are all int32_t, in namespace
// tabra::<family>::ids. A dialog is one struct: its template in `id`, then its
// controls. Strings, messages and menus are one struct each (kString, kMessage,
// kMenu). The resource tests read the structs member by member: every template with
// its controls, every string, message and menu named here must exist in every shipped
// language (and a family header must be listed in tests/resources/shipped_resources_test.cpp).
#pragma once

#include <cstdint>

namespace tabra::core::ids {

// Choosing a data source and logging in.
inline constexpr struct DataSourceDialog {
    int32_t id = 103;
    int32_t user = 1002;
    int32_t password = 1003;
    int32_t dataSources = 1004;
} kDataSourceDialog{};

// The first diagnostic record of a handle, split into its bracketed parts, and the
// statement that failed.
inline constexpr struct ErrorDialog {
    int32_t id = 10025;
    int32_t vendor = 2140;
    int32_t component = 2141;
    int32_t dataSource = 1006;
    int32_t state = 2139;
    int32_t message = 2144;
    int32_t statement = 1014;
    int32_t furtherMessage = 1003; // shown only when there is one
} kErrorDialog{};

// Choosing a schema of the connected database.
inline constexpr struct SchemaDialog {
    int32_t id = 10056;
    int32_t schemas = 2010;
    int32_t schema = 2011;
} kSchemaDialog{};

// A data source with its login, and a schema.
inline constexpr struct DataSourceAndSchemaDialog {
    int32_t id = 10060;
    int32_t dataSource = 1014;
    int32_t user = 1015;
    int32_t password = 1016;
    int32_t schema = 2014;
    int32_t chooseDataSource = 1145;
    int32_t chooseSchema = 1147;
} kDataSourceAndSchemaDialog{};

inline constexpr struct Strings {
    int32_t caption = 2900;          // caption of every message box
    int32_t fileErrorCaption = 2903; // caption of file error messages (texts: OSTREL_FILE_ERROR_STRINGS)
} kString{};

inline constexpr struct Messages {
    int32_t outOfMemory = 1600;           // the ODBC environment or a working area could not be had
    int32_t sdiFileInvalid = 1601;        // an SDI file's header or field lines are wrong
    int32_t fileFormat = 1602;            // a file has not the expected format
    int32_t optionValueChanged = 1606;    // explanation of SQLSTATE 01S02
    int32_t noDataSource = 1607;          // no data source is chosen
    int32_t emptyDataSourceName = 1608;   // the data source dialog's name is empty
    int32_t fileNotRead = 1613;           // %1 the file
    int32_t fileNotWritten = 1614;        // %1 the file
    int32_t fileNotOpened = 1615;         // %1 the file
    int32_t unbalancedParenthesis = 1618; // %1 the rest of the statement
    int32_t noStatement = 1609;           // a blank statement was to be run or kept
    int32_t tableNameTaken = 1616;        // %1 the name: a table or view of that name exists
    int32_t notPossibleHere = 1642;       // the database cannot do what was chosen
    int32_t textNotCarried = 1660;        // %1 the character type: text would not reach the driver unchanged
} kMessage{};

} // namespace tabra::core::ids
