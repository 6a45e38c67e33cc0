// The wizard frame as a dialog template: where the picture, the page area, the line
// and the buttons lie, in dialog units of the pages' font. The frame is made from this
// template like any dialog, so every renderer shows it with the means it has for
// dialogs; the page area is where each page is put.
#pragma once

#include "platform/resources/resource_model.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tabra::window {

struct WizardFrameLayout {
    platform::DialogTemplate frame; // caption empty; buttons in their template texts
    int32_t pageX = 0, pageY = 0;   // the page area's top left corner
};

// The frame for pages of these templates (at least one): the page area as wide and
// as high as the largest page (pages have their own 7-unit margins), the picture `pictureName` beside it, and the buttons
// of `buttons` (WIZZARD_BUTTON_*; hidden when not asked for), and the step text when
// asked for. The font is the first page's.
WizardFrameLayout layoutWizardFrame(const std::vector<const platform::DialogTemplate *> &pages,
                                    const std::u16string &pictureName, uint32_t buttons, bool showStep);

} // namespace tabra::window
