// Resource identifiers of the driver information dialog. Its texts are in
// resources/<language>/tabraRes-admin-dialogs.rc, with the table name dialog's; the
// pattern is described in core/resource_ids.h.
#pragma once

#include <cstdint>

namespace tabra::admin::driver_info::ids {

// What the driver reports about the open connection; every field is read-only.
inline constexpr struct DriverInfoDialog {
    int32_t id = 10061;
    int32_t dbmsName = 1001;        // SQL_DBMS_NAME
    int32_t dbmsVersion = 1002;     // SQL_DBMS_VER
    int32_t odbcVersion = 1003;     // SQL_DRIVER_ODBC_VER
    int32_t driverVersion = 1004;   // SQL_DRIVER_VER
    int32_t dataSource = 1014;      // SQL_DATA_SOURCE_NAME
    int32_t quoteCharacter = 1006;  // SQL_IDENTIFIER_QUOTE_CHAR, formatted with kString.quoteCharacter
    int32_t databaseName = 1007;    // SQL_DATABASE_NAME
} kDriverInfoDialog{};

inline constexpr struct Strings {
    // A format with three arguments: %s the quote character, then %d and %X its code.
    int32_t quoteCharacter = 2811;
} kString{};

} // namespace tabra::admin::driver_info::ids
