// Showing a statement to the user before it runs, with OK (run it) and Cancel.
#pragma once

#include <string>

namespace tabra::platform {

// Shows the statement modally; true when the user chose OK.
bool confirmStatement(const std::u16string &statement);

} // namespace tabra::platform
