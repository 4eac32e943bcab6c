// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextColours.h"
#include <cmath>

namespace desktop {

namespace {

constexpr double kReadable = 4.5; // contrast that text of ordinary size needs
constexpr double kDark = 0.18;    // luminance of middle grey

double Linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

double Contrast(const QColor& light, const QColor& dark) {
    return (Luminance(light) + 0.05) / (Luminance(dark) + 0.05);
}

} // namespace

QColor ShownColour(std::uint32_t colour, const QColor& background) {
    if (colour == 0)
        return {};
    QColor shown(static_cast<int>(colour & 0xFFU), static_cast<int>((colour >> 8U) & 0xFFU),
                 static_cast<int>((colour >> 16U) & 0xFFU));
    if (Luminance(background) > kDark)
        return shown;
    constexpr int kSteps = 20;
    const double from = shown.lightnessF();
    const double hue = shown.hslHueF(), saturation = shown.hslSaturationF();
    for (int step = 1; step <= kSteps && Contrast(shown, background) < kReadable; ++step)
        shown.setHslF(static_cast<float>(hue), static_cast<float>(saturation),
                      static_cast<float>(from + (1 - from) * step / kSteps));
    return shown;
}

} // namespace desktop
