// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/Colours.h"
#include <gtest/gtest.h>

namespace {

double Luma(const QColor& colour) {
    return 0.2126 * colour.redF() + 0.7152 * colour.greenF() + 0.0722 * colour.blueF();
}

TEST(Colours, OfTextAreAsChosenOnPaperAndReadableInTheDark) {
    const QColor paper(Qt::white), night(30, 30, 30);
    for (const std::uint32_t colour : {0xFF0000U, 0x00C832U, 0xB4B4B4U, 0x3232FFU, 0x000078U, 0x000001U}) {
        const QColor chosen = desktop::ToQColor(colour);
        EXPECT_EQ(desktop::ToColour(chosen), colour);
        EXPECT_EQ(desktop::TextColour(colour, paper), chosen);
        const QColor shown = desktop::TextColour(colour, night);
        EXPECT_GE(Luma(shown), Luma(chosen));
        EXPECT_GT(Luma(shown), 0.3);
        EXPECT_TRUE(chosen.hslHue() < 0 || std::abs(shown.hslHue() - chosen.hslHue()) < 4);
    }
    EXPECT_FALSE(desktop::TextColour(0, paper).isValid());
}

} // namespace
