// Reading and changing a registry store file safely.
//
// Readers take no lock: a store is only ever replaced whole, by rename, so a reader
// sees the old or the new file, never a torn one. A change takes an exclusive flock on
// "<store>.lock" beside the store, reads the current file, applies the change, writes a
// temporary file in the same directory, fsyncs it, renames it over the store and
// fsyncs the directory. Concurrent writers (threads or processes) therefore never lose
// each other's changes, and a crash leaves either the old or the new store.
//
// A damaged store (one the parser refuses) reads as empty. It is not overwritten: the
// first change after the damage moves it aside as "<store>.damaged-YYYYMMDD-HHMMSS"
// (with "-2", "-3"... when that name is taken) and starts a fresh store with the change.
#pragma once

#include "platform/registry/registry_document.h"
#include "platform/registry/registry_location.h"

#include <filesystem>
#include <functional>

namespace tabra::platform {

enum class StoreCondition { Missing, Intact, Damaged, Unreadable };

struct StoreSnapshot {
    StoreCondition condition = StoreCondition::Missing;
    RegistryDocument document; // empty unless Intact
};

StoreSnapshot loadRegistryStore(const std::filesystem::path &file);

enum class StoreUpdate {
    Written,   // the change was applied and the store replaced
    Unchanged, // the change answered that it changed nothing; the store was not touched
    Failed     // the store could not be locked, read or written; nothing changed
};

// Applies change under the lock; change answers whether it altered the document.
StoreUpdate updateRegistryStore(const RegistryLocation &location, const std::function<bool(RegistryDocument &)> &change);

} // namespace tabra::platform
