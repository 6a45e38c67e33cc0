// The test driver's side tables, keyed by the real driver's handles: the settings of
// each connection, the statements open on it, and the counts tests read back.
#pragma once

#include "data_source_settings.h"

#include <sql.h>

#include <cstdint>

namespace tabra::testdriver {

struct StatementCounts {
    int64_t allocated = 0;
    int64_t freed = 0;           // all frees, explicit and by disconnect
    int64_t freedByDisconnect = 0;
};

struct ConnectionCounts {
    int64_t opened = 0;
    int64_t closed = 0;
};

// Connections.
void connectionOpened(SQLHDBC connection, DataSourceSettings settings);
void connectionClosed(SQLHDBC connection); // statements still open count as freed
void connectionReleased(SQLHDBC connection); // the handle itself is gone
DataSourceSettings connectionSettings(SQLHDBC connection);

// Statements.
void statementAllocated(SQLHDBC connection, SQLHSTMT statement);
void statementFreed(SQLHSTMT statement);
DataSourceSettings statementSettings(SQLHSTMT statement);

StatementCounts statementCounts();
ConnectionCounts connectionCounts();
void resetCounts();

} // namespace tabra::testdriver
