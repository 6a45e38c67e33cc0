// Message boxes: MessageBoxW with a text of its own, and Ostrel_Message_Box with a
// text from the string table, whose entry chooses buttons and icon.
#pragma once

#include "platform/window/prompts.h"

#include <string>
#include <string_view>

namespace tabra::window {

// Puts insert n in place of %n (n = 1, 2, 3; a null insert is empty); "%%" is "%";
// any other "%" stays as it is.
std::u16string formatMessageText(std::u16string_view text, const char16_t *insert1, const char16_t *insert2,
                                 const char16_t *insert3);

// Shows the prompt and returns the answer, which is always one of the style's buttons.
int32_t showMessageBox(MessageBoxPrompt prompt);

} // namespace tabra::window
