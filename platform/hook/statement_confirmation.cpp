// The statement is shown in a message box over the active window: OK lets it run,
// Cancel cancels the operation that built it.
#include "platform/hook/statement_confirmation.h"

#include "tabra_window.h"

namespace tabra::platform {

bool confirmStatement(const std::u16string &statement) {
    return MessageBoxW(GetActiveWindow(), statement.c_str(), u"SQL", MB_OKCANCEL | MB_ICONQUESTION) == IDOK;
}

} // namespace tabra::platform
