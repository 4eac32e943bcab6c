// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/Colours.h"
#include <algorithm>
#include <array>
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

double Contrast(double one, double other) {
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

constexpr double kDark = 0.18; // the luminance of a middle grey
constexpr double kReadable = 4.5;
constexpr int kSteps = 20;

QColor Mixed(const QColor& colour, double white) {
    const auto part = [white](double value) { return static_cast<float>(value + (1 - value) * white); };
    return QColor::fromRgbF(part(colour.redF()), part(colour.greenF()), part(colour.blueF()));
}

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

QColor ReadableOn(const QColor& background, const QColor& colour) {
    const double ground = Luminance(background);
    if (ground > kDark)
        return colour;
    for (int step = 0; step < kSteps; ++step) {
        const QColor lighter = Mixed(colour, static_cast<double>(step) / kSteps);
        if (Contrast(Luminance(lighter), ground) >= kReadable)
            return lighter;
    }
    return Qt::white;
}

} // namespace desktop
