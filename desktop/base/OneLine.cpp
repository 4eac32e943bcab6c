// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/OneLine.h"

namespace desktop {

namespace {

constexpr qsizetype kMost = 300;

QString WithoutControls(QString shown, bool cut) {
    // Half a character at the cut would be shown as a box.
    if (cut && shown.back().isHighSurrogate())
        shown.chop(1);
    for (QChar& character : shown) {
        const auto category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph)
            character = u' ';
    }
    return shown;
}

} // namespace

QString OneLine(text::CompactView text) {
    const bool cut = text.length > kMost;
    if (cut)
        text.length = kMost;
    return WithoutControls(text.toString(), cut);
}

QString OneLine(QStringView text) {
    return WithoutControls(text.left(kMost).toString(), text.size() > kMost);
}

QString OneLineName(const QString& name) {
    constexpr qsizetype kEnd = 140;
    if (name.size() <= 2 * kEnd)
        return OneLine(name);
    return OneLine(QStringView(name).first(kEnd)) + QStringLiteral("...") +
           OneLine(QStringView(name).last(kEnd));
}

} // namespace desktop
