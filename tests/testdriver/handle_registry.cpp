#include "handle_registry.h"

#include <mutex>
#include <unordered_map>
#include <unordered_set>

namespace tabra::testdriver {
namespace {

struct ConnectionState {
    DataSourceSettings settings;
    bool connected = false;
    std::unordered_set<SQLHSTMT> statements;
};

struct Registry {
    std::mutex mutex;
    std::unordered_map<SQLHDBC, ConnectionState> connections;
    std::unordered_map<SQLHSTMT, SQLHDBC> statementOwners;
    StatementCounts statements;
    ConnectionCounts connectionCounts;
};

Registry &registry() {
    static Registry instance;
    return instance;
}

// Forgets the statements of a connection, counting them as freed.
void dropStatementsOf(Registry &r, ConnectionState &state) {
    for (SQLHSTMT statement : state.statements) {
        r.statementOwners.erase(statement);
        ++r.statements.freed;
        ++r.statements.freedByDisconnect;
    }
    state.statements.clear();
}

} // namespace

void connectionOpened(SQLHDBC connection, DataSourceSettings settings) {
    Registry &r = registry();
    std::lock_guard lock(r.mutex);
    ConnectionState &state = r.connections[connection];
    state.settings = std::move(settings);
    if (!state.connected) ++r.connectionCounts.opened;
    state.connected = true;
}

void connectionClosed(SQLHDBC connection) {
    Registry &r = registry();
    std::lock_guard lock(r.mutex);
    auto found = r.connections.find(connection);
    if (found == r.connections.end()) return;
    dropStatementsOf(r, found->second);
    if (found->second.connected) ++r.connectionCounts.closed;
    found->second.connected = false;
}

void connectionReleased(SQLHDBC connection) {
    Registry &r = registry();
    std::lock_guard lock(r.mutex);
    auto found = r.connections.find(connection);
    if (found == r.connections.end()) return;
    dropStatementsOf(r, found->second);
    if (found->second.connected) ++r.connectionCounts.closed;
    r.connections.erase(found);
}

DataSourceSettings connectionSettings(SQLHDBC connection) {
    Registry &r = registry();
    std::lock_guard lock(r.mutex);
    auto found = r.connections.find(connection);
    return found == r.connections.end() ? DataSourceSettings{} : found->second.settings;
}

void statementAllocated(SQLHDBC connection, SQLHSTMT statement) {
    Registry &r = registry();
    std::lock_guard lock(r.mutex);
    r.connections[connection].statements.insert(statement);
    r.statementOwners[statement] = connection;
    ++r.statements.allocated;
}

void statementFreed(SQLHSTMT statement) {
    Registry &r = registry();
    std::lock_guard lock(r.mutex);
    auto owner = r.statementOwners.find(statement);
    if (owner == r.statementOwners.end()) return; // already gone with its connection
    auto connection = r.connections.find(owner->second);
    if (connection != r.connections.end()) connection->second.statements.erase(statement);
    r.statementOwners.erase(owner);
    ++r.statements.freed;
}

DataSourceSettings statementSettings(SQLHSTMT statement) {
    Registry &r = registry();
    std::lock_guard lock(r.mutex);
    auto owner = r.statementOwners.find(statement);
    if (owner == r.statementOwners.end()) return {};
    auto connection = r.connections.find(owner->second);
    return connection == r.connections.end() ? DataSourceSettings{} : connection->second.settings;
}

StatementCounts statementCounts() {
    Registry &r = registry();
    std::lock_guard lock(r.mutex);
    return r.statements;
}

ConnectionCounts connectionCounts() {
    Registry &r = registry();
    std::lock_guard lock(r.mutex);
    return r.connectionCounts;
}

void resetCounts() {
    Registry &r = registry();
    std::lock_guard lock(r.mutex);
    r.statements = {};
    r.connectionCounts = {};
}

} // namespace tabra::testdriver
