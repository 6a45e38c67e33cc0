// unixODBC's installer library (libodbcinst) keeps a cache of the ini files it reads.
// The SQLite3 driver loads that library for each data source lookup and unloads it
// again, which orphans the cache: memory lost on every connection, reported by every
// leak checker. Held loaded from the moment the library is loaded, for the life of the
// process, the cache stays reachable, whoever connects.
#pragma once

namespace tabra::connection {

// Loads the installer library once and never unloads it (nothing when it is missing).
void holdInstallerLibrary();

} // namespace tabra::connection
