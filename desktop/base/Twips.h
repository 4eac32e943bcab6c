// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cmath>

namespace desktop {

// The control models measure in twips, the widgets in pixels of a screen at scale 1.
inline constexpr double kTwipsPerPixel = 15;

inline int ToPixels(double twips) {
    return static_cast<int>(std::lround(twips / kTwipsPerPixel));
}

inline double ToTwips(int pixels) {
    return pixels * kTwipsPerPixel;
}

} // namespace desktop
