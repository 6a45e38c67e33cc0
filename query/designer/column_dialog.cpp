// The column dialog: a result column's expression (one of the offered columns or an
// expression of the user's own) and the alias it is shown under.
#include "core/dialogs/dialog.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "query/alias_alphabet.h"
#include "query/designer/design_editing.h"
#include "query/designer/designer_state.h"
#include "query/designer/statement_generation.h"
#include "query/resource_ids.h"
#include "tabra_designer.h"

namespace tabra::query::designer {

namespace {

using ids::kDesignerColumnDialog;

struct ColumnEdit {
    DesignerState &designer;
    ColumnEntry &column;
};

void initialise(HWND dialog, ColumnEdit &edit) {
    HWND box = GetDlgItem(dialog, kDesignerColumnDialog.expression);
    for (const OfferedColumn &column : offeredColumns(edit.designer.design, edit.designer.catalog.lookup(), true))
        Ostrel_AddBoxEntry(box, column.expression.c_str(), column.type, -1, 0);
    showInBox(dialog, kDesignerColumnDialog.expression, edit.column.expression);
    SendDlgItemMessageW(dialog, kDesignerColumnDialog.alias, EM_LIMITTEXT, kAliasLength, 0);
    SetDlgItemTextW(dialog, kDesignerColumnDialog.alias, edit.column.alias.c_str());
}

void aliasChanged(HWND dialog, ColumnEdit &, int32_t control) { takeBackForeignCharacter(dialog, control); }

// A column needs an expression; without one the dialog stays.
bool accept(HWND dialog, ColumnEdit &edit) {
    std::u16string expression = controlText(dialog, kDesignerColumnDialog.expression);
    if (expression.empty()) {
        MessageBeep(MB_SIMPLEBEEP);
        SetFocus(GetDlgItem(dialog, kDesignerColumnDialog.expression));
        return false;
    }
    edit.column = {std::move(expression), controlText(dialog, kDesignerColumnDialog.alias)};
    return true;
}

constexpr tabra::dialogs::Command<ColumnEdit> kCommands[] = {{kDesignerColumnDialog.alias, EN_CHANGE, aliasChanged}};
constexpr tabra::dialogs::Dialog<ColumnEdit> kDialog{.initialise = initialise, .accept = accept, .commands = kCommands};

} // namespace

bool editColumn(HWND owner, DesignerState &state, ColumnEntry &column) {
    ColumnEdit edit{state, column};
    return tabra::dialogs::runModal(kDesignerColumnDialog.id, EditSelFactColumn_Dialog_Callback, edit, owner) == IDOK;
}

} // namespace tabra::query::designer

extern "C" INT_PTR EditSelFactColumn_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return tabra::query::designer::kDialog.answer(dialog, message, wParam, lParam);
}
