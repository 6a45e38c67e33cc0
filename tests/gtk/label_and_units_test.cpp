// Texts and measures of the GTK renderer that need no display: "&" mnemonics as GTK
// writes them, edit line breaks, and dialog units scaled by the font's base units.
#ifdef TABRA_WITH_GTK

#include "platform/gtk/dialog_units.h"
#include "platform/gtk/label_text.h"
#include "platform/gtk/widget_factory.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

using namespace tabra::gtk;

namespace {

TEST(RendererLabelText, AmpersandMnemonicsBecomeUnderscores) {
    EXPECT_EQ(mnemonicLabel(u"&Data sources:"), "_Data sources:");
    EXPECT_EQ(mnemonicLabel(u"S&chema..."), "S_chema...");
    EXPECT_EQ(mnemonicLabel(u"Fish && Chips"), "Fish & Chips") << "a doubled & is a plain &";
    EXPECT_EQ(mnemonicLabel(u"snake_case"), "snake__case") << "GTK's own mark must be doubled";
    EXPECT_EQ(mnemonicLabel(u"&First &Second"), "_First Second") << "only the first mark is a key";
    EXPECT_EQ(mnemonicLabel(u"Trailing&"), "Trailing");
    EXPECT_EQ(mnemonicLabel(u"&_"), "__") << "an underscore cannot be a key";
    EXPECT_EQ(mnemonicLabel(u""), "");
    EXPECT_EQ(mnemonicLabel(u"&Größe"), "_Größe");
}

TEST(RendererLabelText, PlainLabelsDropTheMarks) {
    EXPECT_EQ(plainLabel(u"&Options"), "Options");
    EXPECT_EQ(plainLabel(u"R&&D"), "R&D");
    EXPECT_EQ(plainLabel(u"under_score"), "under_score");
}

TEST(RendererLabelText, EditLineBreaksTravelBothWays) {
    EXPECT_EQ(editTextForWidget(u"SELECT *\r\nFROM t"), "SELECT *\nFROM t");
    EXPECT_EQ(editTextForWidget(u"lone\rreturn"), "lone\rreturn") << "only CR LF pairs are line breaks";
    EXPECT_EQ(editTextFromWidget("a\nb\n", true), u"a\r\nb\r\n");
    EXPECT_EQ(editTextFromWidget("a\nb", false), u"a\nb") << "single-line edits keep what they got";
    EXPECT_EQ(editTextFromWidget(nullptr, true), u"");
}

TEST(RendererDialogUnits, BaseUnitsFollowTheClassicMeasure) {
    // Pixels for the 52 letters and the font height, as "Sans 10" and "Sans 8" measure
    // at 96 dpi; a degenerate font still gives usable units.
    const std::array<int, 4> cases[] = {{422, 17, 8, 17}, {343, 13, 7, 13}, {0, 0, 1, 1}};
    for (const auto &[width, height, x, y] : cases) {
        BaseUnits units = baseUnitsFromMeasure(width, height);
        EXPECT_EQ(units.x, x) << width;
        EXPECT_EQ(units.y, y) << height;
    }
}

TEST(RendererDialogUnits, UnitsScaleAndRoundAsTheDialogManagerDoes) {
    BaseUnits sans10{8, 17}, sans8{7, 13};
    EXPECT_EQ(horizontalPixels(300, sans10), 600); // a 300 x 196 unit dialog is 600 x 417 pixels
    EXPECT_EQ(verticalPixels(196, sans10), 417);
    EXPECT_EQ(horizontalPixels(1, sans8), 2) << "7/4 rounds to 2";
    EXPECT_EQ(horizontalPixels(2, sans8), 4) << "14/4 = 3.5 rounds away from zero";
    EXPECT_EQ(verticalPixels(14, sans8), 23) << "182/8 = 22.75";
    EXPECT_EQ(verticalPixels(4, sans8), 7) << "52/8 = 6.5 rounds away from zero";
    EXPECT_EQ(horizontalPixels(-2, sans8), -4) << "negative offsets round symmetrically";
    EXPECT_EQ(horizontalPixels(0, sans8), 0);
    PixelRect rect = toPixels({7, 211, 50, 14}, sans8);
    EXPECT_EQ(std::vector<int>({rect.x, rect.y, rect.width, rect.height}), std::vector<int>({12, 343, 88, 23}));
}

} // namespace

#endif
