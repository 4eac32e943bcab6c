// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/NewNode.h"

namespace nodes {

controls::TreeNode NewNode(DocumentWindow& window, controls::TreeNode relative, int relationship,
                           m_tvXML::NodeKind kind, const QString& text, const QString& tag) {
    const QString picture = m_tvXML::PictureOf(kind);
    controls::TreeNode added =
        window.tvXML.Nodes.Add(relative, relationship, m_tvXML::GetDistinctElementKey(window.app, kind), text,
                               picture, QStringLiteral("open") + picture);
    added.SetTag(tag);
    return added;
}

} // namespace nodes
