// The statement test.
#include "query/designer/statement_check.h"

#include "query/designer/drop_view_word.h"
#include "query/designer/statement_generation.h"
#include "rowset/row_set.h"
#include "sqltext/statement_formatter.h"

#include <string>

namespace tabra::query::designer {

namespace {

constexpr int32_t kNameCapacity = 300;
constexpr char16_t kEveryState[] = u"*";

// Every statement of the designer runs as a row-set statement: the statement hook
// first, failures shown with the statement unless their SQLSTATE is tolerated. 1 when
// it ran or failed with a tolerated state, else 2.
int32_t runStatement(SQLHDBC connection, const std::u16string &text, const char16_t *tolerated) {
    if (connection == SQL_NULL_HDBC) return 2;
    return rowset::performStatement(connection, text.c_str(), tolerated);
}

// A short statement text from the formatter: names prepared for the connection.
std::u16string formatted(SQLHDBC connection, const char16_t *format, const char16_t *a1, const char16_t *a2,
                         const char16_t *a3 = nullptr) {
    return sqltext::formatStatement(connection, format, {a1, a2, a3}, kNameCapacity);
}

} // namespace

int32_t testStatement(const QueryDesign &design) {
    std::u16string statement = statementText(design, kStatementCapacity);
    if (!design.buildsView()) return runStatement(design.connection, statement, nullptr);

    // The statement is joined on whole: the formatter's %s would cut it at 299 characters.
    std::u16string name = formatted(design.connection, u"%t%.%t", design.schema.c_str(), kViewTestName);
    if (runStatement(design.connection, u"CREATE VIEW " + name + u" AS " + statement, nullptr) != 1) return 2;
    std::u16string word = dropViewWord(design.connection);
    runStatement(design.connection,
                 formatted(design.connection, u"%s %t%.%t", word.c_str(), design.schema.c_str(), kViewTestName),
                 kEveryState);
    return 1;
}

} // namespace tabra::query::designer
