// Strings of resource libraries as the dialogs show them: looked up by id, optionally
// passed through the translation layer of a module name.
#pragma once

#include "platform/resources/resource_model.h"
#include "tabra_base.h"

#include <optional>
#include <string>

namespace tabra::window {

// The string entry (text and message-box style), or nullopt when the module is not a
// live resource library or has no such string. With a translation module name the
// text is replaced by its translation, if the module's table has one.
std::optional<platform::StringEntry> loadResourceString(HMODULE module, int32_t stringId,
                                                        const char16_t *translationModule = nullptr);

// The text of a string, or the empty text when it is missing.
std::u16string resourceText(HMODULE module, int32_t stringId, const char16_t *translationModule = nullptr);

} // namespace tabra::window
