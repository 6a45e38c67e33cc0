// Reading the test driver's counts from a test. The support loads the driver library
// itself, on the path the private odbcinst.ini registers, so the driver manager and
// the test share one instance; it stays loaded for the whole process, so the counts
// survive the driver manager unloading the driver after its last connection.
#pragma once

#include <cstdint>

namespace tabra::test {

struct StatementCounts {
    int64_t allocated = 0;
    int64_t freed = 0; // explicit frees and those a disconnect took with it
    int64_t freedByDisconnect = 0;
    int64_t open() const { return allocated - freed; }
};

struct ConnectionCounts {
    int64_t opened = 0;
    int64_t closed = 0;
    int64_t open() const { return opened - closed; }
};

StatementCounts testDriverStatementCounts();
ConnectionCounts testDriverConnectionCounts();
// Whether the last SQLConnect that reached the driver got a user and a password
// pointer (1) or null (0); -1 before any connect.
struct LastLogin {
    int32_t userGiven = -1;
    int32_t passwordGiven = -1;
};
LastLogin testDriverLastLogin();

// Zeroes the counts; call while no test-driver handle is open.
void resetTestDriverCounts();

} // namespace tabra::test
