// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"
#include "platform/text/LongText.h"
#include <QString>

namespace m_tvXML {

/// The one serialiser: a node and what is below it as XML text. The line ends that it makes are CR LF; those
/// in texts and tags stay as they are. `indentUnit` is repeated level - 1 times before an element. Comments
/// and instructions stand at the left margin, text stands as it is stored; CDATA sections and document types
/// are left out. There is no empty-element form and no line break at the end. Tags are escaped already, so
/// nothing is escaped here. Empty for nothing. Throws std::bad_alloc for a text that memory can't hold.
QString GetTreeNodesXML(controls::TreeNode node, const QString& indentUnit);

/// 1-based place of the start of the `number`-th node in a text; 0 for none. Every "<" that doesn't begin
/// "</" counts.
qsizetype GetTextPositionByNodeNum(const text::LongText& text, long number);
/// Number of the last node that starts in the first `position` characters; 0 for none.
long GetNodeNumByTextPosition(const text::LongText& text, qsizetype position);

} // namespace m_tvXML
