// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/dialogs/NodeBoxes.h"
#include "core/model/NodeKind.h"

namespace nodes {

namespace {

constexpr double kOneBox = 5795, kTwoBoxes = 2775; // heights of txtNodeAttrs in twips

QString NameLabel(int kind) {
    switch (kind) {
    case m_tvXML::kTreeRoot:
        return QStringLiteral("File Name:");
    case m_tvXML::kAttribute:
        return QStringLiteral("Attribute Name:");
    default:
        return QStringLiteral("Node Name:");
    }
}

} // namespace

NodeBoxes::NodeBoxes() {
    lXPath.SetCaption(QStringLiteral("XPath:"));
    lText.SetCaption(QStringLiteral("Text:"));
}

m_tvXML::NodeContent NodeBoxes::Typed() const {
    return {txtNodeName.Text(), txtNodeAttrs.Text(), txtNodeText.Text()};
}

void NodeBoxes::Fill(const m_tvXML::NodeContent& content) {
    txtNodeName.SetText(content.name);
    txtNodeAttrs.SetText(content.value);
    txtNodeText.SetText(content.text);
}

void NodeBoxes::Follow(const m_tvXML::NodeContent& was, const m_tvXML::NodeContent& now) {
    const auto follow = [](controls::TextBox& box, const QString& before, const QString& after) {
        if (box.Text() == before)
            box.SetText(after);
    };
    follow(txtNodeName, was.name, now.name);
    follow(txtNodeAttrs, was.value, now.value);
    follow(txtNodeText, was.text, now.text);
}

void NodeBoxes::ShowKind(int kind) {
    const bool element = kind == m_tvXML::kElement;
    lNodeName.SetCaption(NameLabel(kind));
    txtNodeName.SetEnabled(kind == m_tvXML::kTreeRoot || element || kind == m_tvXML::kAttribute);
    lAttrs.SetCaption(element ? QStringLiteral("Attributes:") : QStringLiteral("Value:"));
    // The document has no value of its own, and nothing has none at all.
    txtNodeAttrs.SetEnabled(kind > m_tvXML::kTreeRoot);
    controls::Bounds place = txtNodeAttrs.Place();
    place.Height = element ? kTwoBoxes : kOneBox;
    txtNodeAttrs.Move(place);
    lText.SetVisible(element);
    txtNodeText.SetVisible(element);
}

} // namespace nodes
