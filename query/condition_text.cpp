// WHERE conditions and SET lists from descriptors, and their exported entry points.
#include "query/condition_text.h"

#include "core/connection/capabilities.h"
#include "ostrel_text.h"
#include "query/descriptor_text.h"
#include "query/operator_tables.h"
#include "query/sql_literal.h"
#include "sqltext/sql92_names.h"
#include "tabra_query.h"

#include <sqlext.h>

#include <initializer_list>

namespace tabra::query {

namespace {

constexpr int32_t kQuotedColumnCapacity = 100;
constexpr int32_t kPreparedValueCapacity = 300;
constexpr size_t kConditionLength = 299;
constexpr size_t kListItemLength = 499;
constexpr size_t kGroupRoom = 30000 - 1; // work buffer less its "("

// Fills %s and %c of a pattern in order from the arguments.
std::u16string fillPattern(std::u16string_view pattern, std::initializer_list<std::u16string_view> arguments) {
    std::u16string text;
    auto argument = arguments.begin();
    for (size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == u'%' && i + 1 < pattern.size() && (pattern[i + 1] == u's' || pattern[i + 1] == u'c')) {
            if (argument != arguments.end()) text += *argument++;
            ++i;
        } else {
            text += pattern[i];
        }
    }
    return text;
}

// The value of a line prepared as the operator's value kind says.
std::u16string preparedValue(SQLHDBC connection, const OperatorEntry &op, const DescriptorLine &line) {
    if (op.flags & kColumnValue) return sqltext::prepareNameForSql92(connection, line.value.c_str(), kPreparedValueCapacity);
    if (op.flags & kLiteralValue) return formatSqlLiteral(line.value, line.dataType, kPreparedValueCapacity);
    if (op.flags & kListValue) {
        // Empty items (a trailing ";", two in a row) are skipped like empty pieces.
        std::u16string items;
        for (std::u16string_view item : splitNonEmpty(line.value, u';')) {
            if (!items.empty()) items += u',';
            items += formatSqlLiteral(item.substr(0, kListItemLength), line.dataType, kListItemLength + 1);
        }
        if (items.size() > kPreparedValueCapacity - 1) items.resize(kPreparedValueCapacity - 1);
        return items;
    }
    return line.value;
}

bool isCharacterType(int32_t sqlType) {
    switch (sqlType) {
    case SQL_CHAR:
    case SQL_VARCHAR:
    case SQL_LONGVARCHAR:
    case SQL_WCHAR:
    case SQL_WVARCHAR:
    case SQL_WLONGVARCHAR: return true;
    default: return false;
    }
}

// The column as a text-match operator compares it: cast to text where the database
// has no LIKE on other types (the line's type is not a character type; an unknown type
// is cast too, which is harmless on text), else as it is.
std::u16string textMatchColumn(SQLHDBC connection, std::u16string column, int32_t sqlType) {
    if (isCharacterType(sqlType)) return column;
    const char16_t *cast = connection::capabilities(connection).textMatchCast;
    return cast == nullptr ? column : fillPattern(cast, {column});
}

} // namespace

std::u16string conditionText(SQLHDBC connection, std::u16string_view text, const ExpansionChars &expansion) {
    DescriptorLine line = parseDescriptorLine(text);
    const OperatorEntry *op = findOperatorByKey(kSelectionKind, line.key);
    if (line.column.empty() || op == nullptr) return {};
    if (!(op->flags & kNoValue) && line.value.empty()) return {};
    std::u16string column = sqltext::prepareNameForSql92(connection, line.column.c_str(), kQuotedColumnCapacity);
    std::u16string value = preparedValue(connection, *op, line);
    std::u16string_view any(&expansion[0], 1), open(&expansion[2], 1), close(&expansion[3], 1);
    std::u16string condition;
    if (op->code == 101)
        condition = fillPattern(op->pattern, {textMatchColumn(connection, column, line.dataType), open, value, any, close});
    else if (op->code == 108)
        condition =
            fillPattern(op->pattern, {textMatchColumn(connection, column, line.dataType), open, any, value, any, close});
    else
        condition = fillPattern(op->pattern, {column, value});
    if (condition.size() > kConditionLength) condition.resize(kConditionLength);
    return condition;
}

namespace {

// Pieces joined as the bounded work buffers join them: the joiner only while at least
// 6 characters are left (and counted), a piece only when it is shorter than the room.
class BoundedJoin {
public:
    BoundedJoin(std::u16string start, size_t room, std::u16string_view joiner)
        : text(std::move(start)), room(room), joiner_(joiner) {}
    void add(const std::u16string &piece) {
        if (piece.empty()) return;
        if (any && room >= 6) {
            text += joiner_;
            room -= joiner_.size();
        }
        any = true;
        if (piece.size() < room) {
            text += piece;
            room -= piece.size();
        }
    }
    std::u16string text;
    size_t room;
    bool any = false;

private:
    std::u16string_view joiner_;
};

} // namespace

std::u16string groupText(SQLHDBC connection, std::u16string_view group, const ExpansionChars &expansion) {
    BoundedJoin conditions(u"(", kGroupRoom, u" AND ");
    for (std::u16string_view line : splitNonEmpty(group, kLineEnd)) conditions.add(conditionText(connection, line, expansion));
    if (!conditions.any) return {};
    if (conditions.room >= 2) conditions.text += u')';
    return conditions.text;
}

std::u16string whereText(SQLHDBC connection, std::u16string_view descriptor, size_t outChars,
                         const ExpansionChars &expansion) {
    BoundedJoin groups(u"", outChars, u" OR ");
    for (std::u16string_view group : splitNonEmpty(descriptor, kGroupSeparator))
        groups.add(groupText(connection, group, expansion));
    return groups.text;
}

std::u16string setText(SQLHDBC connection, std::u16string_view descriptor, size_t outChars) {
    std::u16string text;
    std::u16string_view group = descriptor.substr(0, descriptor.find(kGroupSeparator));
    for (std::u16string_view lineText : splitNonEmpty(group, kLineEnd)) {
        DescriptorLine line = parseDescriptorLine(lineText);
        const OperatorEntry *op = findOperatorByKey(kAssignmentKind, line.key);
        if (line.column.empty() || op == nullptr) continue;
        if (!(op->flags & kNoValue) && line.value.empty()) continue;
        if (!text.empty()) text += u',';
        text += sqltext::prepareNameForSql92(connection, line.column.c_str(), kQuotedColumnCapacity);
        text += u'=';
        if (op->code == 300)
            text += u"NULL";
        else if (op->flags & kColumnValue)
            text += sqltext::prepareNameForSql92(connection, line.value.c_str(), kPreparedValueCapacity);
        else if (op->flags & kLiteralValue)
            text += formatSqlLiteral(line.value, line.dataType, kPreparedValueCapacity);
        else
            text += line.value;
        if (outChars > 0 && text.size() >= outChars) break;
    }
    if (outChars > 0 && text.size() > outChars - 1) text.resize(outChars - 1);
    return text;
}

} // namespace tabra::query

using namespace tabra::query;

namespace {

int32_t writeWhereClause(SQLHDBC connection, const char16_t *selDesc, char16_t *out, int32_t outChars,
                         const ExpansionChars &expansion) {
    if (out == nullptr || outChars < 1) return -1;
    out[0] = u'\0';
    if (selDesc == nullptr) return 0;
    OstrelCopyString(out, whereText(connection, selDesc, static_cast<size_t>(outChars), expansion).c_str(), outChars);
    return 0;
}

} // namespace

extern "C" int32_t Tabra_SelDesc_To_WhereClause_Expanded(SQLHDBC connection, const char16_t *selDesc,
                                                         char16_t *out, int32_t outChars,
                                                         const char16_t *expansionChars) {
    ExpansionChars expansion = kStandardExpansion;
    if (expansionChars != nullptr)
        for (size_t i = 0; i < expansion.size() && expansionChars[i] != u'\0'; ++i) expansion[i] = expansionChars[i];
    return writeWhereClause(connection, selDesc, out, outChars, expansion);
}

extern "C" int32_t Tabra_SelDesc_To_WhereClause(SQLHDBC connection, const char16_t *selDesc, char16_t *out,
                                                int32_t outChars) {
    return writeWhereClause(connection, selDesc, out, outChars, kStandardExpansion);
}

extern "C" void Tabra_OpDesc_To_SetClause(SQLHDBC connection, const char16_t *opDesc, char16_t *out,
                                          int32_t outChars) {
    if (out == nullptr || outChars < 1) return;
    out[0] = u'\0';
    if (opDesc == nullptr) return;
    OstrelCopyString(out, setText(connection, opDesc, static_cast<size_t>(outChars)).c_str(), outChars);
}
