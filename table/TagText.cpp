// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/TagText.h"
#include "core/model/AttributeWalk.h"
#include <QVarLengthArray>
#include <algorithm>

namespace table {

namespace {

using m_tvXML::AttributeWalk;

text::CompactView ViewOf(const QString& tag) {
    return {reinterpret_cast<const unsigned char*>(tag.utf16()), static_cast<std::uint32_t>(tag.size()),
            true};
}

QStringView NameIn(const AttributeWalk& pairs, QStringView tag) {
    return tag.sliced(pairs.nameStart(), pairs.nameEnd() - pairs.nameStart());
}

QString Renamed(const QString& tag, const QString& oldName, const QString& newName, const QString& value,
                bool exactly) {
    QString out;
    qsizetype kept = 0;
    for (AttributeWalk pairs(ViewOf(tag)); pairs.next();) {
        const QStringView name = NameIn(pairs, tag);
        if (!(exactly ? name == oldName : name.endsWith(oldName)) || !(pairs.value() == QStringView(value)))
            continue;
        const qsizetype from = pairs.nameEnd() - oldName.size();
        out += QStringView(tag).sliced(kept, from - kept);
        out += newName;
        kept = pairs.nameEnd();
    }
    return out += QStringView(tag).sliced(kept);
}

} // namespace

QString WithValue(const QString& tag, const QString& name, const QString& value) {
    for (AttributeWalk pairs(ViewOf(tag)); pairs.next();) {
        if (NameIn(pairs, tag).endsWith(name))
            return tag.left(pairs.valueStart()) + value + tag.mid(pairs.valueEnd());
    }
    return tag + u' ' + name + QStringLiteral("=\"") + value + u'"';
}

QString WithName(const QString& tag, const QString& oldName, const QString& newName, const QString& value) {
    const QString renamed = Renamed(tag, oldName, newName, value, false);
    return HasNameTwice(renamed) ? Renamed(tag, oldName, newName, value, true) : renamed;
}

QString WithoutName(const QString& tag, const QString& name) {
    for (AttributeWalk pairs(ViewOf(tag)); pairs.next();) {
        if (pairs.name() == QStringView(name))
            return tag.left(pairs.nameStart()) + tag.mid(pairs.valueEnd() + 1);
    }
    return tag;
}

bool HasNameTwice(const QString& tag) {
    QVarLengthArray<QStringView, 16> names;
    for (AttributeWalk pairs(ViewOf(tag)); pairs.next();)
        names.append(NameIn(pairs, tag));
    std::sort(names.begin(), names.end());
    return std::adjacent_find(names.begin(), names.end()) != names.end();
}

} // namespace table
