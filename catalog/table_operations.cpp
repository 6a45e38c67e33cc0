// Whole-table operations: dropping a table, renaming it by copy and drop, and finding
// a table name that is still free.
#include "catalog/table_operations.h"

#include "catalog/resource_ids.h"
#include "catalog/table_existence.h"
#include "core/connection/capabilities.h"
#include "core/diagnostics/odbc_error_display.h"
#include "core/module/module_state.h"
#include "core/odbc/statement_runner.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "sqltext/statement_formatter.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"
#include "tabra_window.h"

#include <string>

using tabra::odbc::RunResult;
using tabra::odbc::StatementRunner;

namespace {

constexpr int32_t kDropCapacity = 500;
constexpr int32_t kRenameCapacity = 300;
constexpr int32_t kPatternCapacity = 100;
constexpr int32_t kWaitNoticeTime = 30000;
constexpr int32_t kAnswerYes = 6;

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

// Whether the table list has a table or view of the name (a list that cannot be read
// counts as taken).
auto tableTaken(SQLHDBC connection) {
    return [connection](const char16_t *candidate) {
        return tabra::catalog::findInTableList(connection, TABRA_TABLE_TYPE_ALL, nullptr, 0, candidate) != 0;
    };
}

} // namespace

namespace tabra::catalog {

int32_t dropTable(SQLHDBC connection, const char16_t *schema, const char16_t *table, uint8_t flags) {
    if (connection == SQL_NULL_HDBC || Ostrel_IsBlankString(table)) return 2;
    if ((flags & TABRA_DELETE_NO_CONFIRM) == 0 &&
        ShowMessage(tabra::catalog::ids::kMessage.confirmDropTable, table, nullptr, nullptr) != kAnswerYes)
        return 2;
    const std::u16string text =
        sqltext::formatStatement(connection, u"DROP TABLE %t%.%t", {schema, table}, kDropCapacity);
    if ((flags & TABRA_DELETE_MISSING_OK) == 0)
        return StatementRunner(connection, text.c_str()).run() == RunResult::Done ? 1 : 2;

    // A failure whose state says "no such table" means the table is gone already. Where
    // the database answers with a generic state, the catalog decides.
    const auto &database = connection::capabilities(connection);
    StatementRunner statement(connection, text.c_str(), {.tolerated = database.tableMissingStates});
    switch (statement.run()) {
    case RunResult::Done: return 1;
    case RunResult::Tolerated:
        if (!database.tableMissingNeedsCatalog ||
            findInTableList(connection, TABRA_TABLE_TYPE_ALL, schema, 0, table) == 0)
            return 1;
        diagnostics::showOdbcError(SQL_HANDLE_STMT, statement.handle(), text.c_str());
        return 2;
    case RunResult::Refused:
    case RunResult::Failed: break;
    }
    return 2;
}

int32_t renameTable(SQLHDBC connection, const char16_t *oldName, const char16_t *newName, uint8_t flags) {
    if (connection == SQL_NULL_HDBC || oldName == nullptr || oldName[0] == u'\0' || newName == nullptr ||
        newName[0] == u'\0')
        return 2;
    if (findInTableList(connection, TABRA_TABLE_TYPE_ALL, nullptr, 0, newName) != 0) return 2;
    // A database with a RENAME statement renames in place (rows, keys and indexes stay);
    // the others copy the table under the new name and drop the old one.
    const auto &database = connection::capabilities(connection);
    const bool copies = database.renameCopiesAndDrops;
    const std::u16string text = sqltext::formatStatement(
        connection, database.renameStatement, {copies ? newName : oldName, copies ? oldName : newName}, kRenameCapacity);
    {
        StatementRunner statement(connection, text.c_str());
        if (statement.allocate() != RunResult::Done) return 2;
        WaitNotice notice((flags & TABRA_RENAME_WAIT_NOTICE) != 0);
        if (statement.passHook() != RunResult::Done || statement.execute() != RunResult::Done) return 2;
    }
    return copies ? dropTable(connection, nullptr, oldName, TABRA_DELETE_NO_CONFIRM) : 1;
}

std::u16string uniqueTableName(SQLHDBC connection, std::u16string_view wanted, int32_t capacity) {
    if (capacity < 1) return {};
    std::u16string name(static_cast<std::size_t>(capacity), u'\0');
    tabra::platform::writeBounded(name.data(), capacity, wanted);
    if (connection != SQL_NULL_HDBC) findFreeName(name.data(), capacity, tableTaken(connection));
    name.resize(std::char_traits<char16_t>::length(name.c_str()));
    return name;
}

} // namespace tabra::catalog

using namespace tabra::catalog;

extern "C" int32_t Tabra_DeleteTable(SQLHDBC connection, const char16_t *table, uint8_t flags) {
    return dropTable(connection, nullptr, table, flags);
}

extern "C" int32_t Tabra_DeleteTableExtended(SQLHDBC connection, const char16_t *schema, const char16_t *table,
                                             uint8_t flags) {
    return dropTable(connection, schema, table, flags);
}

extern "C" int32_t Tabra_RenameTable(SQLHDBC connection, const char16_t *oldName, const char16_t *newName,
                                     uint8_t flags) {
    return renameTable(connection, oldName, newName, flags);
}

extern "C" void Tabra_CreateUniqueTableName(SQLHDBC connection, char16_t *name, int32_t capacity) {
    makeTableNameUnique(connection, name, capacity);
}

extern "C" void OdbcEh_CreateUniqueTableName(int32_t, SQLHDBC connection, const char16_t *schema, char16_t *name,
                                             int32_t capacity) {
    if (connection == SQL_NULL_HDBC || name == nullptr || capacity < 1) return;
    findFreeName(name, capacity, [connection, schema](const char16_t *candidate) {
        return findInCatalog(connection, TABRA_TABLE_TYPE_ALL, schema, candidate) != 0;
    });
}

namespace tabra::catalog {

void makeTableNameUnique(SQLHDBC connection, char16_t *name, int32_t capacity) {
    if (connection == SQL_NULL_HDBC || name == nullptr || capacity < 1) return;
    findFreeName(name, capacity, tableTaken(connection));
}

} // namespace tabra::catalog
