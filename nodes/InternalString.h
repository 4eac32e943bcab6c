// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <QStringList>

// Copied nodes as records of values, for grids: the values of a record are joined by an apostrophe, records
// by "<". Nothing is escaped: a value that holds one of the two signs becomes several values or records
// (quirk 9).
namespace nodes {

/// One node: its attributes' values in their order, then its whole text. `names` becomes the attributes'
/// names and "Node Text".
QString ConvertXMLNodeToInternalString(xml::Node node, QStringList& names);
/// The children of `parent`, a record each. `names` becomes those of the last one; without children it stays.
QString ConvertXMLNodesToInternalString(xml::Node parent, QStringList& names);

} // namespace nodes
