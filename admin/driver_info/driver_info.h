// The driver information dialog's entry point for the library's other tools
// (Tabra_DisplayDriverInformation is the exported shell over it).
#pragma once

#include "tabra_window.h"

#include <sql.h>

namespace tabra::admin::driver_info {

// Shows what the driver reports about the connection, modally over parent.
void showDriverInformation(SQLHDBC connection, HWND parent);

} // namespace tabra::admin::driver_info
