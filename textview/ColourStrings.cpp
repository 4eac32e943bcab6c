// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/ColourStrings.h"

namespace textview {

namespace {

constexpr int kHexadecimal = 16;
constexpr int kDigits = 6;

} // namespace

QString ColorToRTFString(std::uint32_t colour) {
    const QString digits = QString::number(colour, kHexadecimal).rightJustified(kDigits, u'0');
    const auto part = [](const QString& pair) { return QString::number(pair.toUInt(nullptr, kHexadecimal)); };
    return QStringLiteral("\\red") + part(digits.right(2)) + QStringLiteral("\\green") +
           part(digits.mid(2, 2)) + QStringLiteral("\\blue") + part(digits.left(2));
}

void MakeRTFColorStrings(Options& options) {
    options.CommentRTF = ColorToRTFString(options.CommentColor);
    options.SlashRTF = ColorToRTFString(options.SlashColor);
    options.GLRTF = ColorToRTFString(options.GLColor);
    options.EqualRTF = ColorToRTFString(options.EqualColor);
}

} // namespace textview
