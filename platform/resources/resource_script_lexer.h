// Splits a resource script (UTF-8 text) into tokens, each with the line it starts
// on. Resource scripts and translation tables share this lexer.
//
// Tokens: words (letters, digits and "_", not starting with a digit), numbers
// (decimal or 0x hexadecimal, an optional leading "-"), strings in double quotes
// ("" stands for one quote; \n, \t, \\ and \" are the escapes), and the marks
// , | = { }. Comments run from // to the end of the line or between /* and */.
// A byte-order mark at the start is skipped. Anything else is an error.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tabra::platform {

// A fault in a script: the line it was found on and what is wrong. Thrown inside the
// parsers only; their entry points turn it into a "name:line: message" text.
class ScriptError : public std::runtime_error {
public:
    ScriptError(int line, const std::string &message) : std::runtime_error(message), line_(line) {}
    int line() const { return line_; }

private:
    int line_;
};

enum class TokenKind { Word, Number, String, Comma, Bar, Equals, Begin, End, EndOfText };

struct Token {
    TokenKind kind = TokenKind::EndOfText;
    int line = 0;
    std::string word;   // Word: its spelling
    int64_t number = 0; // Number: its value
    std::u16string text; // String: its contents, escapes resolved
};

// Describes a token for messages: "the end of the file", "STYLE", "number 12", ...
std::string describeToken(const Token &token);

class ScriptLexer {
public:
    explicit ScriptLexer(std::string_view source);

    // The next token without taking it, and taking it.
    const Token &peek();
    Token next();

    int line() const { return line_; }

private:
    Token scan();
    void skipBlanksAndComments();
    Token scanNumber();
    Token scanWord();
    Token scanString();

    std::string_view source_;
    size_t position_ = 0;
    int line_ = 1;
    bool peeked_ = false;
    Token lookahead_;
};

} // namespace tabra::platform
