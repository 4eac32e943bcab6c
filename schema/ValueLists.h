// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>
#include <QStringList>
#include <optional>

// What the list offers to choose from, as a value of an attribute or as the name of an element.
namespace schema {

/// The values of an attribute that has a fixed list of them, in order; empty for any other.
QStringList GetSpecialListByAttribute(const QString& attribute);
/// Whether an attribute's value is chosen from a list, which may be an empty one.
bool IsSpecialAttribute(const QString& attribute);
/// The list of such an attribute, each value behind the document's prefix; nothing for any other attribute.
std::optional<QStringList> ValuesOffered(DocumentWindow& window, const QString& attribute);

/// Whether a name is that of one of the three compositors, which can stand for one another.
bool IsSpecialNodeByName(const QString& name);
/// Their names, behind the document's prefix, for one of them; empty for any other element.
QStringList NamesOffered(DocumentWindow& window, const QString& elementName);

} // namespace schema
