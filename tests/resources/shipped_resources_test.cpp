// The resource libraries that ship with the library: they load, the languages agree
// on every id, button set and insert, and the dialogs the code opens hold the
// controls it drives, laid out inside their frames.
#include "platform/resources/resource_script_file.h"
#include "resource_test_support.h"
#include "tabra_window_constants.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <vector>

using tabra::platform::ControlKind;
using tabra::platform::ControlTemplate;
using tabra::platform::DialogTemplate;
using tabra::platform::ResourceModule;
using tabra::platform::ResourceTables;

namespace {

// The shipped library of a language, read once per test program.
const ResourceTables &shipped(const std::string &language) {
    static std::map<std::string, std::unique_ptr<ResourceModule>> loaded;
    auto &module = loaded[language];
    if (!module) {
        std::string path = (tabra::test::shippedResourceDirectory() / language / "tabraRes.rc").string();
        std::string error;
        module = tabra::platform::readResourceLibrary(path, error);
        if (!module) {
            ADD_FAILURE() << error;
            module = std::make_unique<ResourceModule>();
        }
    }
    return module->tables;
}

const ControlTemplate *findControl(const DialogTemplate &dialog, int32_t id) {
    auto found = std::find_if(dialog.controls.begin(), dialog.controls.end(),
                              [id](const ControlTemplate &c) { return c.id == id; });
    return found == dialog.controls.end() ? nullptr : &*found;
}

// The %1 %2 %3 inserts a text uses.
std::multiset<std::u16string> insertsOf(const std::u16string &text) {
    std::multiset<std::u16string> inserts;
    for (size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] == u'%' && text[i + 1] >= u'1' && text[i + 1] <= u'9') inserts.insert(text.substr(i, 2));
    return inserts;
}


} // namespace

class ShippedLanguage : public ::testing::TestWithParam<std::string> {};

TEST_P(ShippedLanguage, LoadsAndHoldsEveryMessageTheLibraryShows) {
    const ResourceTables &tables = shipped(GetParam());
    ASSERT_FALSE(tables.strings.empty());
    for (int32_t id : {2900, 1600, 1601, 1602, 1606, 1607, 1608, 1613, 1614, 1615, 1617, 1618, 1700, 1702, 1703, 1704}) {
        auto found = tables.strings.find(id);
        ASSERT_NE(found, tables.strings.end()) << "string " << id;
        EXPECT_FALSE(found->second.text.empty()) << "string " << id;
    }
    // Messages that take an insert keep it: the caller passes a name for these.
    for (int32_t id : {1615, 1617, 1618, 1700, 1702, 1703})
        EXPECT_EQ(insertsOf(tables.strings.at(id).text).count(u"%1"), 1u) << "string " << id;
}

TEST_P(ShippedLanguage, QuestionsOfferTheAnswersTheCallersActOn) {
    const ResourceTables &tables = shipped(GetParam());
    for (int32_t id : {1700, 1702, 1704}) {
        uint32_t style = tables.strings.at(id).messageBoxStyle;
        EXPECT_EQ(style & MB_TYPEMASK, MB_YESNO) << "string " << id;
        EXPECT_EQ(style & MB_ICONMASK, MB_ICONQUESTION) << "string " << id;
    }
    // Deleting columns: No skips one column, Cancel ends the whole action.
    EXPECT_EQ(tables.strings.at(1703).messageBoxStyle & MB_TYPEMASK, MB_YESNOCANCEL);
    EXPECT_EQ(tables.strings.at(1703).messageBoxStyle & MB_ICONMASK, MB_ICONQUESTION);
    for (int32_t id : {1600, 1607, 1608, 1615})
        EXPECT_EQ(tables.strings.at(id).messageBoxStyle & MB_TYPEMASK, MB_OK) << "string " << id;
}

// The controls the library's own dialog procedures drive: the ODBC error dialog, the
// data source dialog, the schema dialog and the combined one.
TEST_P(ShippedLanguage, LibraryDialogsHoldTheControlsTheCodeDrives) {
    constexpr uint32_t readOnly = ES_READONLY, multiLine = ES_MULTILINE | ES_READONLY;
    struct Expected {
        int32_t dialog, control;
        ControlKind kind;
        uint32_t style; // bits that must be set
    };
    std::vector<Expected> expected = {
        {10025, 2140, ControlKind::Edit, readOnly},  {10025, 2141, ControlKind::Edit, readOnly},
        {10025, 1006, ControlKind::Edit, readOnly},  {10025, 2139, ControlKind::Edit, readOnly},
        {10025, 2144, ControlKind::Edit, multiLine}, {10025, 1014, ControlKind::Edit, multiLine},
        {10025, 1003, ControlKind::PushButton, 0},   {103, 1004, ControlKind::ListBox, 0},
        {103, 1002, ControlKind::Edit, 0},           {103, 1003, ControlKind::Edit, ES_PASSWORD},
        {10056, 2010, ControlKind::ListBox, 0},      {10056, 2011, ControlKind::Edit, 0},
        {10060, 1014, ControlKind::Edit, 0},         {10060, 1015, ControlKind::Edit, 0},
        {10060, 2014, ControlKind::Edit, 0},         {10060, 1016, ControlKind::Edit, ES_PASSWORD},
        {10060, 1145, ControlKind::PushButton, 0},   {10060, 1147, ControlKind::PushButton, 0},
    };
    for (int32_t dialog : {10025, 103, 10056, 10060})
        for (int32_t button : {IDOK, IDCANCEL}) expected.push_back({dialog, button, ControlKind::PushButton, 0});
    const ResourceTables &tables = shipped(GetParam());
    for (const Expected &e : expected) {
        ASSERT_EQ(tables.dialogs.count(e.dialog), 1u) << e.dialog;
        const ControlTemplate *c = findControl(tables.dialogs.at(e.dialog), e.control);
        ASSERT_NE(c, nullptr) << e.dialog << "/" << e.control;
        EXPECT_EQ(c->kind, e.kind) << e.dialog << "/" << e.control;
        EXPECT_EQ(c->style & e.style, e.style) << e.dialog << "/" << e.control;
    }
    EXPECT_FALSE(findControl(tables.dialogs.at(103), 1002)->style & ES_PASSWORD) << "the user name shows";
}

TEST_P(ShippedLanguage, DialogsAreLaidOutInsideTheirFrames) {
    for (const auto &[id, dialog] : shipped(GetParam()).dialogs) {
        SCOPED_TRACE("dialog " + std::to_string(id));
        int defaults = 0;
        for (const ControlTemplate &c : dialog.controls) {
            SCOPED_TRACE("control " + std::to_string(c.id) + " " + tabra::test::narrow(c.text));
            EXPECT_GE(c.x, 7);
            EXPECT_GE(c.y, 7);
            EXPECT_LE(c.x + c.width, dialog.width - 7);
            // A combo box's height includes its drop-down list; the closed box is 14 high.
            int shown = c.kind == ControlKind::ComboBox ? 14 : c.height;
            EXPECT_LE(c.y + shown, dialog.height - 7);
            if (c.kind == ControlKind::PushButton) {
                EXPECT_EQ(c.height, 14);
                EXPECT_GE(c.width, 50);
                if ((c.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON) ++defaults;
            }
        }
        if (dialog.childPage) continue; // pages live inside a frame that has the buttons
        EXPECT_FALSE(dialog.caption.empty());
        EXPECT_EQ(defaults, 1) << "one default button";
        // OK and Cancel sit at the right edge, Cancel last: side by side at the bottom,
        // or one above the other in a button column.
        const ControlTemplate *ok = findControl(dialog, IDOK);
        const ControlTemplate *cancel = findControl(dialog, IDCANCEL);
        if (ok == nullptr || cancel == nullptr) continue;
        EXPECT_EQ(cancel->x + cancel->width, dialog.width - 7);
        if (ok->y == cancel->y) {
            EXPECT_EQ(cancel->y + cancel->height, dialog.height - 7);
            EXPECT_LT(ok->x + ok->width, cancel->x);
        } else {
            EXPECT_EQ(ok->x, cancel->x);
            EXPECT_LT(ok->y + ok->height, cancel->y);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, ShippedLanguage, ::testing::Values("en", "de"));

TEST(ShippedTranslations, GermanHasEveryEnglishStringWithTheSameButtonsAndInserts) {
    const ResourceTables &en = shipped("en");
    const ResourceTables &de = shipped("de");
    for (const auto &[id, english] : en.strings) {
        auto german = de.strings.find(id);
        ASSERT_NE(german, de.strings.end()) << "string " << id << " missing in de";
        EXPECT_EQ(german->second.messageBoxStyle, english.messageBoxStyle) << "string " << id;
        EXPECT_EQ(insertsOf(german->second.text), insertsOf(english.text)) << "string " << id;
        if (id != 2900) {
            EXPECT_NE(german->second.text, english.text) << "string " << id << " is not translated";
        }
    }
    EXPECT_EQ(de.strings.size(), en.strings.size()) << "de holds strings en does not";
}

TEST(ShippedTranslations, GermanDialogsMatchTheEnglishControls) {
    const ResourceTables &en = shipped("en");
    const ResourceTables &de = shipped("de");
    ASSERT_EQ(de.dialogs.size(), en.dialogs.size());
    for (const auto &[id, english] : en.dialogs) {
        ASSERT_EQ(de.dialogs.count(id), 1u) << "dialog " << id;
        const DialogTemplate &german = de.dialogs.at(id);
        EXPECT_NE(german.caption, english.caption) << "dialog " << id << " is not translated";
        ASSERT_EQ(german.controls.size(), english.controls.size()) << "dialog " << id;
        for (size_t i = 0; i < english.controls.size(); ++i) {
            EXPECT_EQ(german.controls[i].id, english.controls[i].id) << "dialog " << id << " control " << i;
            EXPECT_EQ(german.controls[i].kind, english.controls[i].kind) << "dialog " << id << " control " << i;
            EXPECT_EQ(german.controls[i].style, english.controls[i].style) << "dialog " << id << " control " << i;
        }
    }
}
