// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/TagText.h"
#include "core/model/AttributeWalk.h"
#include "table/Prefixes.h"
#include <QHash>
#include <QVarLengthArray>
#include <algorithm>
#include <vector>

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
        const bool ends = name.endsWith(oldName) && !DeclaresPrefix(name);
        if (!(name == oldName || (ends && !exactly)) || !(pairs.value() == QStringView(value)))
            continue;
        const qsizetype from = pairs.nameEnd() - oldName.size();
        out += QStringView(tag).sliced(kept, from - kept);
        out += newName;
        kept = pairs.nameEnd();
    }
    return out += QStringView(tag).sliced(kept);
}

/// An attribute, and the cell whose value it gets; null: it keeps its own.
struct Taken {
    QStringView name;
    qsizetype start, end; ///< of its value in the Tag
    const NewCell* cell = nullptr;
};

std::vector<Taken> AttributesIn(const QString& tag) {
    std::vector<Taken> found;
    for (AttributeWalk pairs(ViewOf(tag)); pairs.next();)
        found.push_back({NameIn(pairs, tag), pairs.valueStart(), pairs.valueEnd()});
    return found;
}

Taken* EndingSo(std::vector<Taken>& attributes, const QString& name) {
    const auto found = std::find_if(attributes.begin(), attributes.end(), [&](const Taken& one) {
        return !one.cell && one.name.endsWith(name) && !DeclaresPrefix(one.name);
    });
    return found == attributes.end() ? nullptr : &*found;
}

QString Filled(const QString& tag, const std::vector<Taken>& attributes) {
    QString out;
    qsizetype kept = 0;
    for (const Taken& one : attributes) {
        if (!one.cell)
            continue;
        out += QStringView(tag).sliced(kept, one.start - kept);
        out += one.cell->value;
        kept = one.end;
    }
    return out += QStringView(tag).sliced(kept);
}

} // namespace

QString WithValues(const QString& tag, std::span<const NewCell> cells) {
    std::vector<Taken> attributes = AttributesIn(tag);
    QHash<QStringView, Taken*> exact;
    for (auto one = attributes.rbegin(); one != attributes.rend(); ++one)
        exact.insert(one->name, &*one); // the first of a name
    std::vector<const NewCell*> lacking;
    for (const NewCell& cell : cells) {
        if (Taken* own = exact.value(cell.name))
            own->cell = &cell;
        else
            lacking.push_back(&cell);
    }
    QString added;
    for (const NewCell* cell : lacking) {
        if (Taken* hit = cell->isNew ? nullptr : EndingSo(attributes, cell->name))
            hit->cell = cell;
        else
            added += u' ' + cell->name + QStringLiteral("=\"") + cell->value + u'"';
    }
    return Filled(tag, attributes) + added;
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
