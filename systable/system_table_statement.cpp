// Formatting the system table's statements: plain "%s" substitution, whole texts or
// no statement at all.
#include "systable/system_table.h"

namespace tabra::systable {
namespace {

constexpr size_t kStatementCapacity = 1000; // characters, terminator included

} // namespace

std::optional<std::u16string> formatSystemTableStatement(std::u16string_view format,
                                                         std::initializer_list<std::u16string_view> texts) {
    std::u16string statement;
    auto next = texts.begin();
    for (size_t i = 0; i < format.size(); ++i) {
        if (format[i] == u'%' && i + 1 < format.size() && format[i + 1] == u's' && next != texts.end()) {
            statement += *next++;
            ++i;
        } else {
            statement += format[i];
        }
        if (statement.size() >= kStatementCapacity) return std::nullopt;
    }
    return statement;
}

} // namespace tabra::systable
