// The wizard frame (ostrel_wizard.h): a modal dialog made from the frame layout, whose
// pages are child dialogs created when first shown. Each running wizard is a record on
// the stack of Wizzard_Perform, listed while it runs so that its handle, its pages'
// windows and the frame's procedure find it; wizards may nest.
#include "ostrel_wizard.h"

#include "ostrel_ui.h"
#include "platform/resources/picture_resources.h"
#include "platform/resources/translation_table.h"
#include "platform/widgets/resource_strings.h"
#include "platform/widgets/wizard_frame_layout.h"
#include "platform/window/dialog_creation.h"
#include "platform/window/modal_loop.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using namespace tabra;
using namespace tabra::window;

namespace {

// Page tables end with 0; one longer than this is taken as not ended.
constexpr std::size_t kMostPages = 1000;
// The frame's own message: show the first page (posted, so that the frame is on
// screen when its first page is made and entered, as with every later page).
constexpr uint32_t kShowFirstPage = 0x8000u; // WM_APP

struct WizardPage {
    int32_t id = 0;
    const platform::DialogTemplate *pageTemplate = nullptr;
    bool enabled = true;
    HWND window = nullptr; // null until first shown
};

struct WizardRun {
    HWIZZARD handle = 0;
    std::vector<WizardPage> pages;
    WIZZARDPROC procedure = nullptr;
    uint32_t enteredMessage = 0, leftMessage = 0;
    LPARAM parameter = 0;
    HMODULE module = nullptr;
    std::u16string translationModule; // empty: no translation
    uint32_t buttons = 0, options = 0;
    int32_t pageX = 0, pageY = 0;
    HWND frame = nullptr;
    int current = -1;  // index of the page shown
    int creating = -1; // index of the page whose window is being made
};

std::vector<WizardRun *> &runningWizards() {
    static auto *runs = new std::vector<WizardRun *>;
    return *runs;
}

HWIZZARD newWizardHandle() {
    static HWIZZARD last = 0;
    if (++last == 0) ++last;
    return last;
}

WizardRun *findRun(HWIZZARD handle) {
    for (WizardRun *run : runningWizards())
        if (run->handle == handle) return run;
    return nullptr;
}

// Lists a run for as long as it lives.
class RunListing {
public:
    explicit RunListing(WizardRun &run) : run_(run) { runningWizards().push_back(&run); }
    ~RunListing() { std::erase(runningWizards(), &run_); }
    RunListing(const RunListing &) = delete;
    RunListing &operator=(const RunListing &) = delete;

private:
    WizardRun &run_;
};

void translate(std::u16string &text, const std::u16string &moduleName) {
    if (moduleName.empty() || text.empty()) return;
    if (auto replacement = platform::translationOf(moduleName, text)) text = *replacement;
}

// A template with its texts translated, so that a page procedure sees them so from
// WM_INITDIALOG on (and pages without a procedure of their own are translated too).
platform::DialogTemplate translatedTemplate(const platform::DialogTemplate &source, const std::u16string &moduleName) {
    platform::DialogTemplate copy = source;
    translate(copy.caption, moduleName);
    for (auto &control : copy.controls) translate(control.text, moduleName);
    return copy;
}

// ---- Pages ----

// The procedure of every page window: hands the message to the wizard's page
// procedure. A page's first message (WM_INITDIALOG) comes while its window is being
// made; the run that is making one then learns the window.
INT_PTR pageWindowProcedure(HWND window, uint32_t message, WPARAM wParam, LPARAM lParam) {
    WizardRun *owner = nullptr;
    int index = -1;
    for (WizardRun *run : runningWizards())
        for (std::size_t i = 0; i < run->pages.size(); ++i)
            if (run->pages[i].window == window) {
                owner = run;
                index = static_cast<int>(i);
            }
    if (!owner) {
        auto &runs = runningWizards();
        auto making = std::find_if(runs.rbegin(), runs.rend(), [](WizardRun *run) { return run->creating >= 0; });
        if (making == runs.rend()) return 0;
        owner = *making;
        index = std::exchange(owner->creating, -1);
        owner->pages[static_cast<std::size_t>(index)].window = window;
    }
    return owner->procedure(owner->handle, owner->pages[static_cast<std::size_t>(index)].id, window, message, wParam,
                            lParam);
}

bool makePage(WizardRun &run, int index) {
    WizardPage &page = run.pages[static_cast<std::size_t>(index)];
    if (page.window && IsWindow(page.window)) return true;
    platform::DialogTemplate pageTemplate = translatedTemplate(*page.pageTemplate, run.translationModule);
    pageTemplate.x = run.pageX;
    pageTemplate.y = run.pageY;
    pageTemplate.childPage = true;
    run.creating = index;
    HWND made = createDialogFromTemplate(pageTemplate, run.module, page.id, run.frame, pageWindowProcedure, run.parameter,
                                         false, true);
    run.creating = -1;
    return made && IsWindow(made);
}

int nextEnabled(const WizardRun &run, int from) {
    for (int i = from + 1; i < static_cast<int>(run.pages.size()); ++i)
        if (run.pages[static_cast<std::size_t>(i)].enabled) return i;
    return -1;
}

int previousEnabled(const WizardRun &run, int from) {
    for (int i = from - 1; i >= 0; --i)
        if (run.pages[static_cast<std::size_t>(i)].enabled) return i;
    return -1;
}

HWND currentPage(const WizardRun &run) {
    return run.current >= 0 ? run.pages[static_cast<std::size_t>(run.current)].window : nullptr;
}

// ---- The frame's state ----

std::u16string decimal(int value) {
    std::string digits = std::to_string(value);
    return std::u16string(digits.begin(), digits.end());
}

void showStep(const WizardRun &run) {
    if (!(run.options & WIZZARD_SHOW_STEP) || run.current < 0) return;
    int step = 0, steps = 0;
    for (int i = 0; i < static_cast<int>(run.pages.size()); ++i) {
        if (!run.pages[static_cast<std::size_t>(i)].enabled && i != run.current) continue;
        ++steps;
        if (i <= run.current) ++step;
    }
    std::u16string text = u"Step %1 of %2";
    translate(text, run.translationModule);
    for (auto [mark, value] : {std::pair{u"%1", step}, std::pair{u"%2", steps}})
        if (auto at = text.find(mark); at != std::u16string::npos) text.replace(at, 2, decimal(value));
    SetDlgItemTextW(run.frame, WIZZARD_ID_STEP, text.c_str());
}

// Back, Next or Finish as the current page's place in the sequence asks.
void showButtons(const WizardRun &run) {
    HWND frame = run.frame;
    bool last = nextEnabled(run, run.current) < 0;
    bool finish = last && (run.buttons & WIZZARD_BUTTON_FINISH);
    EnableWindow(GetDlgItem(frame, WIZZARD_ID_BACK), previousEnabled(run, run.current) >= 0);
    HWND next = GetDlgItem(frame, WIZZARD_ID_NEXT);
    HWND finishButton = GetDlgItem(frame, WIZZARD_ID_FINISH);
    EnableWindow(next, !last);
    ShowWindow(next, (run.buttons & WIZZARD_BUTTON_NEXT) && !finish ? SW_SHOW : SW_HIDE);
    ShowWindow(finishButton, finish ? SW_SHOW : SW_HIDE);
    SendMessageW(frame, DM_SETDEFID, finish ? WIZZARD_ID_FINISH : WIZZARD_ID_NEXT, 0);
    if (GetFocus() == next && finish) SetFocus(finishButton);
    if (GetFocus() == finishButton && !finish) SetFocus(next);
    showStep(run);
}

// The page's first control a user can tab to, else the default button.
void focusPage(const WizardRun &run, HWND page) {
    for (HWND child = GetWindow(page, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if ((GetWindowLongPtrW(child, GWL_STYLE) & WS_TABSTOP) && IsWindowEnabled(child) && IsWindowVisible(child)) {
            SetFocus(child);
            return;
        }
    }
    int32_t defaultId = LOWORD(SendMessageW(run.frame, DM_GETDEFID, 0, 0));
    if (HWND button = GetDlgItem(run.frame, defaultId); button && IsWindowVisible(button)) SetFocus(button);
}

void showPage(WizardRun &run, int index, int direction) {
    if (!makePage(run, index)) return;
    HWND previous = currentPage(run);
    run.current = index;
    HWND page = currentPage(run);
    if (previous && previous != page) ShowWindow(previous, SW_HIDE);
    ShowWindow(page, SW_SHOW);
    showButtons(run);
    focusPage(run, page);
    SendMessageW(page, run.enteredMessage, static_cast<WPARAM>(direction), 0);
}

// The first page shown: the first enabled one. A page's WM_INITDIALOG may switch pages
// off, its own too, so each candidate is made before it is taken.
void showFirstPage(WizardRun &run) {
    int index = nextEnabled(run, -1);
    while (index >= 0) {
        if (!makePage(run, index) || !IsWindow(run.frame)) return;
        if (run.pages[static_cast<std::size_t>(index)].enabled) break;
        index = nextEnabled(run, index);
    }
    showPage(run, index >= 0 ? index : 0, WIZZARD_FORWARD);
}

// Sends the left message; true when the page lets the user go.
bool leavePage(WizardRun &run, int direction) {
    HWND page = currentPage(run);
    if (!page) return true;
    int32_t answer = WIZZARD_GO_ON;
    SendMessageW(page, run.leftMessage, static_cast<WPARAM>(direction), reinterpret_cast<LPARAM>(&answer));
    return answer != WIZZARD_STAY && IsWindow(run.frame);
}

void goBack(WizardRun &run) {
    if (!leavePage(run, WIZZARD_BACK)) return;
    int previous = previousEnabled(run, run.current);
    if (previous >= 0) showPage(run, previous, WIZZARD_BACK);
    else showButtons(run);
}

// Next and Finish: to the next enabled page when there is one after the answer (a
// page may switch later pages on and off while it is left), else Finish ends the
// wizard and Next stays.
void goForward(WizardRun &run, bool finishing) {
    if (!leavePage(run, WIZZARD_FORWARD)) return;
    int next = nextEnabled(run, run.current);
    if (next >= 0) showPage(run, next, WIZZARD_FORWARD);
    else if (finishing) EndDialog(run.frame, 1);
    else showButtons(run);
}

void help(WizardRun &run) {
    HWND page = currentPage(run);
    if (!page) return;
    int32_t pageId = run.pages[static_cast<std::size_t>(run.current)].id;
    INT_PTR handled = run.procedure(run.handle, pageId, page, WM_COMMAND, MAKEWPARAM(IDHELP, BN_CLICKED),
                                    reinterpret_cast<LPARAM>(GetDlgItem(run.frame, IDHELP)));
    if (!handled) Ostrel_PerformHelp(run.module, pageId, 0);
}

INT_PTR frameProcedure(HWND frame, uint32_t message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        auto *run = reinterpret_cast<WizardRun *>(lParam);
        SetWindowLongPtrW(frame, DWLP_USER, lParam);
        run->frame = frame;
        PostMessageW(frame, kShowFirstPage, 0, 0);
        return FALSE; // the page takes the focus
    }
    auto *run = reinterpret_cast<WizardRun *>(GetWindowLongPtrW(frame, DWLP_USER));
    if (!run) return FALSE;
    if (message == kShowFirstPage && run->current < 0) showFirstPage(*run);
    if (message != WM_COMMAND) return FALSE;
    if (LOWORD(wParam) == IDCANCEL) {
        EndDialog(frame, 2);
        return TRUE;
    }
    if (run->current < 0) return FALSE;
    switch (LOWORD(wParam)) {
    case WIZZARD_ID_BACK: goBack(*run); break;
    case WIZZARD_ID_NEXT: goForward(*run, false); break;
    case WIZZARD_ID_FINISH: goForward(*run, true); break;
    case IDHELP: help(*run); break;
    default: return FALSE;
    }
    return TRUE;
}

// The pages of a table, or nothing when the table is not sound.
std::optional<std::vector<WizardPage>> pagesOf(const int32_t *pageTable, HMODULE module) {
    std::vector<WizardPage> pages;
    for (std::size_t i = 0; pageTable[i] != 0; ++i) {
        if (i == kMostPages) return std::nullopt;
        WizardPage page;
        page.id = pageTable[i];
        page.pageTemplate = findDialogTemplate(module, page.id);
        if (!page.pageTemplate) {
            std::fprintf(stderr, "tabra: wizard page %d is not in the resource library\n", page.id);
            return std::nullopt;
        }
        pages.push_back(page);
    }
    if (pages.empty()) return std::nullopt;
    return pages;
}

} // namespace

extern "C" {

int32_t Wizzard_Perform(const int32_t *pageTable, WIZZARDPROC pageProcedure, uint32_t enteredMessage,
                        uint32_t leftMessage, LPARAM parameter, int32_t imageId, int32_t titleStringId,
                        HMODULE resourceModule, const char16_t *translationModuleName, uint32_t buttons,
                        uint32_t options) {
    if (!pageTable || !pageProcedure) return 2;
    auto pages = pagesOf(pageTable, resourceModule);
    if (!pages) return 2;
    WizardRun run;
    run.handle = newWizardHandle();
    run.pages = std::move(*pages);
    run.procedure = pageProcedure;
    run.enteredMessage = enteredMessage;
    run.leftMessage = leftMessage;
    run.parameter = parameter;
    run.module = resourceModule;
    run.translationModule = translationModuleName ? translationModuleName : u"";
    run.buttons = buttons;
    run.options = options;

    std::vector<const platform::DialogTemplate *> templates;
    for (const auto &page : run.pages) templates.push_back(page.pageTemplate);
    WizardFrameLayout layout = layoutWizardFrame(templates, platform::pictureName(imageId), buttons,
                                                 (options & WIZZARD_SHOW_STEP) != 0);
    run.pageX = layout.pageX;
    run.pageY = layout.pageY;
    platform::DialogTemplate frame = translatedTemplate(layout.frame, run.translationModule);
    frame.caption = resourceText(resourceModule, titleStringId, translationModuleName);
    if (frame.caption.empty()) frame.caption = translatedTemplate(*templates.front(), run.translationModule).caption;

    RunListing listing(run);
    INT_PTR result = runModalDialogFromTemplate(frame, resourceModule, imageId, GetActiveWindow(), frameProcedure,
                                                reinterpret_cast<LPARAM>(&run));
    return result == 1 ? 1 : 2;
}

LPARAM Wizzard_GetParam(HWIZZARD wizard) {
    WizardRun *run = findRun(wizard);
    return run ? run->parameter : 0;
}

int32_t Wizzard_EnableSubDialog(HWIZZARD wizard, int32_t pageId, int32_t on) {
    WizardRun *run = findRun(wizard);
    if (!run) return 0;
    bool found = false;
    for (auto &page : run->pages)
        if (page.id == pageId) {
            page.enabled = on != 0;
            found = true;
        }
    if (!found) return 0;
    if (run->current >= 0 && IsWindow(run->frame)) showButtons(*run);
    return 1;
}

} // extern "C"
