// The wizard frame on the scripted driver: a four-page test wizard (wizard_pages.rc)
// played through, one scenario per behaviour of the frame: the page sequence, the
// left message and its answer, disabled pages, Finish in Next's place, Cancel and the
// close box, pages kept with what the user typed, Help and the step counter.
#include "ostrel_wizard.h"
#include "platform/resources/resource_module.h"
#include "platform/resources/resource_script_file.h"
#include "window_test_support.h"

#include <map>
#include <set>

using namespace tabra::test;

namespace {

constexpr uint32_t kEntered = 1025, kLeft = 1026;
constexpr int32_t kTable = 10901, kCondition = 10902, kOptions = 10903, kSummary = 10904;
constexpr int32_t kPicture = 10020, kTitle = 2909;
constexpr int32_t kPages[] = {kTable, kCondition, kOptions, kSummary, 0};

// What a scenario sets up, does and expects.
struct Scenario {
    const char *name;
    std::vector<int32_t> offAtStart;    // pages the first page's WM_INITDIALOG switches off
    std::set<int32_t> keepOnceForward;  // pages that answer the first Next or Finish with 2
    std::set<int32_t> messageWhenEmpty; // pages that show a message and keep the user while edit 1011 is empty
    std::vector<std::string> script;
    int32_t result;
    std::vector<int32_t> pagesShown;                    // as recorded, in order
    std::vector<std::pair<int32_t, WPARAM>> leftMessages; // page, direction
    std::string buttonsOnEntry; // per entry "<page>:" then B (Back enabled), N (Next shown), F (Finish shown, default)
    uint32_t buttons = WIZZARD_BUTTONS_STANDARD;
    uint32_t options = 0;
    bool refused = false; // the script does what no user can, and the run fails
    std::pair<int32_t, int32_t> offWhenLeft{}; // a page that, being left, switches another off
};

class WizardFrame : public ScriptedTest {
protected:
    WizardFrame() {
        std::string error;
        auto loaded = tabra::platform::readResourceScriptFile(TABRA_TEST_SOURCE_DIR "/window/wizard_pages.rc", error);
        EXPECT_TRUE(loaded) << error;
        if (loaded) module = tabra::platform::adoptResourceModule(std::move(loaded));
    }
    ~WizardFrame() override { tabra::platform::releaseResourceModule(module); }

    static INT_PTR pageProcedure(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                                 LPARAM lParam) {
        auto *self = reinterpret_cast<WizardFrame *>(Wizzard_GetParam(wizard));
        return self ? self->handle(wizard, pageId, page, message, wParam, lParam) : 0;
    }

    INT_PTR handle(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam, LPARAM lParam) {
        HWND frame = GetParent(page);
        if (message == WM_INITDIALOG) {
            ++initCount[pageId];
            EXPECT_EQ(lParam, reinterpret_cast<LPARAM>(this));
            if (pageId == kTable) {
                Ostrel_FillBox(GetDlgItem(page, 1005), u'\t', u"Orders\tCustomers");
                for (int32_t off : scenario->offAtStart) EXPECT_EQ(Wizzard_EnableSubDialog(wizard, off, 0), 1);
                EXPECT_EQ(Wizzard_EnableSubDialog(wizard, 4711, 0), 0) << "not a page of the table";
            }
        } else if (message == kEntered) {
            entered += std::to_string(pageId) + ":";
            if (IsWindowEnabled(GetDlgItem(frame, WIZZARD_ID_BACK))) entered += "B";
            if (IsWindowVisible(GetDlgItem(frame, WIZZARD_ID_NEXT))) entered += "N";
            if (IsWindowVisible(GetDlgItem(frame, WIZZARD_ID_FINISH)) &&
                LOWORD(SendMessageW(frame, DM_GETDEFID, 0, 0)) == WIZZARD_ID_FINISH)
                entered += "F";
            entered += " ";
        } else if (message == kLeft) {
            left.emplace_back(pageId, wParam);
            if (pageId == scenario->offWhenLeft.first) Wizzard_EnableSubDialog(wizard, scenario->offWhenLeft.second, 0);
            auto *answer = reinterpret_cast<int32_t *>(lParam);
            EXPECT_EQ(*answer, WIZZARD_GO_ON) << "the frame presets the answer";
            bool forward = wParam == WIZZARD_FORWARD;
            if (forward && scenario->keepOnceForward.count(pageId) && kept.insert(pageId).second) *answer = WIZZARD_STAY;
            if (forward && scenario->messageWhenEmpty.count(pageId) && GetWindowTextLengthW(GetDlgItem(page, 1011)) == 0) {
                MessageBoxW(page, u"Please enter a condition.", u"Delete Records", MB_OK | MB_ICONWARNING);
                *answer = WIZZARD_STAY;
            }
        }
        return 0;
    }

    int32_t perform(uint32_t buttons = WIZZARD_BUTTONS_STANDARD, uint32_t options = 0, const int32_t *pages = kPages) {
        return Wizzard_Perform(pages, pageProcedure, kEntered, kLeft, reinterpret_cast<LPARAM>(this), kPicture, kTitle,
                               module, u"TABRADLL", buttons, options);
    }

    HMODULE module = nullptr;
    const Scenario *scenario = nullptr;
    std::map<int32_t, int> initCount;
    std::string entered;
    std::vector<std::pair<int32_t, WPARAM>> left;
    std::set<int32_t> kept;
};

const Scenario kScenarios[] = {
    {"NextToTheEndAndFinish", {}, {}, {},
     {"dialog 10901: click 12324", "dialog 10902: click 12324", "dialog 10903: click 12324", "dialog 10904: click 12325"},
     1, {kTable, kCondition, kOptions, kSummary},
     {{kTable, 1}, {kCondition, 1}, {kOptions, 1}, {kSummary, 1}},
     "10901:N 10902:BN 10903:BN 10904:BF "},
    {"APageKeepsTheUserWithTwo", {}, {kCondition}, {},
     {"dialog 10901: click 12324", "dialog 10902: click 12324", "dialog 10902: click 12324", "dialog 10903: click 2"},
     2, {kTable, kCondition, kOptions},
     {{kTable, 1}, {kCondition, 1}, {kCondition, 1}},
     "10901:N 10902:BN 10903:BN "},
    {"BackPassesWithoutAnAnswer", {}, {}, {},
     {"dialog 10901: click 12324", "dialog 10902: click 12323", "dialog 10901: click 12324", "dialog 10902: click 2"},
     2, {kTable, kCondition, kTable, kCondition},
     {{kTable, 1}, {kCondition, 2}, {kTable, 1}},
     "10901:N 10902:BN 10901:N 10902:BN "},
    {"DisabledPagesAreSkippedBothWays", {kOptions}, {}, {},
     {"dialog 10901: click 12324", "dialog 10902: click 12324", "dialog 10904: click 12323", "dialog 10902: click 12323",
      "dialog 10901: click 2"},
     2, {kTable, kCondition, kSummary, kCondition, kTable},
     {{kTable, 1}, {kCondition, 1}, {kSummary, 2}, {kCondition, 2}},
     "10901:N 10902:BN 10904:BF 10902:BN 10901:N "},
    {"FinishTakesNextsPlaceOnTheLastEnabledPage", {kSummary, kOptions}, {}, {},
     {"dialog 10901: click 12324", "dialog 10902: click 12325"},
     1, {kTable, kCondition}, {{kTable, 1}, {kCondition, 1}},
     "10901:N 10902:BF "},
    {"FinishAnsweredTwoKeepsTheWizardOpen", {}, {kSummary}, {},
     {"dialog 10901: click 12324", "dialog 10902: click 12324", "dialog 10903: click 12324", "dialog 10904: click 12325",
      "dialog 10904: click 12325"},
     1, {kTable, kCondition, kOptions, kSummary},
     {{kTable, 1}, {kCondition, 1}, {kOptions, 1}, {kSummary, 1}, {kSummary, 1}},
     "10901:N 10902:BN 10903:BN 10904:BF "},
    {"CancelEndsWithTwoAndNoLeftMessage", {}, {}, {},
     {"dialog 10901: click 12324", "dialog 10902: click 2"},
     2, {kTable, kCondition}, {{kTable, 1}}, "10901:N 10902:BN "},
    {"TheCloseBoxCancels", {}, {}, {}, {"dialog 10901: close"}, 2, {kTable}, {}, "10901:N "},
    {"ADisabledFirstPageIsPassedOver", {kTable}, {}, {},
     {"dialog 10902: click 12324", "dialog 10903: click 12323", "dialog 10902: click 2"},
     2, {kCondition, kOptions, kCondition}, {{kCondition, 1}, {kOptions, 2}},
     "10902:N 10903:BN 10902:N "},
    {"APageShowsAMessageAndKeepsTheUser", {}, {}, {kCondition},
     {"dialog 10901: click 12324", "dialog 10902: click 12324", "message: answer ok", "dialog 10902: set 1011 \"Id > 5\"",
      "dialog 10902: click 12324", "dialog 10903: click 2"},
     2, {kTable, kCondition, kOptions}, {{kTable, 1}, {kCondition, 1}, {kCondition, 1}},
     "10901:N 10902:BN 10903:BN "},
    {"ValuesTypedStayThroughBackAndNext", {}, {}, {},
     {"dialog 10901: select 1005 \"Customers\"", "dialog 10901: set 1003 \"only old ones\"", "dialog 10901: click 12324",
      "dialog 10902: set 1011 \"Id > 5\"", "dialog 10902: click 12323", "dialog 10901: expect 1003 \"only old ones\"",
      "dialog 10901: click 12324", "dialog 10902: expect 1011 \"Id > 5\"", "dialog 10902: click 2"},
     2, {kTable, kCondition, kTable, kCondition}, {{kTable, 1}, {kCondition, 2}, {kTable, 1}},
     "10901:N 10902:BN 10901:N 10902:BN "},
    {"HelpShowsTheCurrentPagesTopic", {}, {}, {}, {"dialog 10901: click 9", "dialog 10901: click 2"},
     2, {kTable}, {}, "10901:N ", WIZZARD_BUTTONS_STANDARD | WIZZARD_BUTTON_HELP},
    {"TheStepCounterCountsEnabledPages", {kOptions}, {}, {},
     {"dialog 10901: expect 12326 \"Step 1 of 3\"", "dialog 10901: click 12324", "dialog 10902: expect 12326 \"Step 2 of 3\"",
      "dialog 10902: click 12324", "dialog 10904: expect 12326 \"Step 3 of 3\"", "dialog 10904: click 2"},
     2, {kTable, kCondition, kSummary}, {{kTable, 1}, {kCondition, 1}}, "10901:N 10902:BN 10904:BF ",
     WIZZARD_BUTTONS_STANDARD, WIZZARD_SHOW_STEP},
    {"APageBeingLeftSwitchesTheNextOneOff", {}, {}, {},
     {"dialog 10901: click 12324", "dialog 10902: click 12324", "dialog 10904: click 2"},
     2, {kTable, kCondition, kSummary}, {{kTable, 1}, {kCondition, 1}}, "10901:N 10902:BN 10904:BF ",
     WIZZARD_BUTTONS_STANDARD, 0, false, {kCondition, kOptions}},
    {"ButtonsNotAskedForAreHidden", {}, {}, {}, {"dialog 10901: click 2"}, 2, {kTable}, {}, "10901:N ",
     WIZZARD_BUTTON_NEXT | WIZZARD_BUTTON_FINISH, 0, true},
};

class WizardFrameScenario : public WizardFrame, public ::testing::WithParamInterface<Scenario> {};

TEST_P(WizardFrameScenario, PlaysThrough) {
    scenario = &GetParam();
    for (const auto &line : scenario->script) queue(line);
    EXPECT_EQ(perform(scenario->buttons, scenario->options), scenario->result);
    EXPECT_EQ(TabraScript_Failed(), scenario->refused ? 1 : 0);
    EXPECT_EQ(TabraScript_PendingCount(), 0);
    EXPECT_EQ(Wizzard_GetParam(1), 0) << "no wizard runs any more";

    std::vector<int32_t> shown;
    for (const auto &page : recordsOf(TABRA_RECORD_PAGE)) {
        shown.push_back(page.id);
        EXPECT_EQ(page.value, kPicture) << "pages belong to the frame, which is dialog <picture id>";
    }
    EXPECT_EQ(shown, scenario->pagesShown);
    EXPECT_EQ(left, scenario->leftMessages);
    EXPECT_EQ(entered, scenario->buttonsOnEntry);
    for (const auto &[page, count] : initCount) EXPECT_EQ(count, 1) << "page " << page << " is made once";

    auto opened = recordsOf(TABRA_RECORD_DIALOG_OPENED);
    ASSERT_EQ(opened.size(), 1u);
    EXPECT_EQ(opened[0].id, kPicture);
    EXPECT_EQ(std::u16string(opened[0].text), u"Delete Records");
    EXPECT_TRUE(std::u16string(opened[0].detail).ends_with(u"/resources/pictures/delete.png"));
    auto closed = recordsOf(TABRA_RECORD_DIALOG_CLOSED);
    ASSERT_EQ(closed.size(), 1u);
    EXPECT_EQ(closed[0].value, scenario->result);
    auto help = recordsOf(TABRA_RECORD_HELP);
    EXPECT_EQ(help.size(), scenario->buttons & WIZZARD_BUTTON_HELP ? 1u : 0u);
    if (!help.empty()) {
        EXPECT_EQ(help[0].id, kTable);
    }
}

INSTANTIATE_TEST_SUITE_P(Behaviours, WizardFrameScenario, ::testing::ValuesIn(kScenarios),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(WizardFrame, BadArgumentsShowNothing) {
    Scenario none{"", {}, {}, {}, {}, 0, {}, {}, ""};
    scenario = &none;
    const int32_t missingPage[] = {kTable, 4711, 0};
    const int32_t noPage[] = {0};
    EXPECT_EQ(perform(WIZZARD_BUTTONS_STANDARD, 0, missingPage), 2);
    EXPECT_EQ(perform(WIZZARD_BUTTONS_STANDARD, 0, noPage), 2);
    EXPECT_EQ(Wizzard_Perform(nullptr, pageProcedure, kEntered, kLeft, 0, kPicture, kTitle, module, nullptr, 15, 0), 2);
    EXPECT_EQ(Wizzard_Perform(kPages, nullptr, kEntered, kLeft, 0, kPicture, kTitle, module, nullptr, 15, 0), 2);
    EXPECT_EQ(Wizzard_Perform(kPages, pageProcedure, kEntered, kLeft, 0, kPicture, kTitle, nullptr, nullptr, 15, 0), 2);
    EXPECT_EQ(TabraScript_RecordCount(), 0);
    EXPECT_EQ(Wizzard_EnableSubDialog(1, kTable, 0), 0);
}

} // namespace
