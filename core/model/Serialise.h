// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"
#include <QString>

namespace m_tvXML {

/// The one serialiser: a node and what is below it as XML text. The line ends that it makes are CR LF; those
/// in texts and tags stay as they are. `indentUnit` is repeated level - 1 times before an element. Comments
/// and instructions stand at the left margin, text stands as it is stored; CDATA sections and document types
/// are left out. There is no empty-element form and no line break at the end. Tags are escaped already, so
/// nothing is escaped here. Empty for nothing. Throws std::bad_alloc for a text that memory can't hold.
QString GetTreeNodesXML(controls::TreeNode node, const QString& indentUnit);

} // namespace m_tvXML
