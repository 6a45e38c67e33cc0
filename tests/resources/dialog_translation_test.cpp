// Resource libraries meeting the dialog engine: translating a live dialog, the
// shipped templates opening as dialogs, and the message the user gets when no
// resource library is found. All through the scripted driver, without a display.
#include "core/module/module_state.h"
#include "ostrel_lts.h"
#include "platform/resources/resource_module.h"
#include "platform/resources/resource_script_parser.h"
#include "resource_test_support.h"
#include "support/scripted_run.h"
#include "tabra_connection.h"
#include "tabra_script.h"
#include "tabra_window.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr const char *kScript = R"(
    500 DIALOGEX 0, 0, 200, 80
    CAPTION "Select Data Source"
    BEGIN
        LTEXT "&Name:", IDC_STATIC, 7, 10, 40, 8
        EDITTEXT 1002, 50, 7, 143, 14
        DEFPUSHBUTTON "OK", IDOK, 89, 59, 50, 14
        PUSHBUTTON "Cancel", IDCANCEL, 143, 59, 50, 14
    END
)";

using tabra::test::ScriptedRun;

// A resource library parsed from a script.
tabra::platform::ResourceTables parsed(const char *script) {
    auto result = tabra::platform::parseResourceScript(script, "test.rc");
    EXPECT_TRUE(result.tables) << result.error;
    return result.tables.value_or(tabra::platform::ResourceTables{});
}

// What the dialog showed right after it was translated at WM_INITDIALOG.
struct TranslatedDialog {
    const char16_t *moduleName = nullptr;
    int32_t replaced = -2;
    std::u16string caption, label, edit, ok, cancel;
};

std::u16string textOf(HWND window) {
    char16_t buffer[128] = {};
    GetWindowTextW(window, buffer, 128);
    return buffer;
}

INT_PTR translateAndClose(HWND dialog, uint32_t message, WPARAM, LPARAM parameter) {
    if (message != WM_INITDIALOG) return 0;
    auto *seen = reinterpret_cast<TranslatedDialog *>(parameter);
    SetDlgItemTextW(dialog, 1002, u"Cancel"); // user data that happens to match a table entry
    seen->replaced = LTS_TranslateDialog(dialog, seen->moduleName, 0);
    seen->caption = textOf(dialog);
    seen->edit = textOf(GetDlgItem(dialog, 1002));
    seen->ok = textOf(GetDlgItem(dialog, IDOK));
    seen->cancel = textOf(GetDlgItem(dialog, IDCANCEL));
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        if (GetDlgCtrlID(child) == -1) seen->label = textOf(child);
    EndDialog(dialog, IDOK);
    return 1;
}

INT_PTR closeAtOnce(HWND dialog, uint32_t message, WPARAM, LPARAM) {
    if (message != WM_INITDIALOG) return 0;
    EndDialog(dialog, IDOK);
    return 1;
}

} // namespace

TEST(DialogTranslation, CaptionAndChildTextsAreReplacedFromTheTable) {
    ScriptedRun run;
    tabra::test::ScopedResourceLibrary library(parsed(kScript));
    TranslatedDialog seen;
    {
        tabra::test::ScopedTranslation translation(u"LTSTEST", "\"Select Data Source\" = \"Datenquelle wählen\"\n"
                                                               "\"&Name:\" = \"&Bezeichnung:\"\n"
                                                               "\"Cancel\" = \"Abbrechen\"\n");
        ASSERT_TRUE(translation.registered());
        seen.moduleName = u"LTSTEST";
        EXPECT_EQ(DialogBoxParamW(library.handle(), 500, nullptr, translateAndClose, reinterpret_cast<LPARAM>(&seen)), IDOK);
    }

    EXPECT_EQ(seen.caption, u"Datenquelle wählen");
    EXPECT_EQ(seen.label, u"&Bezeichnung:");
    EXPECT_EQ(seen.cancel, u"Abbrechen");
    EXPECT_EQ(seen.ok, u"OK") << "texts the table does not know stay";
    // Every window text is matched whole, an edit's too.
    EXPECT_EQ(seen.edit, u"Abbrechen");
    EXPECT_EQ(seen.replaced, 4);
    EXPECT_FALSE(TabraScript_Failed());
}

TEST(DialogTranslation, WithoutATableNothingChanges) {
    ScriptedRun run;
    tabra::test::ScopedResourceLibrary library(parsed(kScript));
    TranslatedDialog seen;
    seen.moduleName = u"NOTABLE";
    EXPECT_EQ(DialogBoxParamW(library.handle(), 500, nullptr, translateAndClose, reinterpret_cast<LPARAM>(&seen)), IDOK);
    EXPECT_EQ(seen.replaced, 0);
    EXPECT_EQ(seen.caption, u"Select Data Source");
    EXPECT_EQ(seen.cancel, u"Cancel");

    seen.moduleName = nullptr;
    EXPECT_EQ(DialogBoxParamW(library.handle(), 500, nullptr, translateAndClose, reinterpret_cast<LPARAM>(&seen)), IDOK);
    EXPECT_EQ(seen.replaced, 0);
}

TEST(DialogTranslation, RefusesWhatIsNoWindow) {
    EXPECT_EQ(LTS_TranslateDialog(nullptr, u"TABRADLL", 0), -1);
    int notAWindow = 0;
    EXPECT_EQ(LTS_TranslateDialog(&notAWindow, u"TABRADLL", 0), -1);
}

TEST(ShippedDialogs, EveryTemplateOpensInTheDialogEngine) {
    ScriptedRun run;
    HMODULE library = tabra::module::resourceLibrary();
    const auto *tables = tabra::platform::resourceTablesOf(library);
    ASSERT_NE(tables, nullptr);
    for (const auto &[id, dialog] : tables->dialogs)
        EXPECT_EQ(DialogBoxParamW(library, id, nullptr, closeAtOnce, 0), IDOK) << "dialog " << id;
    EXPECT_FALSE(TabraScript_Failed());
}

TEST(MissingResourceLibrary, TheUserIsToldThePathInTheEnglishFolderAndTheLibraryLoads) {
    ScriptedRun run;
    run.queue("message: answer ok");
    tabra::test::TemporaryDirectory empty;
    {
        tabra::test::ScopedEnvironmentVariable directory("TABRA_RESOURCE_DIR", empty.path().c_str());
        tabra::module::moduleEntryPoint(tabra::module::ProcessDetach);
        ::testing::internal::CaptureStderr();
        EXPECT_EQ(tabra::module::moduleEntryPoint(tabra::module::ProcessAttach), 1);
        std::string told = ::testing::internal::GetCapturedStderr();
        EXPECT_NE(told.find("Fatal Error: File not found: " + empty.directory() + "en/tabraRes.rc"), std::string::npos)
            << told;
        EXPECT_EQ(tabra::module::resourceLibrary(), nullptr);
        EXPECT_NE(Tabra_GetInstance(), nullptr);
    }
    auto messages = run.records(TABRA_RECORD_MESSAGE);
    ASSERT_EQ(messages.size(), 1u) << "told once";
    EXPECT_EQ(messages[0].text, tabra::test::toUtf16(empty.directory() + "en/tabraRes.rc"));
    EXPECT_EQ(messages[0].caption, u"Fatal Error: File not found");
    EXPECT_EQ(messages[0].style & (MB_ICONMASK | MB_TYPEMASK), MB_ICONERROR | MB_OK);
    EXPECT_FALSE(TabraScript_Failed());

    tabra::module::moduleEntryPoint(tabra::module::ProcessDetach);
    tabra::module::moduleEntryPoint(tabra::module::ProcessAttach);
}
