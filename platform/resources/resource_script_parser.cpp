// The resource script parser: a recursive descent over the lexer's tokens that
// builds the model and refuses anything it does not understand.
#include "platform/resources/resource_script_parser.h"

#include "platform/resources/resource_script_lexer.h"
#include "platform/resources/style_names.h"
#include "platform/text/utf_conversion.h"
#include "tabra_window_constants.h"

#include <algorithm>
#include <array>
#include <set>

namespace tabra::platform {
namespace {

constexpr uint32_t kChildVisible = WS_CHILD | WS_VISIBLE;

// The value range of each kind of number in a script.
struct Range {
    const char *what;
    int64_t low, high;
};
constexpr Range kStringIdRange{"string id", 0, 65535};
constexpr Range kResourceIdRange{"resource id", 1, 65535};
constexpr Range kControlIdRange{"control id", -1, 65535};
constexpr Range kCommandIdRange{"menu command id", 1, 65535};
constexpr Range kCoordinateRange{"coordinate", -32768, 32767};
constexpr Range kFontSizeRange{"font size", 1, 72};
constexpr Range kFontDetailRange{"font weight, italic or charset", 0, 1000};

// How a control statement is written and what it starts from.
enum class Shape { TextFirst, IdFirst, Icon, Generic };

struct ControlKeyword {
    std::string_view name;
    Shape shape;
    ControlKind kind;
    uint32_t defaultStyle; // WS_CHILD | WS_VISIBLE are added to every control
};

constexpr auto kControlKeywords = std::to_array<ControlKeyword>({
    {"LTEXT", Shape::TextFirst, ControlKind::Static, SS_LEFT | WS_GROUP},
    {"CTEXT", Shape::TextFirst, ControlKind::Static, SS_CENTER | WS_GROUP},
    {"RTEXT", Shape::TextFirst, ControlKind::Static, SS_RIGHT | WS_GROUP},
    {"PUSHBUTTON", Shape::TextFirst, ControlKind::PushButton, BS_PUSHBUTTON | WS_TABSTOP},
    {"DEFPUSHBUTTON", Shape::TextFirst, ControlKind::PushButton, BS_DEFPUSHBUTTON | WS_TABSTOP},
    {"CHECKBOX", Shape::TextFirst, ControlKind::CheckBox, BS_CHECKBOX | WS_TABSTOP},
    {"AUTOCHECKBOX", Shape::TextFirst, ControlKind::CheckBox, BS_AUTOCHECKBOX | WS_TABSTOP},
    {"STATE3", Shape::TextFirst, ControlKind::CheckBox, BS_3STATE | WS_TABSTOP},
    {"AUTO3STATE", Shape::TextFirst, ControlKind::CheckBox, BS_AUTO3STATE | WS_TABSTOP},
    {"RADIOBUTTON", Shape::TextFirst, ControlKind::RadioButton, BS_RADIOBUTTON | WS_TABSTOP},
    {"AUTORADIOBUTTON", Shape::TextFirst, ControlKind::RadioButton, BS_AUTORADIOBUTTON | WS_TABSTOP},
    {"GROUPBOX", Shape::TextFirst, ControlKind::GroupBox, BS_GROUPBOX},
    {"EDITTEXT", Shape::IdFirst, ControlKind::Edit, ES_LEFT | WS_BORDER | WS_TABSTOP},
    {"LISTBOX", Shape::IdFirst, ControlKind::ListBox, LBS_NOTIFY | WS_BORDER | WS_TABSTOP},
    {"COMBOBOX", Shape::IdFirst, ControlKind::ComboBox, CBS_SIMPLE | WS_TABSTOP},
    {"ICON", Shape::Icon, ControlKind::Picture, SS_ICON},
    {"CONTROL", Shape::Generic, ControlKind::Static, 0},
});

// The bits of a style that select a control's type rather than add a feature.
uint32_t typeMaskOf(ControlKind kind) {
    switch (kind) {
    case ControlKind::PushButton:
    case ControlKind::CheckBox:
    case ControlKind::RadioButton:
    case ControlKind::GroupBox: return BS_TYPEMASK;
    case ControlKind::Static:
    case ControlKind::Picture: return 0x1Fu;
    case ControlKind::ComboBox: return 0x3u;
    default: return 0;
    }
}

// A style expression: bits to set and bits that NOT removes.
struct StyleExpression {
    uint32_t set = 0;
    uint32_t cleared = 0;
};

std::string upper(std::string_view word) {
    std::string result(word);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](unsigned char c) { return static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c); });
    return result;
}

std::u16string asciiText(std::string_view text) { return std::u16string(text.begin(), text.end()); }

bool equalsIgnoringCase(std::u16string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        char16_t x = a[i] >= u'a' && a[i] <= u'z' ? a[i] - 32 : a[i];
        char y = b[i] >= 'a' && b[i] <= 'z' ? b[i] - 32 : b[i];
        if (x != static_cast<unsigned char>(y)) return false;
    }
    return true;
}

class ResourceScriptParser {
public:
    ResourceScriptParser(std::string_view script, std::string_view sourceName, ResourceTables &tables,
                         ResourceOrigins &origins)
        : lexer_(script), sourceName_(sourceName), tables_(tables), origins_(origins) {}

    void parse() {
        while (lexer_.peek().kind != TokenKind::EndOfText) {
            Token token = lexer_.next();
            if (isKeyword(token, "STRINGTABLE")) {
                parseStringTable();
            } else if (token.kind == TokenKind::Number) {
                int32_t id = checked(token, kResourceIdRange);
                Token type = lexer_.next();
                if (isKeyword(type, "DIALOG") || isKeyword(type, "DIALOGEX"))
                    parseDialog(id, token.line, isKeyword(type, "DIALOGEX"));
                else if (isKeyword(type, "MENU"))
                    parseMenu(id, token.line);
                else if (isKeyword(type, "PICTURE"))
                    parsePicture(id, token.line);
                else
                    throw ScriptError(type.line, "unknown resource type: " + describeToken(type) +
                                                     " (known: DIALOG, DIALOGEX, MENU, PICTURE)");
            } else {
                throw ScriptError(token.line, "unknown keyword: " + describeToken(token) +
                                                  " (expected STRINGTABLE or a resource id)");
            }
        }
    }

private:
    static bool isKeyword(const Token &token, std::string_view keyword) {
        return token.kind == TokenKind::Word && upper(token.word) == keyword;
    }
    static bool isBegin(const Token &token) { return token.kind == TokenKind::Begin || isKeyword(token, "BEGIN"); }
    static bool isEnd(const Token &token) { return token.kind == TokenKind::End || isKeyword(token, "END"); }

    static int32_t checked(const Token &token, const Range &range) {
        if (token.number < range.low || token.number > range.high)
            throw ScriptError(token.line, std::string(range.what) + " " + std::to_string(token.number) +
                                              " is out of range (" + std::to_string(range.low) + " to " +
                                              std::to_string(range.high) + ")");
        return static_cast<int32_t>(token.number);
    }

    Token expect(TokenKind kind, const char *what) {
        Token token = lexer_.next();
        if (token.kind != kind) throw ScriptError(token.line, std::string("expected ") + what + ", found " + describeToken(token));
        return token;
    }
    int32_t number(const Range &range) { return checked(expect(TokenKind::Number, range.what), range); }
    std::u16string string(const char *what) { return expect(TokenKind::String, what).text; }
    void comma() { expect(TokenKind::Comma, "\",\""); }
    bool optionalComma() {
        if (lexer_.peek().kind != TokenKind::Comma) return false;
        lexer_.next();
        return true;
    }

    // Opens a block and answers the line it was opened on.
    int openBlock() {
        Token token = lexer_.next();
        if (!isBegin(token)) throw ScriptError(token.line, "expected BEGIN, found " + describeToken(token));
        return token.line;
    }
    // True when the block's END comes next (and takes it); fails at the end of text.
    bool closesBlock(int openedOnLine) {
        const Token &token = lexer_.peek();
        if (token.kind == TokenKind::EndOfText)
            throw ScriptError(openedOnLine, "block is not closed (END missing for the BEGIN on this line)");
        if (!isEnd(token)) return false;
        lexer_.next();
        return true;
    }

    // Names and numbers joined by "|"; "NOT" before one removes its bits instead.
    StyleExpression styleExpression(bool messageStylesOnly) {
        StyleExpression style;
        while (true) {
            Token token = lexer_.next();
            bool negated = isKeyword(token, "NOT");
            if (negated) token = lexer_.next();
            (negated ? style.cleared : style.set) |= styleTerm(token, messageStylesOnly);
            if (lexer_.peek().kind != TokenKind::Bar) return style;
            lexer_.next();
        }
    }

    static uint32_t styleTerm(const Token &token, bool messageStylesOnly) {
        if (token.kind == TokenKind::Number) {
            if (token.number < 0) throw ScriptError(token.line, "a style cannot be negative");
            return static_cast<uint32_t>(token.number);
        }
        if (token.kind != TokenKind::Word)
            throw ScriptError(token.line, "expected a style name, found " + describeToken(token));
        auto value = styleValue(token.word);
        if (!value) throw ScriptError(token.line, "unknown style name: " + token.word);
        if (messageStylesOnly && token.word.rfind("MB_", 0) != 0)
            throw ScriptError(token.line, "a message string takes MB_ styles only, not " + token.word);
        return *value;
    }

    // Records where a resource is defined; one defined before fails with both places.
    void define(std::map<int32_t, std::string> &origins, const char *what, int32_t id, int line) {
        auto [first, added] = origins.emplace(id, std::string(sourceName_) + ":" + std::to_string(line));
        if (!added)
            throw ScriptError(line, std::string("duplicate ") + what + " id " + std::to_string(id) +
                                        ", already defined at " + first->second);
    }

    void parseStringTable() {
        int opened = openBlock();
        while (!closesBlock(opened)) {
            Token idToken = expect(TokenKind::Number, "a string id");
            int32_t id = checked(idToken, kStringIdRange);
            optionalComma();
            StringEntry entry;
            entry.text = string("the string's text");
            if (optionalComma()) entry.messageBoxStyle = styleExpression(true).set;
            define(origins_.strings, "string", id, idToken.line);
            tables_.strings.emplace(id, std::move(entry));
        }
    }

    void parsePicture(int32_t id, int line) {
        std::u16string file = string("the picture's file name");
        if (file.empty()) throw ScriptError(line, "picture " + std::to_string(id) + " names no file");
        define(origins_.pictures, "picture", id, line);
        // A picture file is named relative to the folder of the script that lists it.
        std::string path = toUtf8(file);
        if (path.front() != '/') {
            size_t slash = sourceName_.rfind('/');
            if (slash != std::string_view::npos) path = std::string(sourceName_.substr(0, slash + 1)) + path;
        }
        tables_.pictures[id] = std::move(path);
    }

    void parseDialog(int32_t id, int line, bool extended) {
        DialogTemplate dialog;
        dialog.id = id;
        dialog.x = number(kCoordinateRange);
        comma();
        dialog.y = number(kCoordinateRange);
        comma();
        dialog.width = number(kCoordinateRange);
        comma();
        dialog.height = number(kCoordinateRange);
        while (!isBegin(lexer_.peek())) {
            Token option = lexer_.next();
            if (option.kind == TokenKind::EndOfText)
                throw ScriptError(line, "dialog " + std::to_string(id) + " has no BEGIN ... END block");
            if (isKeyword(option, "STYLE")) {
                dialog.style = styleExpression(false).set;
            } else if (isKeyword(option, "CAPTION")) {
                dialog.caption = string("the caption");
            } else if (isKeyword(option, "FONT")) {
                dialog.fontSize = number(kFontSizeRange);
                comma();
                dialog.fontName = string("the font name");
                // DIALOGEX fonts may add weight, italic and character set; they are not used.
                for (int detail = 0; extended && detail < 3 && optionalComma(); ++detail) number(kFontDetailRange);
            } else {
                throw ScriptError(option.line, "unknown dialog option: " + describeToken(option) +
                                                   " (known: STYLE, CAPTION, FONT)");
            }
        }
        dialog.childPage = (dialog.style & WS_CHILD) != 0;
        int opened = openBlock();
        std::set<int32_t> controlIds;
        while (!closesBlock(opened)) {
            int controlLine = lexer_.peek().line;
            ControlTemplate control = parseControl();
            if (control.id != -1 && !controlIds.insert(control.id).second)
                throw ScriptError(controlLine, "duplicate control id " + std::to_string(control.id) +
                                                     " in dialog " + std::to_string(id));
            dialog.controls.push_back(std::move(control));
        }
        define(origins_.dialogs, "dialog", id, line);
        tables_.dialogs.emplace(id, std::move(dialog));
    }

    int32_t controlId() {
        Token token = lexer_.next();
        if (token.kind == TokenKind::Number) return checked(token, kControlIdRange);
        if (token.kind == TokenKind::Word) {
            if (auto value = controlIdValue(token.word)) return *value;
            throw ScriptError(token.line, "unknown control id name: " + token.word);
        }
        throw ScriptError(token.line, "expected a control id, found " + describeToken(token));
    }

    void rectangle(ControlTemplate &control) {
        control.x = number(kCoordinateRange);
        comma();
        control.y = number(kCoordinateRange);
        comma();
        control.width = number(kCoordinateRange);
        comma();
        control.height = number(kCoordinateRange);
    }

    // Applies an optional ", style [, extended style]" tail to a keyword's defaults.
    void styleTail(ControlTemplate &control, uint32_t defaultStyle) {
        StyleExpression style;
        if (optionalComma()) {
            style = styleExpression(false);
            if (optionalComma()) control.extendedStyle = styleExpression(false).set;
        }
        uint32_t typeMask = typeMaskOf(control.kind);
        uint32_t base = kChildVisible | defaultStyle;
        if ((style.set & typeMask) != 0) base &= ~typeMask;
        control.style = (base | style.set) & ~style.cleared;
    }

    ControlKind kindOfClass(const std::u16string &className, uint32_t style, int line) {
        if (equalsIgnoringCase(className, "Button")) {
            switch (style & BS_TYPEMASK) {
            case BS_PUSHBUTTON:
            case BS_DEFPUSHBUTTON: return ControlKind::PushButton;
            case BS_CHECKBOX:
            case BS_AUTOCHECKBOX:
            case BS_3STATE:
            case BS_AUTO3STATE: return ControlKind::CheckBox;
            case BS_RADIOBUTTON:
            case BS_AUTORADIOBUTTON: return ControlKind::RadioButton;
            case BS_GROUPBOX: return ControlKind::GroupBox;
            default: throw ScriptError(line, "unknown button type in the style");
            }
        }
        if (equalsIgnoringCase(className, "Static")) {
            uint32_t type = style & 0x1Fu;
            return type == SS_ICON || type == SS_BITMAP ? ControlKind::Picture : ControlKind::Static;
        }
        if (equalsIgnoringCase(className, "Edit")) return ControlKind::Edit;
        if (equalsIgnoringCase(className, "ListBox")) return ControlKind::ListBox;
        if (equalsIgnoringCase(className, "ComboBox")) return ControlKind::ComboBox;
        if (equalsIgnoringCase(className, "SysListView32")) return ControlKind::ListView;
        if (equalsIgnoringCase(className, "SysTabControl32")) return ControlKind::TabControl;
        if (equalsIgnoringCase(className, "msctls_progress32")) return ControlKind::Progress;
        throw ScriptError(line, "unknown control class (known: Static, Edit, Button, ListBox, ComboBox, "
                                "SysListView32, SysTabControl32, msctls_progress32)");
    }

    ControlTemplate parseControl() {
        Token keywordToken = lexer_.next();
        const ControlKeyword *keyword = nullptr;
        for (const auto &candidate : kControlKeywords)
            if (isKeyword(keywordToken, candidate.name)) keyword = &candidate;
        if (keyword == nullptr) throw ScriptError(keywordToken.line, "unknown control: " + describeToken(keywordToken));

        ControlTemplate control;
        control.kind = keyword->kind;
        switch (keyword->shape) {
        case Shape::TextFirst:
            control.text = string("the control's text");
            comma();
            control.id = controlId();
            comma();
            rectangle(control);
            styleTail(control, keyword->defaultStyle);
            break;
        case Shape::IdFirst:
            control.id = controlId();
            comma();
            rectangle(control);
            styleTail(control, keyword->defaultStyle);
            break;
        case Shape::Icon: {
            Token name = lexer_.next();
            if (name.kind == TokenKind::String) control.text = name.text;
            else if (name.kind == TokenKind::Word) control.text = asciiText(name.word);
            else if (name.kind == TokenKind::Number) control.text = asciiText("#" + std::to_string(name.number));
            else throw ScriptError(name.line, "expected an icon name, found " + describeToken(name));
            comma();
            control.id = controlId();
            comma();
            control.x = number(kCoordinateRange);
            comma();
            control.y = number(kCoordinateRange);
            if (optionalComma()) {
                control.width = number(kCoordinateRange);
                comma();
                control.height = number(kCoordinateRange);
            }
            styleTail(control, keyword->defaultStyle);
            break;
        }
        case Shape::Generic: {
            control.text = string("the control's text");
            comma();
            control.id = controlId();
            comma();
            Token classToken = expect(TokenKind::String, "the control class");
            comma();
            StyleExpression style = styleExpression(false);
            control.style = (kChildVisible | style.set) & ~style.cleared;
            control.kind = kindOfClass(classToken.text, control.style, classToken.line);
            comma();
            rectangle(control);
            if (optionalComma()) control.extendedStyle = styleExpression(false).set;
            break;
        }
        }
        return control;
    }

    void parseMenu(int32_t id, int line) {
        MenuTemplate menu;
        menu.id = id;
        std::set<int32_t> commandIds;
        parseMenuItems(menu.items, commandIds);
        define(origins_.menus, "menu", id, line);
        tables_.menus.emplace(id, std::move(menu));
    }

    void parseMenuItems(std::vector<MenuItemTemplate> &items, std::set<int32_t> &commandIds) {
        int opened = openBlock();
        while (!closesBlock(opened)) {
            Token token = lexer_.next();
            MenuItemTemplate item;
            if (isKeyword(token, "MENUITEM")) {
                if (isKeyword(lexer_.peek(), "SEPARATOR")) {
                    lexer_.next();
                    item.separator = true;
                } else {
                    item.text = string("the menu item's text");
                    comma();
                    Token idToken = expect(TokenKind::Number, kCommandIdRange.what);
                    item.id = checked(idToken, kCommandIdRange);
                    if (!commandIds.insert(item.id).second)
                        throw ScriptError(idToken.line, "duplicate menu command id " + std::to_string(item.id));
                }
            } else if (isKeyword(token, "POPUP")) {
                item.text = string("the popup's text");
                parseMenuItems(item.children, commandIds);
            } else {
                throw ScriptError(token.line, "unknown menu item: " + describeToken(token) +
                                                  " (known: MENUITEM, POPUP)");
            }
            items.push_back(std::move(item));
        }
    }

    ScriptLexer lexer_;
    std::string_view sourceName_;
    ResourceTables &tables_;
    ResourceOrigins &origins_;
};

} // namespace

std::string parseResourceScriptInto(std::string_view script, std::string_view sourceName, ResourceTables &tables,
                                    ResourceOrigins &origins) {
    try {
        ResourceScriptParser(script, sourceName, tables, origins).parse();
    } catch (const ScriptError &error) {
        return std::string(sourceName) + ":" + std::to_string(error.line()) + ": " + error.what();
    }
    return {};
}

ResourceScriptParse parseResourceScript(std::string_view script, std::string_view sourceName) {
    ResourceScriptParse result;
    ResourceTables tables;
    ResourceOrigins origins;
    result.error = parseResourceScriptInto(script, sourceName, tables, origins);
    if (result.error.empty()) result.tables = std::move(tables);
    return result;
}

} // namespace tabra::platform
