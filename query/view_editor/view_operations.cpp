// Creating, dropping and testing views, and the items the view editor keeps for each
// view in the system table: its statement and the designer's lists, so that the view
// can be designed again.
#include "query/view_editor/view_editor.h"
#include "query/view_editor/view_operations.h"

#include "catalog/table_existence.h"
#include "core/connection/capabilities.h"
#include "core/diagnostics/odbc_error_display.h"
#include "core/odbc/statement_runner.h"
#include "platform/text/bounded_text.h"
#include "query/designer/drop_view_word.h"
#include "query/designer/query_design.h"
#include "rowset/row_set.h"
#include "sqltext/statement_formatter.h"
#include "systable/system_table_items.h"
#include "tabra_catalog.h"

namespace tabra::query::view_editor {

namespace {

using odbc::RunResult;
using odbc::StatementRunner;

constexpr int32_t kNameStatementCapacity = 300;
constexpr int32_t kItemCapacity = static_cast<int32_t>(kTextLength) + 1;

// The items of a view: the object is the view's name, the type kObjectType.
constexpr char16_t kStatementItem[] = u"Sql";
constexpr char16_t kTablesItem[] = u"Tables";
constexpr char16_t kColumnsItem[] = u"Columns";
constexpr char16_t kSelectionItem[] = u"Selection";
constexpr char16_t kEveryColumn[] = u"*"; // the columns of a view stored without them

constexpr char16_t kEveryState[] = u"*";

std::u16string qualifiedName(const ViewEditState &state, const std::u16string &name) {
    return sqltext::formatStatement(state.connection, u"%t%.%t", {state.schema.c_str(), name.c_str()},
                                    kNameStatementCapacity);
}

// The drop statement under the mode: Done or a failure it ignores count as dropped.
bool dropStatementRan(const ViewEditState &state, const std::u16string &name, int32_t mode) {
    const std::u16string word = designer::dropViewWord(state.connection);
    const std::u16string text = sqltext::formatStatement(
        state.connection, u"%s %t%.%t", {word.c_str(), state.schema.c_str(), name.c_str()}, kNameStatementCapacity);
    if ((mode & kDropIgnoringErrors) != 0) return rowset::performStatement(state.connection, text.c_str(), kEveryState) == 1;
    if ((mode & kDropIgnoringMissing) == 0) return rowset::performStatement(state.connection, text.c_str(), nullptr) == 1;

    // "No such view" is the database's state for a missing table; where that state is a
    // generic one, the catalog decides whether the view is gone.
    const auto &database = connection::capabilities(state.connection);
    StatementRunner statement(state.connection, text.c_str(), {.tolerated = database.tableMissingStates});
    switch (statement.run()) {
    case RunResult::Done: return true;
    case RunResult::Tolerated:
        if (!database.tableMissingNeedsCatalog ||
            catalog::findInCatalog(state.connection, TABRA_TABLE_TYPE_VIEW, state.schema.c_str(), name.c_str()) != 1)
            return true;
        diagnostics::showOdbcError(SQL_HANDLE_STMT, statement.handle(), text.c_str());
        return false;
    case RunResult::Refused:
    case RunResult::Failed: break;
    }
    return false;
}

} // namespace

bool loadViewItems(ViewEditState &state, std::u16string_view name) {
    state.name = std::u16string(name.substr(0, kNameLength));
    auto read = [&](const char16_t *item, const char16_t *defaultValue) {
        return systable::readItem(state.connection, state.name, kObjectType, item, defaultValue, kItemCapacity);
    };
    state.statement = read(kStatementItem, u"");
    state.tables = read(kTablesItem, u"");
    state.columns = read(kColumnsItem, kEveryColumn);
    state.selection = read(kSelectionItem, u"");
    return !platform::isBlank(state.statement);
}

int32_t createView(ViewEditState &state, std::u16string_view name) {
    const std::u16string viewName(name.empty() ? std::u16string_view(state.name) : name);
    if (state.connection == SQL_NULL_HDBC || platform::isBlank(viewName) || platform::isBlank(state.statement)) return 2;
    // The statement is joined whole: the formatter's %s would cut it at 299 characters.
    const std::u16string text =
        (u"CREATE VIEW " + qualifiedName(state, viewName) + u" AS " + state.statement).substr(0, kTextLength);
    if (rowset::performStatement(state.connection, text.c_str(), nullptr) != 1) return 2;
    const std::pair<const char16_t *, const std::u16string *> items[] = {{kStatementItem, &state.statement},
                                                                         {kTablesItem, &state.tables},
                                                                         {kColumnsItem, &state.columns},
                                                                         {kSelectionItem, &state.selection}};
    for (const auto &[item, value] : items) systable::writeItem(state.connection, viewName, kObjectType, item, *value);
    return 1;
}

int32_t dropView(ViewEditState &state, std::u16string_view name, int32_t mode) {
    const std::u16string viewName(name);
    if (state.connection == SQL_NULL_HDBC || platform::isBlank(viewName)) return 2;
    if (!dropStatementRan(state, viewName, mode)) return 2;
    systable::deleteItems(state.connection, viewName, kObjectType);
    return 1;
}

int32_t testView(ViewEditState &state) {
    dropView(state, designer::kViewTestName, kDropIgnoringErrors);
    if (createView(state, designer::kViewTestName) != 1) return 2;
    dropView(state, designer::kViewTestName, 0);
    return 1;
}

bool viewExists(const ViewEditState &state, const std::u16string &name) {
    return catalog::findInCatalog(state.connection, TABRA_TABLE_TYPE_VIEW, state.schema.c_str(), name.c_str()) == 1;
}

} // namespace tabra::query::view_editor
