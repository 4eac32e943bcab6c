// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/NodeContent.h"
#include "platform/controls/Controls.h"

namespace nodes {

/// The boxes of the one-by-one editor and their labels.
class NodeBoxes {
public:
    controls::Label lNodeName, lAttrs, lText, lXPath;
    /// The height of txtNodeAttrs tells the layout: 5795 twips with one box, 2775 with two.
    controls::TextBox txtNodeName, txtNodeAttrs, txtNodeText, txtXPath;

protected:
    NodeBoxes();
    m_tvXML::NodeContent Typed() const; ///< what the boxes hold
    void Fill(const m_tvXML::NodeContent& content);
    /// What was changed elsewhere shows in the boxes in which nothing was typed.
    void Follow(const m_tvXML::NodeContent& was, const m_tvXML::NodeContent& now);
    void ShowKind(int kind); ///< labels, layout, and which boxes can be typed in
};

} // namespace nodes
