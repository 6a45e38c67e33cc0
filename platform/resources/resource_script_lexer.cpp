// The resource script lexer. Strings are decoded from UTF-8 strictly: a script with
// a broken byte sequence is refused with its line rather than shown with
// replacement characters.
#include "platform/resources/resource_script_lexer.h"

#include "platform/text/utf_conversion.h"

#include <limits>

namespace tabra::platform {
namespace {

bool isWordStart(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isWordChar(char c) { return isWordStart(c) || isDigit(c); }

int hexValue(char c) {
    if (isDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

} // namespace

std::string describeToken(const Token &token) {
    switch (token.kind) {
    case TokenKind::Word: return token.word;
    case TokenKind::Number: return "number " + std::to_string(token.number);
    case TokenKind::String: return "a string";
    case TokenKind::Comma: return "\",\"";
    case TokenKind::Bar: return "\"|\"";
    case TokenKind::Equals: return "\"=\"";
    case TokenKind::Begin: return "BEGIN";
    case TokenKind::End: return "END";
    case TokenKind::EndOfText: return "the end of the file";
    }
    return "a token";
}

ScriptLexer::ScriptLexer(std::string_view source) : source_(source) {
    if (source_.substr(0, 3) == "\xEF\xBB\xBF") position_ = 3;
}

const Token &ScriptLexer::peek() {
    if (!peeked_) {
        lookahead_ = scan();
        peeked_ = true;
    }
    return lookahead_;
}

Token ScriptLexer::next() {
    if (peeked_) {
        peeked_ = false;
        return std::move(lookahead_);
    }
    return scan();
}

void ScriptLexer::skipBlanksAndComments() {
    while (position_ < source_.size()) {
        char c = source_[position_];
        if (c == '\n') {
            ++line_;
            ++position_;
        } else if (c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v') {
            ++position_;
        } else if (source_.substr(position_, 2) == "//") {
            while (position_ < source_.size() && source_[position_] != '\n') ++position_;
        } else if (source_.substr(position_, 2) == "/*") {
            int startLine = line_;
            size_t close = source_.find("*/", position_ + 2);
            if (close == std::string_view::npos) throw ScriptError(startLine, "comment is not closed (*/ missing)");
            for (size_t k = position_; k < close; ++k)
                if (source_[k] == '\n') ++line_;
            position_ = close + 2;
        } else {
            return;
        }
    }
}

Token ScriptLexer::scan() {
    skipBlanksAndComments();
    Token token;
    token.line = line_;
    if (position_ >= source_.size()) return token;
    char c = source_[position_];
    auto mark = [&](TokenKind kind) {
        ++position_;
        token.kind = kind;
        return token;
    };
    switch (c) {
    case ',': return mark(TokenKind::Comma);
    case '|': return mark(TokenKind::Bar);
    case '=': return mark(TokenKind::Equals);
    case '{': return mark(TokenKind::Begin);
    case '}': return mark(TokenKind::End);
    case '"': return scanString();
    default: break;
    }
    if (isDigit(c) || (c == '-' && position_ + 1 < source_.size() && isDigit(source_[position_ + 1])))
        return scanNumber();
    if (isWordStart(c)) return scanWord();
    if (static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) >= 0x7F)
        throw ScriptError(line_, "unexpected character (byte " + std::to_string(static_cast<unsigned char>(c)) + ")");
    throw ScriptError(line_, std::string("unexpected character '") + c + "'");
}

Token ScriptLexer::scanNumber() {
    Token token;
    token.kind = TokenKind::Number;
    token.line = line_;
    size_t start = position_;
    bool negative = source_[position_] == '-';
    if (negative) ++position_;
    int base = 10;
    if (source_.substr(position_, 2) == "0x" || source_.substr(position_, 2) == "0X") {
        base = 16;
        position_ += 2;
    }
    size_t digitsStart = position_;
    while (position_ < source_.size() && isWordChar(source_[position_])) ++position_;
    std::string_view spelling = source_.substr(start, position_ - start);
    std::string_view digits = source_.substr(digitsStart, position_ - digitsStart);
    auto bad = [&](const char *why) {
        return ScriptError(token.line, "bad number " + std::string(spelling) + " (" + why + ")");
    };
    if (digits.empty()) throw bad("no digits");
    constexpr int64_t limit = std::numeric_limits<uint32_t>::max();
    int64_t value = 0;
    for (char d : digits) {
        int v = base == 16 ? hexValue(d) : (isDigit(d) ? d - '0' : -1);
        if (v < 0) throw bad("not a digit");
        value = value * base + v;
        if (value > limit) throw bad("too large");
    }
    token.number = negative ? -value : value;
    return token;
}

Token ScriptLexer::scanWord() {
    Token token;
    token.kind = TokenKind::Word;
    token.line = line_;
    size_t start = position_;
    while (position_ < source_.size() && isWordChar(source_[position_])) ++position_;
    token.word = std::string(source_.substr(start, position_ - start));
    return token;
}

Token ScriptLexer::scanString() {
    Token token;
    token.kind = TokenKind::String;
    token.line = line_;
    std::string bytes;
    ++position_; // opening quote
    while (true) {
        if (position_ >= source_.size() || source_[position_] == '\n' || source_[position_] == '\r')
            throw ScriptError(token.line, "string is not closed (\" missing at the end of the line)");
        char c = source_[position_];
        if (c == '"' && source_.substr(position_, 2) == "\"\"") {
            bytes.push_back('"');
            position_ += 2;
        } else if (c == '"') {
            ++position_;
            break;
        } else if (c == '\\') {
            char escaped = position_ + 1 < source_.size() ? source_[position_ + 1] : '\0';
            switch (escaped) {
            case 'n': bytes.push_back('\n'); break;
            case 't': bytes.push_back('\t'); break;
            case '\\': bytes.push_back('\\'); break;
            case '"': bytes.push_back('"'); break;
            default:
                throw ScriptError(line_, std::string("unknown escape \\") + escaped +
                                             " in a string (known: \\n \\t \\\\ \\\")");
            }
            position_ += 2;
        } else {
            bytes.push_back(c);
            ++position_;
        }
    }
    if (!isValidUtf8(bytes)) throw ScriptError(token.line, "string is not valid UTF-8");
    token.text = fromUtf8(bytes);
    return token;
}

} // namespace tabra::platform
