// Dialog units: templates give positions and sizes in units of the dialog font, a
// quarter of its average character width across and an eighth of its height down.
// The base units come from the font as the classic dialog manager measures them:
//   baseX = (pixel width of "A..Za..z" / 26 + 1) / 2,  baseY = ascent + descent,
//   pixels across = x * baseX / 4, pixels down = y * baseY / 8 (rounded).
#pragma once

#include "platform/window/window_object.h"

#include <string>
#include <string_view>

namespace tabra::gtk {

struct BaseUnits {
    int x = 0; // pixels per 4 horizontal dialog units
    int y = 0; // pixels per 8 vertical dialog units
};

struct PixelRect {
    int x = 0, y = 0, width = 0, height = 0;
};

// Base units from the measured font: the pixel width of the 52 letters "A".."Z",
// "a".."z" and the font's height (ascent + descent) in pixels.
BaseUnits baseUnitsFromMeasure(int alphabetWidth, int fontHeight);

// Dialog units to pixels, rounded half away from zero.
int horizontalPixels(int units, BaseUnits base);
int verticalPixels(int units, BaseUnits base);
PixelRect toPixels(const window::Frame &frame, BaseUnits base);

// The Pango description of a template font ("Sans 8"); an empty family or a size of
// 0 takes the desktop's dialog font for that part.
std::string fontDescription(std::u16string_view family, int pointSize);
// Measures the base units of a font on the default screen (needs the GTK session).
BaseUnits measureBaseUnits(const std::string &description);

} // namespace tabra::gtk
