// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/LongWords.h"

namespace desktop {

QString WithBreaksInLongWords(const QString& text) {
    constexpr int kLongest = 80;
    const QChar placeToBreak(0x200B);
    QString broken;
    int word = 0;
    for (const QChar unit : text) {
        word = unit.isSpace() ? 0 : word + 1;
        if (word > kLongest && !unit.isLowSurrogate()) {
            broken += placeToBreak;
            word = 0;
        }
        broken += unit;
    }
    return broken;
}

} // namespace desktop
