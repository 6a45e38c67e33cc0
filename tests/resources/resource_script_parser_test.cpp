// The resource script parser: what a sound script turns into, and that every kind of
// fault stops the load with the file and line where it is.
#include "platform/resources/resource_script_parser.h"
#include "tabra_window_constants.h"

#include <gtest/gtest.h>

#include <cctype>
#include <vector>

using tabra::platform::ControlKind;
using tabra::platform::ControlTemplate;
using tabra::platform::DialogTemplate;
using tabra::platform::parseResourceScript;
using tabra::platform::ResourceTables;

namespace {

ResourceTables parsedOrFail(const std::string &script) {
    auto parsed = parseResourceScript(script, "test.rc");
    EXPECT_TRUE(parsed.tables.has_value()) << parsed.error;
    return parsed.tables.value_or(ResourceTables{});
}

const ControlTemplate &control(const DialogTemplate &dialog, int32_t id) {
    for (const auto &c : dialog.controls)
        if (c.id == id) return c;
    static ControlTemplate missing;
    ADD_FAILURE() << "control " << id << " missing";
    return missing;
}

} // namespace

TEST(ResourceScriptParser, StringsKeepTheirTextEscapesAndMessageStyle) {
    auto tables = parsedOrFail(R"(
        STRINGTABLE
        BEGIN
            1600, "Say ""hi""\n\tthen a \\ and a \" quote"
            1700 "Größe 😀?", MB_YESNOCANCEL | MB_ICONQUESTION | MB_DEFBUTTON2
            0, ""
            65535, "last"
        END
        stringtable { 2900, "Tabra" }
    )");
    ASSERT_EQ(tables.strings.size(), 5u);
    EXPECT_EQ(tables.strings[1600].text, u"Say \"hi\"\n\tthen a \\ and a \" quote");
    EXPECT_EQ(tables.strings[1600].messageBoxStyle, 0u);
    EXPECT_EQ(tables.strings[1700].text, u"Größe \U0001F600?");
    EXPECT_EQ(tables.strings[1700].messageBoxStyle, MB_YESNOCANCEL | MB_ICONQUESTION | MB_DEFBUTTON2);
    EXPECT_EQ(tables.strings[0].text, u"");
    EXPECT_EQ(tables.strings[2900].text, u"Tabra");
}

TEST(ResourceScriptParser, DialogHeaderAndControlKinds) {
    auto tables = parsedOrFail(R"(
        // A dialog with one control of each statement.
        10025 DIALOGEX 10, 20, 320, 232
        STYLE DS_MODALFRAME | WS_POPUP | WS_CAPTION
        CAPTION "ODBC Error"
        FONT 8, "Sans", 400, 0, 1
        BEGIN
            LTEXT "&Vendor:", IDC_STATIC, 7, 9, 60, 8
            CTEXT "centre", -1, 7, 20, 60, 8
            EDITTEXT 2144, 7, 91, 306, 48, ES_MULTILINE | ES_READONLY | WS_VSCROLL
            EDITTEXT 1003, 70, 120, 163, 14, ES_PASSWORD
            DEFPUSHBUTTON "OK", IDOK, 209, 211, 50, 14
            PUSHBUTTON "&More...", 1005, 7, 211, 50, 14, NOT WS_VISIBLE
            AUTOCHECKBOX "Header", 1010, 7, 30, 80, 10
            AUTORADIOBUTTON "Tab", 1011, 7, 40, 80, 10, WS_GROUP
            GROUPBOX "Separator", 1012, 5, 28, 100, 40
            LISTBOX 1004, 7, 17, 226, 84, LBS_NOTIFY | LBS_EXTENDEDSEL | WS_VSCROLL
            COMBOBOX 1020, 7, 50, 100, 80, CBS_DROPDOWN | CBS_SORT
            COMBOBOX 1021, 7, 60, 100, 80
            ICON "question", 1030, 7, 70
            CONTROL "", 1040, "SysListView32", LVS_REPORT | LVS_SHOWSELALWAYS | WS_BORDER, 7, 80, 200, 60, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES
            CONTROL "", 1041, "SysTabControl32", 0, 7, 150, 200, 60
            CONTROL "", 1042, "msctls_progress32", WS_BORDER, 7, 215, 100, 10
            CONTROL "Keep", 1043, "button", BS_AUTOCHECKBOX | WS_TABSTOP, 120, 30, 80, 10
            CONTROL "", 1044, "Static", SS_ICON, 120, 40, 20, 20
        END
    )");
    ASSERT_EQ(tables.dialogs.count(10025), 1u);
    const DialogTemplate &dialog = tables.dialogs[10025];
    EXPECT_EQ(dialog.caption, u"ODBC Error");
    EXPECT_EQ(dialog.fontName, u"Sans");
    EXPECT_EQ(dialog.fontSize, 8);
    EXPECT_EQ(std::vector<int>({dialog.x, dialog.y, dialog.width, dialog.height}), std::vector<int>({10, 20, 320, 232}));
    EXPECT_FALSE(dialog.childPage);
    ASSERT_EQ(dialog.controls.size(), 18u);
    const auto &label = dialog.controls[0]; // controls keep their order
    EXPECT_EQ(label.text, u"&Vendor:");
    EXPECT_EQ(std::vector<int>({label.x, label.y, label.width, label.height}), std::vector<int>({7, 9, 60, 8}));
    EXPECT_EQ(dialog.controls[1].style & 0x1Fu, SS_CENTER);

    // Each statement's kind, and its style under a mask: the keyword's defaults, the
    // script's bits, NOT removing a default bit.
    constexpr uint32_t childVisible = WS_CHILD | WS_VISIBLE;
    struct Expected {
        int32_t id;
        ControlKind kind;
        uint32_t mask, style;
    };
    const Expected expected[] = {
        {-1, ControlKind::Static, ~0u, childVisible | WS_GROUP | SS_LEFT},
        {2144, ControlKind::Edit, ~0u, childVisible | WS_BORDER | WS_TABSTOP | ES_MULTILINE | ES_READONLY | WS_VSCROLL},
        {1003, ControlKind::Edit, ES_PASSWORD, ES_PASSWORD},
        {IDOK, ControlKind::PushButton, BS_TYPEMASK, BS_DEFPUSHBUTTON},
        {1005, ControlKind::PushButton, BS_TYPEMASK | WS_VISIBLE | WS_TABSTOP, BS_PUSHBUTTON | WS_TABSTOP},
        {1010, ControlKind::CheckBox, BS_TYPEMASK, BS_AUTOCHECKBOX},
        {1011, ControlKind::RadioButton, WS_GROUP, WS_GROUP},
        {1012, ControlKind::GroupBox, 0, 0},
        {1004, ControlKind::ListBox, LBS_EXTENDEDSEL, LBS_EXTENDEDSEL},
        {1020, ControlKind::ComboBox, 0x3u | CBS_SORT, CBS_DROPDOWN | CBS_SORT}, // replaces the default CBS_SIMPLE
        {1021, ControlKind::ComboBox, 0x3u, CBS_SIMPLE},
        {1030, ControlKind::Picture, 0, 0},
        {1040, ControlKind::ListView, ~0u, childVisible | LVS_REPORT | LVS_SHOWSELALWAYS | WS_BORDER},
        {1041, ControlKind::TabControl, 0, 0},
        {1042, ControlKind::Progress, 0, 0},
        {1043, ControlKind::CheckBox, 0, 0}, // class names are case-insensitive
        {1044, ControlKind::Picture, 0, 0},
    };
    for (const Expected &e : expected) {
        const ControlTemplate &c = control(dialog, e.id);
        EXPECT_EQ(c.kind, e.kind) << e.id;
        EXPECT_EQ(c.style & e.mask, e.style) << e.id;
    }
    EXPECT_EQ(control(dialog, 1030).text, u"question");
    EXPECT_EQ(control(dialog, 1040).extendedStyle, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    EXPECT_EQ(control(dialog, 1040).width, 200);
}

TEST(ResourceScriptParser, ChildPagesAndDialogsWithoutOptions) {
    auto tables = parsedOrFail(R"(
        10050 dialog 0, 0, 200, 100
        style WS_CHILD | DS_CONTROL
        { LTEXT "Page", -1, 7, 7, 50, 8 }
        10051 DIALOG 0, 0, 50, 20
        BEGIN
        END
    )");
    EXPECT_TRUE(tables.dialogs[10050].childPage);
    EXPECT_EQ(tables.dialogs[10050].controls.size(), 1u);
    EXPECT_FALSE(tables.dialogs[10051].childPage);
    EXPECT_TRUE(tables.dialogs[10051].controls.empty());
    EXPECT_TRUE(tables.dialogs[10051].caption.empty());
}

TEST(ResourceScriptParser, MenusNestPopupsAndSeparators) {
    auto tables = parsedOrFail(R"(
        113 MENU
        BEGIN
            POPUP "Columns"
            BEGIN
                MENUITEM "&Delete\tDel", 40002
                MENUITEM SEPARATOR
                POPUP "More"
                BEGIN
                    MENUITEM "Refresh", 40003
                END
            END
        END
    )");
    ASSERT_EQ(tables.menus.count(113), 1u);
    const auto &items = tables.menus[113].items;
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].text, u"Columns");
    ASSERT_EQ(items[0].children.size(), 3u);
    EXPECT_EQ(items[0].children[0].text, u"&Delete\tDel");
    EXPECT_EQ(items[0].children[0].id, 40002);
    EXPECT_TRUE(items[0].children[1].separator);
    ASSERT_EQ(items[0].children[2].children.size(), 1u);
    EXPECT_EQ(items[0].children[2].children[0].id, 40003);
}

struct BrokenScript {
    const char *what;
    const char *script;
    int line;
    const char *message; // a part of the message
};

class ResourceScriptFaults : public ::testing::TestWithParam<BrokenScript> {};

TEST_P(ResourceScriptFaults, FailWithFileAndLine) {
    const BrokenScript &broken = GetParam();
    auto parsed = parseResourceScript(broken.script, "de/tabraRes.rc");
    ASSERT_FALSE(parsed.tables.has_value()) << broken.what;
    std::string where = "de/tabraRes.rc:" + std::to_string(broken.line) + ": ";
    EXPECT_EQ(parsed.error.rfind(where, 0), 0u) << parsed.error;
    EXPECT_NE(parsed.error.find(broken.message), std::string::npos) << parsed.error;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ResourceScriptFaults,
    ::testing::Values(
        BrokenScript{"unknown top keyword", "STRINGTABLE\nBEGIN\nEND\nVERSIONINFO\n", 4, "unknown keyword"},
        BrokenScript{"unknown resource type", "\n10 BITMAP \"x.bmp\"\n", 2, "unknown resource type"},
        BrokenScript{"unknown control", "10 DIALOG 0, 0, 100, 50\nBEGIN\n  SCROLLBAR 1, 0, 0, 5, 5\nEND\n", 3,
                     "unknown control"},
        BrokenScript{"unknown dialog option", "10 DIALOG 0, 0, 100, 50\nMENU 4\nBEGIN\nEND\n", 2,
                     "unknown dialog option"},
        BrokenScript{"letters in a number", "STRINGTABLE\nBEGIN\n  16a0, \"x\"\nEND\n", 3, "bad number 16a0"},
        BrokenScript{"huge number", "STRINGTABLE\nBEGIN\n  99999999999, \"x\"\nEND\n", 3, "too large"},
        BrokenScript{"string id too large", "STRINGTABLE\nBEGIN\n  1, \"a\"\n  70000, \"x\"\nEND\n", 4,
                     "string id 70000 is out of range"},
        BrokenScript{"duplicate string id", "STRINGTABLE\nBEGIN\n  1600, \"a\"\nEND\nSTRINGTABLE\nBEGIN\n  1600, \"b\"\nEND\n",
                     7, "duplicate string id 1600, already defined at de/tabraRes.rc:3"},
        BrokenScript{"duplicate control id",
                     "10 DIALOG 0, 0, 100, 50\nBEGIN\n  EDITTEXT 5, 0, 0, 5, 5\n  LTEXT \"x\", -1, 0, 0, 5, 5\n"
                     "  LTEXT \"y\", -1, 0, 0, 5, 5\n  PUSHBUTTON \"b\", 5, 0, 0, 5, 5\nEND\n",
                     6, "duplicate control id 5"},
        BrokenScript{"duplicate dialog id", "10 DIALOG 0, 0, 1, 1\nBEGIN\nEND\n10 DIALOGEX 0, 0, 1, 1\nBEGIN\nEND\n", 4,
                     "duplicate dialog id 10, already defined at de/tabraRes.rc:1"},
        BrokenScript{"duplicate menu command",
                     "5 MENU\nBEGIN\n POPUP \"p\"\n BEGIN\n  MENUITEM \"a\", 40001\n  MENUITEM \"b\", 40001\n END\nEND\n", 6,
                     "duplicate menu command id 40001"},
        BrokenScript{"misspelt style", "10 DIALOG 0, 0, 100, 50\nBEGIN\n  EDITTEXT 1, 0, 0, 5, 5, ES_PASWORD\nEND\n", 3,
                     "unknown style name: ES_PASWORD"},
        BrokenScript{"window style on a message", "STRINGTABLE\nBEGIN\n  1, \"x\", WS_CHILD\nEND\n", 3, "MB_ styles only"},
        BrokenScript{"unknown control class",
                     "10 DIALOG 0, 0, 100, 50\nBEGIN\n  CONTROL \"\", 1, \"RichEdit20W\", 0, 0, 0, 5, 5\nEND\n", 3,
                     "unknown control class"},
        BrokenScript{"unknown id name", "10 DIALOG 0, 0, 100, 50\nBEGIN\n  PUSHBUTTON \"x\", IDC_FOO, 0, 0, 5, 5\nEND\n", 3,
                     "unknown control id name: IDC_FOO"},
        BrokenScript{"missing comma", "10 DIALOG 0, 0, 100, 50\nBEGIN\n  LTEXT \"x\" -1, 0, 0, 5, 5\nEND\n", 3,
                     "expected \",\""},
        BrokenScript{"coordinate out of range", "10 DIALOG 0, 0, 100, 50\nBEGIN\n  LTEXT \"x\", -1, 40000, 0, 5, 5\nEND\n",
                     3, "coordinate 40000 is out of range"},
        BrokenScript{"unclosed dialog", "10 DIALOG 0, 0, 100, 50\nBEGIN\n  LTEXT \"x\", -1, 0, 0, 5, 5\n", 2,
                     "END missing"},
        BrokenScript{"unclosed string table", "\n\nSTRINGTABLE\n{\n  1, \"x\"\n", 4, "END missing"},
        BrokenScript{"unclosed popup", "5 MENU\nBEGIN\n POPUP \"p\"\n BEGIN\n  MENUITEM \"a\", 1\nEND\n", 2,
                     "END missing"},
        BrokenScript{"unclosed string", "STRINGTABLE\nBEGIN\n  1, \"no end\n  2, \"x\"\nEND\n", 3, "string is not closed"},
        BrokenScript{"unclosed comment", "/* a\n b\n", 1, "comment is not closed"},
        BrokenScript{"unknown escape", "STRINGTABLE\nBEGIN\n  1, \"C:\\data\"\nEND\n", 3, "unknown escape \\d"},
        BrokenScript{"not UTF-8", "STRINGTABLE\nBEGIN\n  1, \"Gr\xF6\xDF" "e\"\nEND\n", 3, "not valid UTF-8"},
        BrokenScript{"duplicate picture id", "10022 PICTURE \"a.png\"\n10022 PICTURE \"b.png\"\n", 2,
                     "duplicate picture id 10022"},
        BrokenScript{"picture without a file", "\n10013 PICTURE \"\"\n", 2, "names no file"},
        BrokenScript{"stray character", "STRINGTABLE\nBEGIN\n  1; \"x\"\nEND\n", 3, "unexpected character ';'"}),
    [](const ::testing::TestParamInfo<BrokenScript> &info) {
        std::string name;
        for (const char *c = info.param.what; *c; ++c) name.push_back(std::isalnum(static_cast<unsigned char>(*c)) ? *c : '_');
        return name;
    });

TEST(ResourceScriptParser, LinesCountAcrossBlockComments) {
    auto parsed = parseResourceScript("/* one\ntwo\nthree */\nSTRINGTABLE\nBEGIN\n  1, \"x\", MB_NOPE\nEND\n", "a.rc");
    EXPECT_EQ(parsed.error.rfind("a.rc:6: ", 0), 0u) << parsed.error;
}
