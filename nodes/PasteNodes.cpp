// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/PasteNodes.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/model/DomToTree.h"
#include "core/model/NodeKind.h"
#include "core/model/NodeNumbers.h"
#include "core/model/Probe.h"
#include <QRegularExpression>

namespace nodes {

namespace {

using controls::TreeNode;
using m_tvXML::Attributes;

// Beside the root element there is room for comments and instructions alone.
bool FitsAtTheTop(DocumentWindow& window, xml::Node fragment) {
    int elements = m_tvXML::HaveElementNodeAtXMLRootLevel(window.tvXML) ? 1 : 0;
    for (xml::Node node = fragment.firstChild(); node; node = node.nextSibling()) {
        if (node.nodeType() == xml::TEXT || node.nodeType() == xml::CDATA_SECTION)
            return false;
        elements += node.nodeType() == xml::ELEMENT ? 1 : 0;
    }
    return elements <= 1;
}

// What another program copied may be a whole document, and its declaration can't stand in an element.
QString WithoutDeclaration(const QString& text) {
    static const QRegularExpression declaration(QStringLiteral("^[\\s\\x{FEFF}]*<\\?xml\\s[^>]*\\?>\\s*"));
    const QRegularExpressionMatch match = declaration.match(text, 0, QRegularExpression::NormalMatch);
    return match.hasMatch() ? text.mid(match.capturedLength()) : text;
}

bool Refuse(DocumentWindow& window) {
    SayNothingFits(window);
    return false;
}

// The attributes of an element and those that are added; nothing where that can't be, which is told.
std::optional<Attributes> WithAttributes(DocumentWindow& window, TreeNode element,
                                         const QString& attributes) {
    Attributes all(element);
    const std::optional<Attributes> added = AttributesOf(attributes);
    if (!added)
        return {};
    if (all.sharesNameWith(*added)) {
        window.app.services.prompts.MsgBox(
            QStringLiteral("Can not set same attribute name at XML attribute list!"));
        return {};
    }
    all.add(*added);
    return all;
}

} // namespace

void SayNothingFits(DocumentWindow& window) {
    window.app.services.prompts.MsgBox(QStringLiteral("This type of data can not paste!"));
}

// The serialiser would leave out what is below a leaf (quirk 5).
TreeNode Container(TreeNode node) {
    while (node && !m_tvXML::IsTreeRoot(node) && !m_tvXML::IsElement(node))
        node = node.Parent();
    return node;
}

void PasteXMLStringToTree(DocumentWindow& window, TreeNode node, bool asChild) {
    PasteXMLText(window, window.app.services.clipboard.GetText(), node, asChild);
}

Pasted PasteXMLText(DocumentWindow& window, const QString& text, TreeNode node, bool asChild) {
    return edit::Run(window, "PasteXMLStringToTree", [&] {
        const TreeNode target = Container(node);
        if (!target)
            return Pasted::Nothing;
        const mXMLEdit::Parsed parsed = ConvertStringToXMLNode(
            window.app, QStringLiteral("<temp>") + WithoutDeclaration(text) + QStringLiteral("</temp>"));
        const xml::Node temp = parsed.root();
        if (!temp)
            return Pasted::Refused;
        if (m_tvXML::IsTreeRoot(target) && !(asChild && FitsAtTheTop(window, temp)))
            return Pasted::Nothing;
        const int before = window.tvXML.Nodes.Count();
        const TreeNode selected = window.tvXML.SelectedItem();
        m_tvXML::XMLChildNodesToTree(window.app, &window.tvXML, temp, target.Key(), window.tvXML);
        if (selected)
            window.tvXML.SetSelectedItem(selected);
        return window.tvXML.Nodes.Count() > before ? Pasted::Nodes : Pasted::Nothing;
    });
}

mXMLEdit::Parsed ConvertStringToXMLNode(Application& app, const QString& text) {
    return edit::LoadXMLDocFromString(app, text, edit::Tone::Box, xml::Prefixes::Any);
}

std::optional<Attributes> AttributesOf(const QString& text) {
    const std::optional<QString> read = m_tvXML::ReadAttributes(text);
    return read ? std::optional<Attributes>(*read) : std::nullopt;
}

bool AddAttributes(DocumentWindow& window, TreeNode element, const QString& attributes) {
    const std::optional<Attributes> all = WithAttributes(window, element, attributes);
    if (!all)
        return false;
    edit::Run(window, "AddAttributes", [&] { element.SetTag(all->tag()); });
    return true;
}

bool PasteNodesAndAttributes(DocumentWindow& window, TreeNode target, const QString& nodes,
                             const QString& attributes, bool asChild) {
    if (!attributes.isEmpty() && !m_tvXML::IsElement(target))
        return Refuse(window);
    std::optional<Attributes> all;
    if (!attributes.isEmpty()) {
        all = WithAttributes(window, target, attributes);
        if (!all)
            return false;
    }
    return edit::Run(window, "PasteNodesAndAttributes", [&] {
        const Pasted pasted = nodes.isEmpty() ? Pasted::Nodes : PasteXMLText(window, nodes, target, asChild);
        if (pasted != Pasted::Nodes)
            return pasted == Pasted::Nothing ? Refuse(window) : false;
        if (all)
            target.SetTag(all->tag());
        return true;
    });
}

} // namespace nodes
