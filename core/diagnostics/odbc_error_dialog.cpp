// The ODBC error dialog: shows the first diagnostic record of a handle, split into
// the bracketed parts of the message, with the statement that failed. Every ODBC
// failure of the library reaches the user through here, modally, at the place where
// it happened.
#include "core/dialogs/dialog.h"
#include "core/diagnostics/odbc_error_display.h"
#include "core/module/module_state.h"
#include "core/odbc/odbc_text.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "tabra_connection.h"
#include "tabra_window.h"

#include <string>
#include <string_view>

namespace {

using tabra::core::ids::kErrorDialog;

constexpr size_t kPartCapacity = 300; // one bracketed part, terminator included
constexpr SQLSMALLINT kMessageLength = 2999;

// What an entry point hands to the dialog procedure.
struct ErrorDialogRequest {
    int16_t handleType = 0;
    SQLHANDLE handle = nullptr;
    const char16_t *statementText = nullptr;
    int16_t recordNumber = 1;
    int32_t furtherMessage = 0;
};

// Takes the next bracketed part of the diagnostic message, the vendor, component or
// data source prefix that ODBC puts before the text: only while the rest starts with
// "[" and holds a "]" is there one, and it is the characters up to that "]" (at most
// 299 kept, opening brackets at its start removed) with the cursor moved past it.
// Otherwise the part is empty and the cursor stays: the rest is the message, so a
// driver that writes one prefix ("[SQLite]no such table") or none (PostgreSQL) shows
// its text in the message field.
std::u16string takeBracketedPart(std::u16string_view message, size_t &cursor) {
    if (cursor >= message.size() || message[cursor] != u'[') return {};
    size_t close = message.find(u']', cursor);
    if (close == std::u16string_view::npos) return {};
    std::u16string part(message.substr(cursor, close - cursor));
    if (part.size() > kPartCapacity - 1) part.resize(kPartCapacity - 1);
    cursor = close + 1;
    size_t firstKept = part.find_first_not_of(u'[');
    return firstKept == std::u16string::npos ? std::u16string() : part.substr(firstKept);
}

bool isOptionValueChanged(const char16_t *state) {
    std::u16string_view s(state);
    if (s.size() != 5) return false;
    auto upper = [](char16_t c) { return (c >= u'a' && c <= u'z') ? static_cast<char16_t>(c - 32) : c; };
    const char16_t expected[] = u"01S02";
    for (size_t i = 0; i < 5; ++i)
        if (upper(s[i]) != expected[i]) return false;
    return true;
}

// Fills the dialog from the diagnostic record; false when the handle holds none.
bool showDiagnostic(HWND dialog, ErrorDialogRequest &request) {
    char16_t state[6] = {};
    char16_t message[kMessageLength + 1] = {};
    SQLINTEGER nativeError = 0;
    SQLSMALLINT length = 0;
    SQLRETURN rc = SQLGetDiagRecW(request.handleType, request.handle, request.recordNumber,
                                  tabra::odbc::sqlText(state), &nativeError, tabra::odbc::sqlText(message),
                                  kMessageLength, &length);
    if (rc != SQL_SUCCESS && rc != SQL_SUCCESS_WITH_INFO) return false;

    std::u16string_view text(message);
    size_t cursor = 0;
    std::u16string vendor = takeBracketedPart(text, cursor);
    std::u16string component = takeBracketedPart(text, cursor);
    std::u16string dataSource = takeBracketedPart(text, cursor);

    SetDlgItemTextW(dialog, kErrorDialog.vendor, vendor.c_str());
    SetDlgItemTextW(dialog, kErrorDialog.component, component.c_str());
    SetDlgItemTextW(dialog, kErrorDialog.dataSource, dataSource.c_str());
    SetDlgItemTextW(dialog, kErrorDialog.state, state);
    SetDlgItemTextW(dialog, kErrorDialog.message, std::u16string(text.substr(cursor)).c_str());
    if (isOptionValueChanged(state)) request.furtherMessage = tabra::core::ids::kMessage.optionValueChanged;
    return true;
}

// A handle without a diagnostic record has nothing to show: the dialog ends at once
// with OK.
void initialise(HWND dialog, ErrorDialogRequest &request) {
    if (!showDiagnostic(dialog, request)) {
        EndDialog(dialog, IDOK);
        return;
    }
    SetDlgItemTextW(dialog, kErrorDialog.statement, request.statementText ? request.statementText : u"");
    ShowWindow(GetDlgItem(dialog, kErrorDialog.furtherMessage), request.furtherMessage != 0 ? SW_SHOW : SW_HIDE);
}

void showFurtherMessage(HWND, ErrorDialogRequest &request, int32_t) {
    if (request.furtherMessage != 0) ShowMessage(request.furtherMessage, nullptr, nullptr, nullptr);
}

constexpr tabra::dialogs::Command<ErrorDialogRequest> kCommands[] = {
    {kErrorDialog.furtherMessage, tabra::dialogs::kAnyNotification, showFurtherMessage},
};
// Opened without a request there is nothing to show either.
constexpr tabra::dialogs::Dialog<ErrorDialogRequest> kDialog{
    .initialise = initialise, .commands = kCommands, .endWithoutState = IDOK};

int32_t showErrorDialog(int16_t handleType, SQLHANDLE handle, const char16_t *statementText) {
    ErrorDialogRequest request;
    request.handleType = handleType;
    request.handle = handle;
    request.statementText = statementText;
    return tabra::dialogs::runModal(kErrorDialog.id, DisplayOdbcErrorCallback, request) == IDOK ? 1 : 2;
}

} // namespace

extern "C" INT_PTR DisplayOdbcErrorCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kDialog.answer(dialog, message, wParam, lParam);
}

extern "C" int32_t Tabra_DisplayErrorHenv(SQLHENV environment) {
    return showErrorDialog(SQL_HANDLE_ENV, environment, nullptr);
}

extern "C" int32_t Tabra_DisplayErrorHdbc(SQLHDBC connection) {
    return showErrorDialog(SQL_HANDLE_DBC, connection, nullptr);
}

extern "C" int32_t Tabra_DisplayErrorHstmt(SQLHSTMT statement, const char16_t *statementText) {
    return showErrorDialog(SQL_HANDLE_STMT, statement, statementText);
}

extern "C" int32_t OdbcEh_HandleErrorHenv(int32_t, SQLHENV environment) {
    return showErrorDialog(SQL_HANDLE_ENV, environment, nullptr);
}

extern "C" int32_t OdbcEh_HandleErrorHdbc(int32_t, SQLHDBC connection) {
    return showErrorDialog(SQL_HANDLE_DBC, connection, nullptr);
}

extern "C" int32_t OdbcEh_HandleErrorHstmt(int32_t, SQLHSTMT statement, const char16_t *statementText) {
    return showErrorDialog(SQL_HANDLE_STMT, statement, statementText);
}

extern "C" int32_t Tabra_DisplayErrorOrInfoHstmt(SQLHSTMT statement, SQLRETURN returnCode,
                                                 const char16_t *statementText) {
    if (returnCode == SQL_SUCCESS_WITH_INFO && (Ostrel_GetDumpState(0) & OSTREL_DUMP_SHOW_INFO) == 0) return 1;
    return showErrorDialog(SQL_HANDLE_STMT, statement, statementText);
}

int32_t tabra::diagnostics::showOdbcError(SQLSMALLINT handleType, SQLHANDLE handle, const char16_t *statementText) {
    return showErrorDialog(handleType, handle, statementText);
}
