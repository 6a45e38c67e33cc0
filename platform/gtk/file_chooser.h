// The file name prompt: a GtkFileChooserDialog to open an existing file or to save
// one (with a question before an existing file is replaced), with the prompt's
// filters ("*.txt;*.csv" patterns) and its proposed name.
#pragma once

#include "platform/window/prompts.h"

#include <gtk/gtk.h>

#include <optional>
#include <string>

namespace tabra::gtk {

std::optional<std::u16string> runFileChooser(const window::FileNamePrompt &prompt, GtkWindow *parent);

} // namespace tabra::gtk
