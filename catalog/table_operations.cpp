// Whole-table operations: dropping a table, renaming it by copy and drop, and finding
// a table name that is still free.
#include "catalog/resource_ids.h"
#include "core/module/module_state.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/statement_handle.h"
#include "ostrel.h"
#include "platform/text/case_folding.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"
#include "tabra_sqltext.h"
#include "tabra_window.h"

#include <string>

using tabra::odbc::sqlText;
using tabra::odbc::StatementHandle;
using tabra::odbc::succeeded;
using tabra::platform::equalIgnoringCase;

namespace {

constexpr int32_t kDropCapacity = 500;
constexpr int32_t kRenameCapacity = 300;
constexpr int32_t kPatternCapacity = 100;
constexpr int32_t kStateCapacity = 50;
constexpr int32_t kWaitNoticeTime = 30000;
constexpr int32_t kAnswerYes = 6;

// True when the statement's SQLSTATE says the table does not exist.
bool tableIsMissing(SQLHSTMT statement) {
    char16_t state[kStateCapacity] = {};
    Tabra_GetErrorCode(SQL_HANDLE_STMT, statement, state, kStateCapacity);
    return equalIgnoringCase(state, u"S0002") || equalIgnoringCase(state, u"42S02");
}

// The wait notice while a copy runs, closed on every path.
class WaitNotice {
public:
    explicit WaitNotice(bool show) {
        if (show)
            window_ = Ostrel_DisplayTempWind(tabra::module::resourceLibrary(), tabra::catalog::ids::kString.copyingTableNotice, kWaitNoticeTime,
                                             tabra::module::kMessageWindowColour);
    }
    WaitNotice(const WaitNotice &) = delete;
    WaitNotice &operator=(const WaitNotice &) = delete;
    ~WaitNotice() {
        if (window_ != nullptr) DestroyWindow(window_);
    }

private:
    HWND window_ = nullptr;
};

// "name_%d" from the wanted name.
std::u16string uniqueNamePattern(const char16_t *name) {
    char16_t pattern[kPatternCapacity];
    OstrelCopyString(pattern, name, kPatternCapacity);
    OstrelAppendString(pattern, u"_", kPatternCapacity);
    OstrelAppendString(pattern, u"%d", kPatternCapacity);
    return pattern;
}

// The pattern with its first "%d" replaced by n, cut to capacity.
void writeNumbered(const std::u16string &pattern, int n, char16_t *name, int32_t capacity) {
    std::u16string text = pattern;
    auto at = text.find(u"%d");
    if (at != std::u16string::npos) {
        std::string digits = std::to_string(n);
        text.replace(at, 2, std::u16string(digits.begin(), digits.end()));
    }
    OstrelCopyString(name, text.c_str(), capacity);
}

// Tries name_1, name_2, ... until taken answers false.
template <typename Taken>
void findFreeName(char16_t *name, int32_t capacity, Taken taken) {
    if (name[0] != u'\0' && !taken(name)) return;
    std::u16string pattern = uniqueNamePattern(name);
    std::u16string previous;
    for (int n = 1;; ++n) {
        writeNumbered(pattern, n, name, capacity);
        if (!taken(name)) return;
        // A buffer too small for the number makes every candidate the same text: stop
        // rather than search for ever.
        if (previous == name) return;
        previous = name;
    }
}

} // namespace

extern "C" int32_t Tabra_DeleteTable(SQLHDBC connection, const char16_t *table, uint8_t flags) {
    return Tabra_DeleteTableExtended(connection, nullptr, table, flags);
}

extern "C" int32_t Tabra_DeleteTableExtended(SQLHDBC connection, const char16_t *schema, const char16_t *table,
                                             uint8_t flags) {
    if (connection == SQL_NULL_HDBC || Ostrel_IsBlankString(table)) return 2;
    if ((flags & TABRA_DELETE_NO_CONFIRM) == 0 &&
        ShowMessage(tabra::catalog::ids::kMessage.confirmDropTable, table, nullptr, nullptr) != kAnswerYes)
        return 2;
    char16_t text[kDropCapacity];
    Tabra_SprintfSqlStatement(connection, text, kDropCapacity, u"DROP TABLE %t%.%t", schema, table, nullptr,
                              nullptr, nullptr, nullptr, nullptr, nullptr);
    if (Ostrel_DumpSqlStatement(text, kDropCapacity) != 1) return 2;
    StatementHandle statement;
    if (!succeeded(statement.allocate(connection))) {
        Tabra_DisplayErrorHdbc(connection);
        return 2;
    }
    if (!succeeded(SQLExecDirectW(statement.get(), sqlText(text), SQL_NTS))) {
        if ((flags & TABRA_DELETE_MISSING_OK) && tableIsMissing(statement.get())) return 1;
        Tabra_DisplayErrorHstmt(statement.get(), text);
        return 2;
    }
    return 1;
}

extern "C" int32_t Tabra_RenameTable(SQLHDBC connection, const char16_t *oldName, const char16_t *newName,
                                     uint8_t flags) {
    if (connection == SQL_NULL_HDBC || oldName == nullptr || oldName[0] == u'\0' || newName == nullptr ||
        newName[0] == u'\0')
        return 2;
    if (Tabra_DoesTableExist(connection, TABRA_TABLE_TYPE_ALL, newName) != 0) return 2;
    char16_t text[kRenameCapacity];
    Tabra_SprintfSqlStatement(connection, text, kRenameCapacity, u"SELECT * INTO %t FROM %t", newName, oldName,
                              nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    {
        StatementHandle statement;
        if (!succeeded(statement.allocate(connection))) {
            Tabra_DisplayErrorHdbc(connection);
            return 2;
        }
        WaitNotice notice((flags & TABRA_RENAME_WAIT_NOTICE) != 0);
        if (Ostrel_DumpSqlStatement(text, kRenameCapacity) != 1) return 2;
        if (!succeeded(SQLExecDirectW(statement.get(), sqlText(text), SQL_NTS))) {
            Tabra_DisplayErrorHstmt(statement.get(), text);
            return 2;
        }
    }
    return Tabra_DeleteTableExtended(connection, nullptr, oldName, TABRA_DELETE_NO_CONFIRM);
}

extern "C" void Tabra_CreateUniqueTableName(SQLHDBC connection, char16_t *name, int32_t capacity) {
    if (connection == SQL_NULL_HDBC || name == nullptr || capacity < 1) return;
    findFreeName(name, capacity, [connection](const char16_t *candidate) {
        return Tabra_DoesTableExist(connection, TABRA_TABLE_TYPE_ALL, candidate) != 0;
    });
}

extern "C" void OdbcEh_CreateUniqueTableName(int32_t context, SQLHDBC connection, const char16_t *schema,
                                             char16_t *name, int32_t capacity) {
    if (connection == SQL_NULL_HDBC || name == nullptr || capacity < 1) return;
    findFreeName(name, capacity, [context, connection, schema](const char16_t *candidate) {
        return OdbcEh_DoesTableExist(context, connection, TABRA_TABLE_TYPE_ALL, schema, candidate, 0) != 0;
    });
}
