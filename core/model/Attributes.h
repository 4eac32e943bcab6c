// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"
#include "platform/text/StringPool.h"
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <QStringList>

// An element's attributes and the one form that its Tag has: name="value" pairs joined by one blank, values
// escaped.
namespace m_tvXML {

/// Takes an element's Tag apart at its quotes; the one reader of this format. Values stay escaped. Name and
/// value of the n-th pair stand at place n from 0; a pair without a name leaves its place empty, unless it is
/// the last one. The result is where the loop over every second piece ends: 0 for an empty Tag, 2n + 2 for n
/// pairs.
int GetAllAttributesNameAndValue(const QString& tag, QStringList& names, QStringList& values);

/// name="value" pairs of a parsed element; empty for nothing.
QString GenerateAttributeString(xml::Node element);
/// The same into `out`, which is emptied first: for whole documents.
void WriteAttributes(text::CompactBuilder& out, xml::Node element);

/// The attributes of one element, in their order, values escaped. Pairs without a name are dropped.
class Attributes {
public:
    Attributes() = default;
    explicit Attributes(const QString& tag);
    explicit Attributes(controls::TreeNode element) : Attributes(element.Tag()) {}

    qsizetype count() const { return names_.size(); }
    const QString& name(qsizetype at) const { return names_[at]; }
    const QString& value(qsizetype at) const { return values_[at]; }
    const QStringList& names() const { return names_; }
    qsizetype find(const QString& name) const { return names_.indexOf(name); } ///< -1: not there
    bool contains(const QString& name) const { return names_.contains(name); }
    bool sharesNameWith(const Attributes& others) const;

    void add(const QString& name, const QString& value);
    void add(const Attributes& others);
    void set(qsizetype at, const QString& name, const QString& value);
    void swap(qsizetype a, qsizetype b);
    void remove(const QString& name); ///< nothing happens where it isn't there

    QString tag() const; ///< as an element's Tag holds them
    static QString pair(const QString& name, const QString& value);

private:
    QStringList names_, values_;
};

} // namespace m_tvXML
