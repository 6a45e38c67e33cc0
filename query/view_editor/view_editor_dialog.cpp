// The view editor's dialog (template 10063): the view's name (letters, digits 1 to 9
// and "_" only) above its SELECT statement, which the user types, designs in the query
// designer, loads from or saves to a statement file, and tests. OK tests the statement
// once more, replaces the view the dialog was opened on when the caller allows it,
// and creates the view.
#include "core/dialogs/dialog.h"
#include "core/diagnostics/file_error_report.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "query/alias_alphabet.h"
#include "query/designer/design_copy.h"
#include "query/designer/design_descriptors.h"
#include "query/designer/designer_state.h"
#include "query/designer/statement_generation.h"
#include "query/resource_ids.h"
#include "query/view_editor/statement_file.h"
#include "query/view_editor/view_editor.h"
#include "query/view_editor/view_operations.h"
#include "tabra_connection.h"
#include "tabra_designer.h"

#include <new>
#include <vector>

namespace tabra::query::view_editor {

namespace {

using ids::kViewEditorDialog;

// Where the file dialog of statement files keeps the last name.
constexpr char16_t kLastUsedKey[] = u"LastUsed";
constexpr char16_t kStatementFileValue[] = u"SqlStatementFile";
constexpr int32_t kFileNameCapacity = 1024;

void showMessage(int32_t id, const char16_t *argument = nullptr) { ShowMessage(id, argument, nullptr, nullptr); }

std::u16string controlText(HWND dialog, int32_t id) {
    std::vector<char16_t> text(static_cast<size_t>(GetWindowTextLengthW(GetDlgItem(dialog, id))) + 1, u'\0');
    GetDlgItemTextW(dialog, id, text.data(), static_cast<int32_t>(text.size()));
    return text.data();
}

// OK, Save and Test need a statement.
void followStatement(HWND dialog, const ViewEditState &state) {
    const bool withStatement = !platform::isBlank(state.statement);
    for (int32_t id : {static_cast<int32_t>(IDOK), kViewEditorDialog.save, kViewEditorDialog.test})
        EnableWindow(GetDlgItem(dialog, id), withStatement);
}

// Shows the statement without taking the edit's change notice as the user's.
void showStatement(HWND dialog, ViewEditState &state) {
    state.initialising = true;
    SetDlgItemTextW(dialog, kViewEditorDialog.statement, state.statement.c_str());
    state.initialising = false;
    followStatement(dialog, state);
}

void initialise(HWND dialog, ViewEditState &state) {
    state.openingName = state.name;
    SendMessageW(GetDlgItem(dialog, kViewEditorDialog.name), EM_LIMITTEXT, kNameLength, 0);
    state.initialising = true;
    SetDlgItemTextW(dialog, kViewEditorDialog.name, state.name.c_str());
    state.initialising = false;
    showStatement(dialog, state);
}

// The name first for a new view, the statement for one that has its name.
HWND initialFocus(HWND dialog, ViewEditState &state) {
    return GetDlgItem(dialog, platform::isBlank(state.name) ? kViewEditorDialog.name : kViewEditorDialog.statement);
}

void nameChanged(HWND dialog, ViewEditState &state, int32_t) {
    if (state.initialising) return;
    takeBackForeignCharacter(dialog, kViewEditorDialog.name);
    state.name = controlText(dialog, kViewEditorDialog.name).substr(0, kNameLength);
}

void statementChanged(HWND dialog, ViewEditState &state, int32_t) {
    if (state.initialising) return;
    state.statement = controlText(dialog, kViewEditorDialog.statement);
    followStatement(dialog, state);
}

// The designer edits the lists stored with the view (it reads nothing back from a
// statement) and builds the statement from them.
void design(HWND dialog, ViewEditState &state, int32_t) {
    try {
        designer::QueryDesign query(state.connection, state.schema, TABRA_SELFACT_VIEW);
        designer::setDescriptor(query, TABRA_SELFACT_TABLES, state.tables);
        designer::setDescriptor(query, TABRA_SELFACT_COLUMNS, state.columns);
        designer::setDescriptor(query, TABRA_SELFACT_SELECTION, state.selection);
        if (designer::editOnCopy(query, dialog, designer::runDesignerDialog) != 1) return;
        state.tables = designer::descriptorText(query, TABRA_SELFACT_TABLES).substr(0, kTextLength);
        state.columns = designer::descriptorText(query, TABRA_SELFACT_COLUMNS).substr(0, kTextLength);
        state.selection = designer::descriptorText(query, TABRA_SELFACT_SELECTION).substr(0, kTextLength);
        state.statement = designer::statementText(query, kTextLength + 1);
    } catch (const std::bad_alloc &) {
        showMessage(core::ids::kMessage.outOfMemory);
        return;
    }
    showStatement(dialog, state);
}

void test(HWND dialog, ViewEditState &state, int32_t) {
    if (testView(state) == 1) showMessage(ids::kViewEditorMessage.testPassed);
    followStatement(dialog, state);
}

// A statement file's name from the file dialog; empty when the user cancels.
std::u16string askStatementFile(HWND dialog, int32_t mode, int32_t titleId) {
    std::vector<char16_t> name(kFileNameCapacity, u'\0');
    if (Ostrel_ExtendedFileNameDialog(dialog, mode, module::resourceLibrary(), ids::kViewEditorString.statementFilter,
                                      titleId, HKEY_CURRENT_USER, module::kRegistryRoot, kLastUsedKey,
                                      kStatementFileValue, name.data(), kFileNameCapacity) != 1)
        return {};
    return name.data();
}

void load(HWND dialog, ViewEditState &state, int32_t) {
    const std::u16string fileName = askStatementFile(dialog, OSTREL_FILE_OPEN, ids::kViewEditorString.loadTitle);
    if (fileName.empty()) return;
    std::optional<std::u16string> statement = readStatementFile(fileName);
    if (!statement) {
        showMessage(core::ids::kMessage.fileNotRead, fileName.c_str());
        return;
    }
    state.statement = std::move(*statement);
    showStatement(dialog, state);
}

void save(HWND dialog, ViewEditState &state, int32_t) {
    if (platform::isBlank(state.statement)) return;
    const std::u16string fileName = askStatementFile(dialog, OSTREL_FILE_SAVE, ids::kViewEditorString.saveTitle);
    if (fileName.empty()) return;
    if (const int failure = writeStatementFile(fileName, state.statement); failure != 0)
        diagnostics::reportFileError(failure, fileName.c_str());
}

// The focus goes back to what the user is asked to change.
bool refuse(HWND dialog, int32_t messageId, int32_t control) {
    showMessage(messageId);
    SetFocus(GetDlgItem(dialog, control));
    return false;
}

bool accept(HWND dialog, ViewEditState &state) {
    if (platform::isBlank(state.name)) return refuse(dialog, ids::kViewEditorMessage.noName, kViewEditorDialog.name);
    if (!isAliasText(state.name)) return refuse(dialog, ids::kViewEditorMessage.badName, kViewEditorDialog.name);
    if (platform::isBlank(state.statement))
        return refuse(dialog, core::ids::kMessage.noStatement, kViewEditorDialog.statement);
    if (testView(state) != 1) return false;
    if ((state.flags & kReplaceFlags) != 0 && !platform::isBlank(state.openingName) &&
        viewExists(state, state.openingName))
        dropView(state, state.openingName, 0);
    return createView(state) == 1;
}

constexpr dialogs::Command<ViewEditState> kCommands[] = {
    {kViewEditorDialog.name, EN_CHANGE, nameChanged},
    {kViewEditorDialog.statement, EN_CHANGE, statementChanged},
    {kViewEditorDialog.design, BN_CLICKED, design},
    {kViewEditorDialog.test, BN_CLICKED, test},
    {kViewEditorDialog.load, BN_CLICKED, load},
    {kViewEditorDialog.save, BN_CLICKED, save},
};
constexpr dialogs::Dialog<ViewEditState> kDialog{
    .initialise = initialise, .initialFocus = initialFocus, .accept = accept, .commands = kCommands};

INT_PTR viewEditorProcedure(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kDialog.answer(dialog, message, wParam, lParam);
}

} // namespace

int32_t runViewEditor(ViewEditState &state, int32_t flags, HWND owner) {
    try {
        ViewEditState copy = state;
        copy.flags |= flags;
        copy.schema = copy.schema.substr(0, kNameLength);
        if (dialogs::runModal(kViewEditorDialog.id, viewEditorProcedure, copy,
                              owner != nullptr ? owner : GetActiveWindow()) != IDOK)
            return 2;
        state = std::move(copy);
        return 1;
    } catch (const std::bad_alloc &) {
        showMessage(core::ids::kMessage.outOfMemory);
        return 2;
    }
}

} // namespace tabra::query::view_editor
