// Taking SQLite's CREATE TABLE statement apart: a small tokenizer that knows SQLite's
// quoting and comments, enough to find the elements between the outer parentheses
// and the PRIMARY KEY clauses at their top level.
#include "admin/table_admin/table_definition.h"

#include <algorithm>
#include <array>

namespace tabra::admin::table_admin {
namespace {

enum class TokenKind { Word, Quoted, String, Open, Close, Comma, Other };

struct Token {
    size_t begin = 0;
    size_t end = 0;
    TokenKind kind = TokenKind::Other;
};

bool isWordCharacter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_' ||
           c == u'$' || c >= 0x80;
}

bool isSpace(char16_t c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r' || c == u'\f' || c == u'\v'; }

// The end of a quoted part starting at begin: the closing character, doubled to stand
// for itself (except in [ ]); the text's end when it is missing.
size_t quotedEnd(std::u16string_view text, size_t begin, char16_t close) {
    size_t at = begin + 1;
    while (at < text.size()) {
        if (text[at] == close) {
            if (close != u']' && at + 1 < text.size() && text[at + 1] == close) {
                at += 2;
                continue;
            }
            return at + 1;
        }
        ++at;
    }
    return text.size();
}

// The tokens of text; white space and comments separate them and are not tokens.
std::vector<Token> tokenize(std::u16string_view text) {
    std::vector<Token> tokens;
    size_t at = 0;
    while (at < text.size()) {
        char16_t c = text[at];
        if (isSpace(c)) {
            ++at;
        } else if (c == u'-' && at + 1 < text.size() && text[at + 1] == u'-') {
            at = std::min(text.find(u'\n', at), text.size());
        } else if (c == u'/' && at + 1 < text.size() && text[at + 1] == u'*') {
            size_t close = text.find(u"*/", at + 2);
            at = close == std::u16string_view::npos ? text.size() : close + 2;
        } else if (c == u'\'') {
            tokens.push_back({at, quotedEnd(text, at, u'\''), TokenKind::String});
            at = tokens.back().end;
        } else if (c == u'"' || c == u'`' || c == u'[') {
            tokens.push_back({at, quotedEnd(text, at, c == u'[' ? u']' : c), TokenKind::Quoted});
            at = tokens.back().end;
        } else if (isWordCharacter(c)) {
            size_t end = at;
            while (end < text.size() && isWordCharacter(text[end])) ++end;
            tokens.push_back({at, end, TokenKind::Word});
            at = end;
        } else {
            TokenKind kind = c == u'(' ? TokenKind::Open : c == u')' ? TokenKind::Close : c == u',' ? TokenKind::Comma
                                                                                                     : TokenKind::Other;
            tokens.push_back({at, at + 1, kind});
            ++at;
        }
    }
    return tokens;
}

// Whether the token is the keyword (ASCII letters, any case).
bool isKeyword(std::u16string_view text, const Token &token, std::u16string_view keyword) {
    if (token.kind != TokenKind::Word || token.end - token.begin != keyword.size()) return false;
    for (size_t i = 0; i < keyword.size(); ++i) {
        char16_t c = text[token.begin + i];
        if (c >= u'a' && c <= u'z') c = static_cast<char16_t>(c - u'a' + u'A');
        if (c != keyword[i]) return false;
    }
    return true;
}

bool isAnyKeyword(std::u16string_view text, const Token &token, std::initializer_list<std::u16string_view> keywords) {
    return std::any_of(keywords.begin(), keywords.end(), [&](auto keyword) { return isKeyword(text, token, keyword); });
}

// Where "PRIMARY KEY" starts among the tokens outside parentheses; npos when nowhere.
size_t findPrimaryKey(std::u16string_view text, const std::vector<Token> &tokens) {
    int depth = 0;
    for (size_t i = 0; i + 1 < tokens.size(); ++i) {
        if (tokens[i].kind == TokenKind::Open) ++depth;
        if (tokens[i].kind == TokenKind::Close) --depth;
        if (depth == 0 && isKeyword(text, tokens[i], u"PRIMARY") && isKeyword(text, tokens[i + 1], u"KEY")) return i;
    }
    return std::u16string_view::npos;
}

bool isTableConstraint(std::u16string_view text, const Token &first) {
    return isAnyKeyword(text, first, {u"CONSTRAINT", u"PRIMARY", u"UNIQUE", u"CHECK", u"FOREIGN"});
}

// The column definition without its primary key clause (tokens[at] is PRIMARY).
std::u16string withoutKeyClause(std::u16string_view text, const std::vector<Token> &tokens, size_t at) {
    size_t first = at >= 2 && isKeyword(text, tokens[at - 2], u"CONSTRAINT") ? at - 2 : at;
    size_t last = at + 1; // KEY
    size_t next = at + 2;
    if (next < tokens.size() && isAnyKeyword(text, tokens[next], {u"ASC", u"DESC"})) last = next++;
    if (next + 2 < tokens.size() && isKeyword(text, tokens[next], u"ON") && isKeyword(text, tokens[next + 1], u"CONFLICT"))
        last = next + 2, next += 3;
    if (next < tokens.size() && isKeyword(text, tokens[next], u"AUTOINCREMENT")) last = next;

    std::u16string before(text.substr(0, tokens[first].begin));
    std::u16string_view after = text.substr(tokens[last].end);
    while (!before.empty() && (before.back() == u' ' || before.back() == u'\t')) before.pop_back();
    while (!after.empty() && (after.front() == u' ' || after.front() == u'\t')) after.remove_prefix(1);
    if (!before.empty() && !after.empty() && !isSpace(before.back())) before += u' ';
    return before + std::u16string(after);
}

} // namespace

std::optional<TableDefinition> TableDefinition::parse(std::u16string_view statement) {
    const std::vector<Token> tokens = tokenize(statement);
    size_t at = 0;
    if (tokens.empty() || !isKeyword(statement, tokens[at++], u"CREATE")) return std::nullopt;
    if (at < tokens.size() && isAnyKeyword(statement, tokens[at], {u"TEMP", u"TEMPORARY"})) ++at;
    if (at >= tokens.size() || !isKeyword(statement, tokens[at], u"TABLE")) return std::nullopt;
    while (at < tokens.size() && tokens[at].kind != TokenKind::Open) ++at;
    if (at >= tokens.size()) return std::nullopt;

    TableDefinition definition;
    int depth = 0;
    size_t elementFirst = at + 1;
    for (size_t i = at; i < tokens.size(); ++i) {
        const Token &token = tokens[i];
        if (token.kind == TokenKind::Open) ++depth;
        bool ends = (token.kind == TokenKind::Comma && depth == 1) || (token.kind == TokenKind::Close && depth == 1);
        if (ends) {
            if (elementFirst >= i) return std::nullopt; // an empty element
            const Token &first = tokens[elementFirst];
            definition.elements_.push_back(
                {std::u16string(statement.substr(first.begin, tokens[i - 1].end - first.begin)),
                 isTableConstraint(statement, first)});
            elementFirst = i + 1;
        }
        if (token.kind == TokenKind::Close && --depth == 0) {
            std::u16string_view options = statement.substr(token.end);
            while (!options.empty() && isSpace(options.front())) options.remove_prefix(1);
            while (!options.empty() && (isSpace(options.back()) || options.back() == u';')) options.remove_suffix(1);
            definition.options_ = options;
            return definition;
        }
    }
    return std::nullopt; // the parenthesis is never closed
}

bool TableDefinition::hasPrimaryKey() const {
    return std::any_of(elements_.begin(), elements_.end(), [](const Element &element) {
        return findPrimaryKey(element.text, tokenize(element.text)) != std::u16string_view::npos;
    });
}

bool TableDefinition::dropPrimaryKey() {
    for (auto element = elements_.begin(); element != elements_.end(); ++element) {
        const std::vector<Token> tokens = tokenize(element->text);
        size_t at = findPrimaryKey(element->text, tokens);
        if (at == std::u16string_view::npos) continue;
        if (element->constraint) elements_.erase(element);
        else element->text = withoutKeyClause(element->text, tokens, at);
        return true;
    }
    return false;
}

void TableDefinition::addColumn(std::u16string definition) {
    auto firstConstraint = std::find_if(elements_.begin(), elements_.end(), [](const Element &e) { return e.constraint; });
    elements_.insert(firstConstraint, {std::move(definition), false});
}

void TableDefinition::addTableConstraint(std::u16string constraint) { elements_.push_back({std::move(constraint), true}); }

bool TableDefinition::withoutRowid() const {
    const std::vector<Token> tokens = tokenize(options_);
    for (size_t i = 0; i + 1 < tokens.size(); ++i)
        if (isKeyword(options_, tokens[i], u"WITHOUT") && isKeyword(options_, tokens[i + 1], u"ROWID")) return true;
    return false;
}

std::u16string TableDefinition::createStatement(std::u16string_view preparedName) const {
    std::u16string text = u"CREATE TABLE ";
    text += preparedName;
    text += u" (";
    for (size_t i = 0; i < elements_.size(); ++i) {
        if (i > 0) text += u", ";
        text += elements_[i].text;
    }
    text += u')';
    if (!options_.empty()) text += u' ' + options_;
    return text;
}

} // namespace tabra::admin::table_admin
