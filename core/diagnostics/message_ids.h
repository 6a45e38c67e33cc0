// String identifiers of the library's own messages in the resource library.
#pragma once

#include <cstdint>

namespace tabra::message {

constexpr int32_t kCaption = 2900;              // caption of every message box
constexpr int32_t kNoEnvironment = 1600;        // the ODBC environment could not be created
constexpr int32_t kOptionValueChanged = 1606;   // explanation of SQLSTATE 01S02
constexpr int32_t kNoDataSource = 1607;         // no data source is chosen
constexpr int32_t kEmptyDataSourceName = 1608;  // the data source dialog's name is empty
constexpr int32_t kFileErrorCaption = 2903;     // caption of file error messages
constexpr int32_t kRowSetProgress = 2813;       // progress of a row-set file: %d of %d records

} // namespace tabra::message
