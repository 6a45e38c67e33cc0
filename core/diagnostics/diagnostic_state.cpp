// Quiet questions about a handle's diagnostics: the last SQLSTATE, and whether it is
// one of the states a caller expects.
#include "core/diagnostics/diagnostic_state.h"

#include "core/odbc/odbc_text.h"
#include "ostrel.h"
#include "tabra_connection.h"

#include <string_view>

namespace {

constexpr SQLSMALLINT kMessageLength = 2999;
constexpr int32_t kStateCapacity = 100;
constexpr int32_t kTokenCapacity = 100; // 99 characters and a terminator

char16_t asciiUpper(char16_t c) { return (c >= u'a' && c <= u'z') ? static_cast<char16_t>(c - 32) : c; }

bool equalsIgnoringCase(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (asciiUpper(a[i]) != asciiUpper(b[i])) return false;
    return true;
}

} // namespace

namespace tabra::diagnostics {

std::u16string lastState(SQLSMALLINT handleType, SQLHANDLE handle) {
    char16_t state[6] = {};
    std::u16string message(kMessageLength + 1, u'\0');
    SQLINTEGER nativeError = 0;
    SQLSMALLINT length = 0;
    SQLRETURN rc = SQLGetDiagRecW(handleType, handle, 1, tabra::odbc::sqlText(state), &nativeError,
                                  tabra::odbc::sqlText(message.data()), kMessageLength, &length);
    if (rc != SQL_SUCCESS && rc != SQL_SUCCESS_WITH_INFO) return {};
    return state;
}

bool isLastStateInList(SQLSMALLINT handleType, SQLHANDLE handle, const char16_t *list, SQLRETURN returnCode) {
    if (Ostrel_IsBlankString(list)) return false;
    std::u16string_view states(list);
    if (states == u"*") return true;
    if (returnCode == SQL_SUCCESS_WITH_INFO && states.find(u"NOINFO") != std::u16string_view::npos) return true;

    // The state as a buffer of 100 characters holds it (always whole: it has five).
    const std::u16string state = lastState(handleType, handle).substr(0, kStateCapacity - 1);

    // Tokens are compared as they stand: a blank after a comma stays part of the token.
    char16_t token[kTokenCapacity];
    int32_t position = 0;
    while (Ostrel_ReadToken(list, &position, u',', token, kTokenCapacity) == 1)
        if (equalsIgnoringCase(token, state)) return true;
    return false;
}

} // namespace tabra::diagnostics

extern "C" int32_t Tabra_GetErrorCode(int16_t handleType, SQLHANDLE handle, char16_t *buffer, int32_t size) {
    return OstrelCopyString(buffer, tabra::diagnostics::lastState(handleType, handle).c_str(), size);
}

extern "C" int32_t Tabra_IsLastErrorInList(int16_t handleType, SQLHANDLE handle, const char16_t *list,
                                           SQLRETURN returnCode) {
    return tabra::diagnostics::isLastStateInList(handleType, handle, list, returnCode) ? 1 : 0;
}
