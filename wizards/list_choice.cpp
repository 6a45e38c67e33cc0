#include "wizards/list_choice.h"

#include "ostrel_ui.h"
#include "tabra_connection.h"
#include "wizards/resource_ids.h"

namespace tabra::wizards {

bool listHasChoice(HWND list) {
    if (Ostrel_GetBoxIndex(list) >= 0) return true;
    ShowMessage(ids::kMessage.nothingChosen, nullptr, nullptr, nullptr);
    SetFocus(list);
    return false;
}

} // namespace tabra::wizards
