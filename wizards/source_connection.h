// A wizard's own connection to a second data source.
#pragma once

#include "tabra_connection.h"

#include <string>

namespace tabra::wizards {

// The connection of a wizard to its source data source (the import's table source, the
// add records wizard's source): open while the wizard runs, closed when the data source
// changes and when the wizard ends, whatever way it ends.
class SourceConnection {
public:
    SourceConnection() = default;
    ~SourceConnection() { close(); }
    SourceConnection(const SourceConnection &) = delete;
    SourceConnection &operator=(const SourceConnection &) = delete;

    // Connects to the record's data source (failures are shown); true when open.
    bool open(const DataSourceInfo &record);
    void close();
    SQLHDBC handle() const { return connection_; }
    // The data source it is open on (empty when closed).
    const std::u16string &dataSource() const { return dataSource_; }

private:
    SQLHENV environment_ = SQL_NULL_HENV;
    SQLHDBC connection_ = SQL_NULL_HDBC;
    std::u16string dataSource_;
};

} // namespace tabra::wizards
