// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringView>

namespace xml {

/// A name in quotes, cut when it is long, as sentences show it.
inline QString Quoted(QStringView name) {
    constexpr qsizetype kLongest = 80;
    const QString shown =
        name.size() <= kLongest ? name.toString() : name.left(kLongest).toString() + QChar(0x2026);
    return u'\'' + shown + u'\'';
}

} // namespace xml
