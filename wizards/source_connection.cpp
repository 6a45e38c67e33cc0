// A wizard's own connection to a second data source.
#include "wizards/source_connection.h"

#include "platform/text/bounded_text.h"

namespace tabra::wizards {

bool SourceConnection::open(const DataSourceInfo &record) {
    close();
    if (Tabra_ConnectDataSource(&record, &environment_, &connection_) != 0) {
        close();
        return false;
    }
    dataSource_ = platform::viewOfBuffer(record.DataSourceName, std::size(record.DataSourceName));
    return true;
}

void SourceConnection::close() {
    if (connection_ != SQL_NULL_HDBC || environment_ != SQL_NULL_HENV)
        Tabra_DisconnectDataSource(&environment_, &connection_);
    environment_ = SQL_NULL_HENV;
    connection_ = SQL_NULL_HDBC;
    dataSource_.clear();
}

} // namespace tabra::wizards
