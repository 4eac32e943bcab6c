// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/Colours.h"
#include <cmath>

namespace desktop {

namespace {

constexpr std::uint32_t kByte = 0xFF;
constexpr int kGreenShift = 8;
constexpr int kBlueShift = 16;

// Relative luminance and contrast as web pages are judged by them.
double Linear(double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

double Contrast(const QColor& light, const QColor& dark) {
    return (Luminance(light) + 0.05) / (Luminance(dark) + 0.05);
}

constexpr double kDark = 0.18;    // the luminance of a middle grey
constexpr double kReadable = 4.5; // contrast that text of ordinary size needs
constexpr int kSteps = 20;

} // namespace

QColor ToQColor(std::uint32_t colour) {
    return {static_cast<int>(colour & kByte), static_cast<int>(colour >> kGreenShift & kByte),
            static_cast<int>(colour >> kBlueShift & kByte)};
}

std::uint32_t ToColour(const QColor& colour) {
    return static_cast<std::uint32_t>(colour.red()) |
           static_cast<std::uint32_t>(colour.green()) << kGreenShift |
           static_cast<std::uint32_t>(colour.blue()) << kBlueShift;
}

QColor Mixed(const QColor& first, const QColor& second, double part) {
    const auto mix = [part](float a, float b) { return static_cast<float>(a * (1 - part) + b * part); };
    return QColor::fromRgbF(mix(first.redF(), second.redF()), mix(first.greenF(), second.greenF()),
                            mix(first.blueF(), second.blueF()));
}

QColor ReadableOn(const QColor& background, const QColor& colour) {
    if (Luminance(background) > kDark)
        return colour;
    QColor shown = colour;
    const double from = colour.lightnessF();
    for (int step = 1; step <= kSteps && Contrast(shown, background) < kReadable; ++step)
        shown.setHslF(colour.hslHueF(), colour.hslSaturationF(),
                      static_cast<float>(from + (1 - from) * step / kSteps));
    return shown;
}

QColor TextColour(std::uint32_t colour, const QColor& background) {
    return colour == 0 ? QColor() : ReadableOn(background, ToQColor(colour));
}

} // namespace desktop
