// A data source record as a host program fills it (fields cut to their capacities).
// (Header only.)
#pragma once

#include "tabra_connection.h"

#include <string_view>

namespace tabra::test {

inline DataSourceInfo dataSourceRecord(std::u16string_view name, std::u16string_view user = u"",
                                       std::u16string_view password = u"") {
    DataSourceInfo record{};
    name.copy(record.DataSourceName, 99);
    user.copy(record.UserId, 49);
    password.copy(record.Password, 49);
    return record;
}

} // namespace tabra::test
