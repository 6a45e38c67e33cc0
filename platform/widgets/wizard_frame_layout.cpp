// The wizard frame's layout. Classic proportions: 7-unit margins, 50 x 14 buttons, Back
// and Next close together and Cancel a margin apart. Pages bring their own margins, as
// every dialog template does, so the page area lies right beside the picture and under
// the frame's top edge. The picture fills the left side above the line, as tall as the
// page area and about as wide as keeps
// the shipped pictures' proportions (164 x 314 pixels): a vertical dialog unit is about
// twice a horizontal one in pixels, and a unit is a quarter of a horizontal base unit
// but an eighth of a vertical one, so the proportions carry over as they are.
#include "platform/widgets/wizard_frame_layout.h"

#include "ostrel_wizard.h"

#include <algorithm>

namespace tabra::window {
namespace {

using platform::ControlKind;
using platform::ControlTemplate;

constexpr int32_t kMargin = 7;
constexpr int32_t kButtonWidth = 50;
constexpr int32_t kButtonHeight = 14;
constexpr int32_t kButtonGap = 2;
constexpr int32_t kStepWidth = 90;
constexpr int32_t kPictureWidthPerHeight[] = {164, 314}; // numerator, denominator
// WS_POPUP, WS_CAPTION, WS_SYSMENU, DS_MODALFRAME
constexpr uint32_t kFrameStyle = 0x80000000u | 0x00C00000u | 0x80000u | 0x80u;

ControlTemplate control(ControlKind kind, int32_t id, std::u16string text, uint32_t style, int32_t x, int32_t y,
                        int32_t width, int32_t height) {
    ControlTemplate made;
    made.kind = kind;
    made.id = id;
    made.text = std::move(text);
    made.style = WS_CHILD | style;
    made.x = x;
    made.y = y;
    made.width = width;
    made.height = height;
    return made;
}

uint32_t shownIf(bool shown) { return shown ? WS_VISIBLE : 0u; }

} // namespace

WizardFrameLayout layoutWizardFrame(const std::vector<const platform::DialogTemplate *> &pages,
                                    const std::u16string &pictureName, uint32_t buttons, bool showStep) {
    int32_t pageWidth = 0, pageHeight = 0;
    for (const auto *page : pages) {
        pageWidth = std::max(pageWidth, page->width);
        pageHeight = std::max(pageHeight, page->height);
    }
    int32_t top = pageHeight; // the picture's height: down to the line
    int32_t pictureWidth = (top * kPictureWidthPerHeight[0] + kPictureWidthPerHeight[1] / 2) / kPictureWidthPerHeight[1];

    WizardFrameLayout layout;
    auto &frame = layout.frame;
    layout.pageX = pictureWidth;
    layout.pageY = 0;
    frame.width = layout.pageX + pageWidth;
    frame.height = top + kMargin + kButtonHeight + kMargin;
    frame.style = kFrameStyle;
    if (!pages.empty()) {
        frame.fontName = pages.front()->fontName;
        frame.fontSize = pages.front()->fontSize;
    }

    auto &controls = frame.controls;
    controls.push_back(control(ControlKind::Picture, -1, pictureName, WS_VISIBLE | SS_BITMAP, 0, 0, pictureWidth, top));
    controls.push_back(control(ControlKind::Static, -1, u"", WS_VISIBLE | SS_ETCHEDHORZ, 0, top, frame.width, 1));
    int32_t row = top + kMargin;
    int32_t cancelX = frame.width - kMargin - kButtonWidth;
    int32_t nextX = cancelX - kMargin - kButtonWidth;
    int32_t backX = nextX - kButtonGap - kButtonWidth;
    bool help = (buttons & WIZZARD_BUTTON_HELP) != 0;
    int32_t stepX = help ? kMargin + kButtonWidth + kMargin : kMargin;
    auto button = [&](int32_t id, const char16_t *text, uint32_t flag, int32_t x) {
        controls.push_back(control(ControlKind::PushButton, id, text, BS_PUSHBUTTON | WS_TABSTOP | shownIf(buttons & flag),
                                   x, row, kButtonWidth, kButtonHeight));
    };
    button(IDHELP, u"&Help", WIZZARD_BUTTON_HELP, kMargin);
    controls.push_back(control(ControlKind::Static, WIZZARD_ID_STEP, u"", SS_LEFT | shownIf(showStep), stepX, row + 3,
                               std::min(kStepWidth, backX - kMargin - stepX), 8));
    button(WIZZARD_ID_BACK, u"< &Back", WIZZARD_BUTTON_BACK, backX);
    button(WIZZARD_ID_NEXT, u"&Next >", WIZZARD_BUTTON_NEXT, nextX);
    button(WIZZARD_ID_FINISH, u"&Finish", 0, nextX); // shown on the last page only
    button(IDCANCEL, u"Cancel", WIZZARD_BUTTON_CANCEL, cancelX);
    return layout;
}

} // namespace tabra::window
