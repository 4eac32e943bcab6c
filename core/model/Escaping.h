// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/StringPool.h"
#include <QString>

// From what a node says to how it is written, so that the next reading gives the same.
namespace mXMLEdit {

/// & < > " ' as entities. A text that holds an entity already is escaped again.
QString convertStringToXML(const QString& text);

/// A text's value: the same, and a carriage return, which would be a line end after the next reading.
void AppendText(text::CompactBuilder& out, text::CompactView value);
/// An attribute's value: the same, and line ends and tabs, which would be blanks.
void AppendAttributeValue(text::CompactBuilder& out, text::CompactView value);
/// What an escaped value or text says: the five entities and references by number as their characters. What
/// is none of these stays.
QString WithoutReferences(const QString& escaped);
/// Line ends and tabs of an attribute's value that is escaped already (quirk 33).
QString WithLineEndReferences(QString value);

/// An "&" that begins no reference as one: what was typed plain among what is escaped.
QString WithAmpersandsEscaped(QString typed);

} // namespace mXMLEdit
