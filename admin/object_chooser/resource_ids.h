// Resource identifiers of the database object chooser. Its texts are in
// resources/<language>/tabraRes-objectchooser.rc; message 1700 (delete a view?) is
// the family's (admin/resource_ids.h). The pattern is described in
// core/resource_ids.h.
#pragma once

#include <cstdint>

namespace tabra::admin::object_chooser::ids {

// The main dialog: the connection's names above the pages, the schema group below,
// the dialog's own buttons beside them.
inline constexpr struct ChooserDialog {
    int32_t id = 104;
    int32_t pages = 1004;          // tab control
    int32_t dataSource = 1006;
    int32_t databaseName = 1007;   // SQL_DATABASE_NAME
    int32_t productName = 1008;    // SQL_DBMS_NAME
    int32_t schemaGroup = 2148;
    int32_t schema = 2014;
    int32_t chooseSchema = 1147;
    int32_t close = 8;             // ends the dialog as Cancel does
    int32_t help = 9;              // the host's own
    int32_t driverInformation = 1003;
    int32_t changeDataSource = 1044;
    int32_t sqlPerformer = 1045;
} kChooserDialog{};

// The command a page sends the main dialog to end it with the page's action.
inline constexpr int32_t kEndWithAction = 1146;

inline constexpr struct TablesPage {
    int32_t id = 105;
    int32_t list = 1005;
    int32_t systemTables = 2102;
    int32_t open = 1043;
    int32_t create = 1041;
    int32_t remove = 1042;
    int32_t copy = 1021;
    int32_t administer = 1020;
    int32_t import = 1019;
    int32_t exportRows = 1022;
    int32_t addRecords = 1023;
    int32_t deleteRecords = 1025;
    int32_t updateRecords = 1026;
} kTablesPage{};

inline constexpr struct ViewsPage {
    int32_t id = 106;
    int32_t list = 1010;
    int32_t editorViewsOnly = 1026;
    int32_t open = 1019;
    int32_t create = 1018;
    int32_t remove = 1043;
    int32_t copy = 1023;
    int32_t edit = 1031;
    int32_t exportRows = 1024;
    int32_t deleteRecords = 2129;
    int32_t updateRecords = 2130;
} kViewsPage{};

// Forms and reports: every button but open and the second choice is the host's own.
inline constexpr struct FormsPage {
    int32_t id = 10003;
    int32_t list = 1010;
    int32_t open = 1041;
    int32_t first = 1038;
    int32_t second = 1040;
    int32_t third = 1020;
    int32_t secondChoice = 1039;
} kFormsPage{};

inline constexpr struct ReportsPage {
    int32_t id = 10017;
    int32_t list = 1046;
    int32_t first = 1034;
    int32_t second = 1037;
    int32_t third = 1036;
    int32_t secondChoice = 1035;
    int32_t fourth = 1038;
    int32_t fifth = 1039;
} kReportsPage{};

inline constexpr struct Strings {
    int32_t tableDeleted = 428;   // notice
    int32_t tableCopied = 429;    // notice text kept for hosts; the chooser selects the copy instead
    int32_t copyingTable = 430;   // notice while the copy runs
    int32_t viewCopied = 431;     // notice text kept for hosts; a copied view shows viewCreated
    int32_t viewCreated = 432;    // notice
    int32_t viewDeleted = 433;    // notice, also after a failed drop
    int32_t viewChanged = 434;    // notice
    int32_t copyName = 1963;      // the proposed name of a copy: %s the original's name
    int32_t okCaption = 1970;
    int32_t cancelCaption = 1971;
} kString{};

inline constexpr struct Messages {
    int32_t noStoredStatement = 1612; // %1 the view
    int32_t copyUnsupported = 1643;
} kMessage{};

} // namespace tabra::admin::object_chooser::ids
