// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Attributes.h"
#include "core/model/Escaping.h"
#include "platform/text/TextTools.h"
#include <QSet>
#include <algorithm>

namespace m_tvXML {

int GetAllAttributesNameAndValue(const QString& tag, QStringList& names, QStringList& values) {
    names.clear();
    values.clear();
    if (tag.isEmpty())
        return 0;
    const QStringList pieces = tag.split(u'"');
    int i = 0;
    for (; i < pieces.size(); i += 2) {
        const QString piece = text::Trim(pieces[i]);
        if (piece.isEmpty())
            continue;
        const qsizetype place = i / 2;
        names.resize(place + 1);
        values.resize(place + 1);
        names[place] = piece.chopped(1);
        values[place] = pieces.value(i + 1);
    }
    return i;
}

void WriteAttributes(text::CompactBuilder& out, xml::Node element) {
    out.clear();
    const xml::ParsedDocument& document = *element.ownerDocument();
    const xml::Attribute* attributes = element.attributes();
    const int count = element.attributeCount();
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            out.append(' ');
        out.append(document.name(attributes[i].nameId));
        out.append("=\"", 2);
        mXMLEdit::AppendAttributeValue(out, document.view(attributes[i].value));
        out.append('"');
    }
}

QString GenerateAttributeString(xml::Node element) {
    if (!element)
        return {};
    text::CompactBuilder out;
    WriteAttributes(out, element);
    return out.view().toString();
}

Attributes::Attributes(const QString& tag) {
    QStringList names, values;
    GetAllAttributesNameAndValue(tag, names, values);
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (!names[i].isEmpty())
            add(names[i], values[i]);
    }
}

bool Attributes::sharesNameWith(const Attributes& others) const {
    const QSet<QString> taken(names_.begin(), names_.end());
    return std::any_of(others.names_.begin(), others.names_.end(),
                       [&](const QString& name) { return taken.contains(name); });
}

void Attributes::add(const QString& name, const QString& value) {
    names_ << name;
    values_ << value;
}

void Attributes::add(const Attributes& others) {
    names_ += others.names_;
    values_ += others.values_;
}

void Attributes::set(qsizetype at, const QString& name, const QString& value) {
    names_[at] = name;
    values_[at] = value;
}

void Attributes::swap(qsizetype a, qsizetype b) {
    names_.swapItemsAt(a, b);
    values_.swapItemsAt(a, b);
}

void Attributes::remove(const QString& name) {
    if (const qsizetype at = find(name); at >= 0) {
        names_.removeAt(at);
        values_.removeAt(at);
    }
}

QString Attributes::tag() const {
    QStringList pairs;
    for (qsizetype i = 0; i < count(); ++i)
        pairs << pair(names_[i], values_[i]);
    return pairs.join(u' ');
}

QString Attributes::pair(const QString& name, const QString& value) {
    return name + QStringLiteral("=\"") + mXMLEdit::WithLineEndReferences(value) + u'"';
}

} // namespace m_tvXML
