// The script format of the scripted driver.
//
// One action per line, UTF-8. Blank lines and lines whose first non-blank character is
// "#" are ignored. A line is "PROMPT: VERB ARGUMENTS":
//
//   PROMPT   dialog ID | message [ID] | file | menu [ID] | progress
//   dialog   set CONTROL "text"        type CONTROL "text"      expect CONTROL "text"
//            select CONTROL ENTRY...   toggle CONTROL ENTRY     check CONTROL [ENTRY]
//            uncheck CONTROL [ENTRY]   click CONTROL            close
//            doubleclick CONTROL [ENTRY]                        rightclick CONTROL [ENTRY]
//            drag CONTROL ENTRY to CONTROL [ENTRY]
//            press tab|backtab|enter|escape
//   message  answer yes|no|cancel|ok|abort|retry|ignore
//   file     choose "path" | cancel
//   menu     choose COMMAND | cancel
//   progress abort [at VALUE]
//
// CONTROL, ID, COMMAND and VALUE are decimal integers. ENTRY is a text in double
// quotes (matched exactly, then ignoring case) or #INDEX (0-based). Texts take the
// escapes \" \\ \n \r \t and \b (backspace). Words are case-insensitive. Anything
// else (an unknown word, a missing or extra argument, an unterminated text) is an
// error naming the line.
#include "platform/script/script_parser.h"

#include "platform/text/utf_conversion.h"
#include "tabra_window_constants.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <map>

namespace tabra::window {
namespace {

struct Token {
    enum class Kind { Word, Number, Text, Index } kind = Kind::Word;
    std::string word;    // lower case for words
    int64_t number = 0;  // numbers and indices
    std::u16string text; // texts
};

std::string lower(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

bool parseNumber(std::string_view text, int64_t &value) {
    if (text.empty()) return false;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() && value >= INT32_MIN && value <= INT32_MAX;
}

// Splits the action part into tokens; false with a reason on a malformed token.
bool tokenize(std::string_view text, std::vector<Token> &tokens, std::string &error) {
    std::size_t i = 0;
    while (i < text.size()) {
        char c = text[i];
        if (c == ' ' || c == '\t') {
            ++i;
            continue;
        }
        Token token;
        if (c == '"') {
            std::string bytes;
            ++i;
            bool closed = false;
            while (i < text.size()) {
                char d = text[i++];
                if (d == '"') {
                    closed = true;
                    break;
                }
                if (d != '\\') {
                    bytes.push_back(d);
                    continue;
                }
                if (i >= text.size()) break;
                char e = text[i++];
                switch (e) {
                case '"': bytes.push_back('"'); break;
                case '\\': bytes.push_back('\\'); break;
                case 'n': bytes.push_back('\n'); break;
                case 'r': bytes.push_back('\r'); break;
                case 't': bytes.push_back('\t'); break;
                case 'b': bytes.push_back('\b'); break;
                default: error = std::string("unknown escape \\") + e; return false;
                }
            }
            if (!closed) {
                error = "unterminated text";
                return false;
            }
            token.kind = Token::Kind::Text;
            token.text = platform::fromUtf8(bytes);
        } else {
            std::size_t end = text.find_first_of(" \t\"", i);
            if (end == std::string_view::npos) end = text.size();
            std::string_view word = text.substr(i, end - i);
            i = end;
            if (word.front() == '#') {
                if (!parseNumber(word.substr(1), token.number) || token.number < 0) {
                    error = "bad entry index " + std::string(word);
                    return false;
                }
                token.kind = Token::Kind::Index;
            } else if (parseNumber(word, token.number)) {
                token.kind = Token::Kind::Number;
            } else {
                token.kind = Token::Kind::Word;
                token.word = lower(word);
            }
        }
        tokens.push_back(std::move(token));
    }
    return true;
}

class ActionReader {
public:
    ActionReader(std::vector<Token> tokens, ScriptAction &action) : tokens_(std::move(tokens)), action_(action) {}

    bool read(std::string &error) {
        if (tokens_.empty()) return fail(error, "no action after the prompt");
        const Token &verb = tokens_[0];
        if (verb.kind != Token::Kind::Word) return fail(error, "the action must start with a word");
        next_ = 1;
        switch (action_.prompt) {
        case PromptKind::Dialog: return dialogAction(verb.word, error);
        case PromptKind::Message: return messageAction(verb.word, error);
        case PromptKind::File: return fileAction(verb.word, error);
        case PromptKind::Menu: return menuAction(verb.word, error);
        case PromptKind::Progress: return progressAction(verb.word, error);
        }
        return fail(error, "unknown prompt");
    }

private:
    static bool fail(std::string &error, std::string message) {
        error = std::move(message);
        return false;
    }

    bool more() const { return next_ < tokens_.size(); }

    bool number(int32_t &value, const char *what, std::string &error) {
        if (!more() || tokens_[next_].kind != Token::Kind::Number) return fail(error, std::string("expected ") + what);
        value = static_cast<int32_t>(tokens_[next_++].number);
        return true;
    }

    bool text(std::u16string &value, std::string &error) {
        if (!more() || tokens_[next_].kind != Token::Kind::Text) return fail(error, "expected a text in double quotes");
        value = tokens_[next_++].text;
        return true;
    }

    bool entry(std::string &error) {
        if (!more()) return fail(error, "expected an entry (\"text\" or #index)");
        const Token &token = tokens_[next_];
        if (token.kind == Token::Kind::Text) action_.entries.push_back({false, 0, token.text});
        else if (token.kind == Token::Kind::Index) action_.entries.push_back({true, static_cast<int32_t>(token.number), {}});
        else return fail(error, "expected an entry (\"text\" or #index)");
        ++next_;
        return true;
    }

    bool key(std::string &error) {
        static const std::map<std::string, DialogKey> keys{
            {"tab", DialogKey::Tab}, {"backtab", DialogKey::BackTab}, {"enter", DialogKey::Enter}, {"escape", DialogKey::Escape}};
        auto found = more() && tokens_[next_].kind == Token::Kind::Word ? keys.find(tokens_[next_].word) : keys.end();
        if (found == keys.end()) return fail(error, "expected a key (tab, backtab, enter, escape)");
        action_.key = found->second;
        ++next_;
        return true;
    }

    bool end(std::string &error) { return more() ? fail(error, "unexpected words at the end") : true; }

    bool dialogAction(const std::string &verb, std::string &error) {
        static const std::map<std::string, Verb> verbs{
            {"set", Verb::Set},       {"type", Verb::Type},     {"select", Verb::Select},
            {"toggle", Verb::Toggle}, {"check", Verb::Check},   {"uncheck", Verb::Uncheck},
            {"click", Verb::Click},   {"doubleclick", Verb::DoubleClick}, {"rightclick", Verb::RightClick},
            {"drag", Verb::Drag},
            {"close", Verb::Close},   {"expect", Verb::Expect}, {"press", Verb::Press}};
        auto found = verbs.find(verb);
        if (found == verbs.end()) return fail(error, "unknown dialog action \"" + verb + "\"");
        action_.verb = found->second;
        if (action_.verb == Verb::Close) return end(error);
        if (action_.verb == Verb::Press) return key(error) && end(error);
        if (!number(action_.control, "a control id", error)) return false;
        switch (action_.verb) {
        case Verb::Set:
        case Verb::Type:
        case Verb::Expect:
            return text(action_.text, error) && end(error);
        case Verb::Select:
            if (!entry(error)) return false;
            while (more())
                if (!entry(error)) return false;
            return true;
        case Verb::Toggle:
            return entry(error) && end(error);
        case Verb::Drag:
            if (!entry(error)) return false;
            if (!more() || tokens_[next_].kind != Token::Kind::Word || tokens_[next_].word != "to")
                return fail(error, "expected \"to\" and the list the entry is dropped on");
            ++next_;
            if (!number(action_.dropControl, "a control id", error)) return false;
            if (more() && !entry(error)) return false;
            return end(error);
        case Verb::DoubleClick:
        case Verb::RightClick:
        case Verb::Check:
        case Verb::Uncheck:
            if (more() && !entry(error)) return false;
            return end(error);
        default:
            return end(error);
        }
    }

    bool messageAction(const std::string &verb, std::string &error) {
        static const std::map<std::string, int32_t> answers{{"ok", IDOK},       {"cancel", IDCANCEL}, {"yes", IDYES},
                                                            {"no", IDNO},       {"abort", IDABORT},   {"retry", IDRETRY},
                                                            {"ignore", IDIGNORE}};
        if (verb != "answer") return fail(error, "a message takes \"answer\"");
        action_.verb = Verb::Answer;
        if (!more() || tokens_[next_].kind != Token::Kind::Word) return fail(error, "expected an answer (yes, no, ...)");
        auto found = answers.find(tokens_[next_].word);
        if (found == answers.end()) return fail(error, "unknown answer \"" + tokens_[next_].word + "\"");
        action_.answer = found->second;
        ++next_;
        return end(error);
    }

    bool fileAction(const std::string &verb, std::string &error) {
        if (verb == "cancel") {
            action_.verb = Verb::Cancel;
            return end(error);
        }
        if (verb != "choose") return fail(error, "a file dialog takes \"choose\" or \"cancel\"");
        action_.verb = Verb::Choose;
        return text(action_.text, error) && end(error);
    }

    bool menuAction(const std::string &verb, std::string &error) {
        if (verb == "cancel") {
            action_.verb = Verb::Cancel;
            return end(error);
        }
        if (verb != "choose") return fail(error, "a menu takes \"choose\" or \"cancel\"");
        action_.verb = Verb::Choose;
        return number(action_.answer, "a command id", error) && end(error);
    }

    bool progressAction(const std::string &verb, std::string &error) {
        if (verb != "abort") return fail(error, "a progress indicator takes \"abort\"");
        action_.verb = Verb::Abort;
        if (!more()) return true;
        if (tokens_[next_].kind != Token::Kind::Word || tokens_[next_].word != "at") return fail(error, "expected \"at\"");
        ++next_;
        return number(action_.abortAt, "a position", error) && end(error);
    }

    std::vector<Token> tokens_;
    ScriptAction &action_;
    std::size_t next_ = 0;
};

bool readPrompt(std::string_view text, ScriptAction &action, std::string &error) {
    std::vector<Token> tokens;
    if (!tokenize(text, tokens, error)) return false;
    if (tokens.empty() || tokens[0].kind != Token::Kind::Word) {
        error = "expected a prompt (dialog, message, file, menu, progress)";
        return false;
    }
    static const std::map<std::string, PromptKind> prompts{{"dialog", PromptKind::Dialog},
                                                           {"message", PromptKind::Message},
                                                           {"file", PromptKind::File},
                                                           {"menu", PromptKind::Menu},
                                                           {"progress", PromptKind::Progress}};
    auto found = prompts.find(tokens[0].word);
    if (found == prompts.end()) {
        error = "unknown prompt \"" + tokens[0].word + "\"";
        return false;
    }
    action.prompt = found->second;
    bool takesId = action.prompt == PromptKind::Dialog || action.prompt == PromptKind::Message ||
                   action.prompt == PromptKind::Menu;
    if (tokens.size() > 2 || (tokens.size() == 2 && (!takesId || tokens[1].kind != Token::Kind::Number))) {
        error = "unexpected words in the prompt";
        return false;
    }
    if (tokens.size() == 2) action.promptId = static_cast<int32_t>(tokens[1].number);
    if (action.prompt == PromptKind::Dialog && tokens.size() != 2) {
        error = "a dialog prompt needs its template id";
        return false;
    }
    return true;
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r')) text.remove_suffix(1);
    return text;
}

} // namespace

ParsedLine parseScriptLine(std::string_view line) {
    ParsedLine parsed;
    std::string_view text = trimmed(line);
    if (text.empty() || text.front() == '#') return parsed;
    if (!platform::isValidUtf8(text)) {
        parsed.error = "the line is not UTF-8";
        return parsed;
    }
    std::size_t colon = text.find(':');
    std::size_t quote = text.find('"');
    if (colon == std::string_view::npos || (quote != std::string_view::npos && quote < colon)) {
        parsed.error = "expected \"prompt: action\"";
        return parsed;
    }
    ScriptAction action;
    action.source = std::string(text);
    if (!readPrompt(text.substr(0, colon), action, parsed.error)) return parsed;
    std::vector<Token> tokens;
    if (!tokenize(text.substr(colon + 1), tokens, parsed.error)) return parsed;
    if (!ActionReader(std::move(tokens), action).read(parsed.error)) return parsed;
    parsed.action = std::move(action);
    return parsed;
}

ParsedScript parseScript(std::string_view text, std::string_view name) {
    ParsedScript script;
    std::size_t start = 0;
    int lineNumber = 0;
    while (start <= text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) end = text.size();
        ++lineNumber;
        ParsedLine line = parseScriptLine(text.substr(start, end - start));
        if (!line.error.empty()) {
            script.actions.clear();
            script.error = std::string(name) + ":" + std::to_string(lineNumber) + ": " + line.error;
            return script;
        }
        if (line.action) {
            line.action->source = std::string(name) + ":" + std::to_string(lineNumber) + ": " + line.action->source;
            script.actions.push_back(std::move(*line.action));
        }
        if (end == text.size()) break;
        start = end + 1;
    }
    return script;
}

std::string describePrompt(PromptKind kind, int32_t id) {
    std::string text;
    switch (kind) {
    case PromptKind::Dialog: text = "dialog"; break;
    case PromptKind::Message: text = "message"; break;
    case PromptKind::File: text = "file dialog"; break;
    case PromptKind::Menu: text = "menu"; break;
    case PromptKind::Progress: text = "progress indicator"; break;
    }
    if (id != ScriptAction::kAnyPrompt) text += " " + std::to_string(id);
    return text;
}

std::string describeAction(const ScriptAction &action) {
    if (!action.source.empty()) return action.source;
    if (action.verb == Verb::Callback) return describePrompt(action.prompt, action.promptId) + ": (callback)";
    return describePrompt(action.prompt, action.promptId) + ": (action)";
}

} // namespace tabra::window
