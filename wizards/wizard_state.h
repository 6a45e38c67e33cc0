// What the wizards' entry points share: their state made without throwing (no memory:
// message 1600 and no state), and their last choices read from their registry key.
#pragma once

#include "core/resource_ids.h"
#include "tabra_connection.h"

#include <cstdint>
#include <memory>
#include <new>
#include <string>

namespace tabra::wizards {

template <class State> std::unique_ptr<State> newWizardState() {
    try {
        return std::make_unique<State>();
    } catch (const std::bad_alloc &) {
        ShowMessage(core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
        return nullptr;
    }
}

// A string value of the wizard's key below the library's root (HKEY_CURRENT_USER), at
// most capacity - 1 characters; empty when it is missing.
std::u16string readWizardString(const char16_t *key, const char16_t *value, int32_t capacity);

} // namespace tabra::wizards
