// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Validate.h"
#include "core/model/mXMLEdit.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/Clipboard.h"
#include "nodes/ListRows.h"
#include <QSet>
#include <algorithm>

// What is pasted into nodes, wherever it comes from and whichever view it is meant for.

namespace {

using controls::TreeNode;

// Beside the root element there is room for comments and instructions alone.
bool FitsAtTheTop(DocumentWindow& window, xml::Node fragment) {
    int elements = m_tvXML::HaveElementNodeAtXMLRootLevel(window) ? 1 : 0;
    for (xml::Node node = fragment.firstChild(); node; node = node.nextSibling()) {
        if (node.nodeType() == xml::TEXT || node.nodeType() == xml::CDATA_SECTION)
            return false;
        elements += node.nodeType() == xml::ELEMENT ? 1 : 0;
    }
    return elements <= 1;
}

QString JoinAttributes(const QStringList& names, const QStringList& values) {
    QStringList pairs;
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (!names[i].isEmpty())
            pairs << names[i] + QStringLiteral("=\"") + values[i] + u'"';
    }
    return pairs.join(u' ');
}

} // namespace

void SayNothingFits(DocumentWindow& window) {
    window.app.services.prompts.MsgBox(QStringLiteral("This type of data can not paste!"));
}

// The serialiser would leave out what is below a leaf.
TreeNode Container(TreeNode node) {
    while (node && !m_tvXML::IsTreeRoot(node) && m_tvXML::GetKeyType(node) != kRowElement)
        node = node.Parent();
    return node;
}

void PasteXMLStringToTree(DocumentWindow& window, TreeNode node, bool asChild) {
    PasteXMLText(window, window.app.services.clipboard.GetText(), node, asChild);
}

bool PasteXMLText(DocumentWindow& window, const QString& text, TreeNode node, bool asChild) try {
    const TreeNode target = Container(node);
    if (!target)
        return false;
    std::shared_ptr<xml::ParsedDocument> document;
    const xml::Node temp = ConvertStringToXMLNode(
        window.app, QStringLiteral("<temp>") + text + QStringLiteral("</temp>"), document);
    if (!temp || (m_tvXML::IsTreeRoot(target) && !(asChild && FitsAtTheTop(window, temp))))
        return false;
    const int before = window.tvXML.Nodes.Count();
    const TreeNode selected = window.tvXML.SelectedItem();
    window.bTreeChanged = true; // also if only a part gets there
    m_tvXML::XMLChildNodesToTree(window.app, &window, temp, target.Key(), window.tvXML);
    if (selected)
        window.tvXML.SetSelectedItem(selected);
    DoTree(window);
    return window.tvXML.Nodes.Count() > before;
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".PasteXMLStringToTree"));
    return false;
}

xml::Node ConvertStringToXMLNode(Application& app, const QString& text,
                                 std::shared_ptr<xml::ParsedDocument>& document) {
    if (!mXMLEdit::LoadXMLDocFromString(app, text, document, false))
        return {};
    return document->documentElement();
}

bool AddAttributes(DocumentWindow& window, TreeNode element, const QString& attributes) {
    xml::ParsedDocument document;
    if (!document.loadXML(m_tvXML::NodeAttributesProbe(attributes, QStringLiteral("temp"))))
        return false;
    QStringList names, values, newNames, newValues;
    m_tvXML::GetAllAttributesNameAndValue(element.Tag(), names, values);
    m_tvXML::GetAllAttributesNameAndValue(m_tvXML::GenerateAttributeString(document.documentElement()),
                                          newNames, newValues);
    const QSet<QString> taken(names.begin(), names.end());
    if (std::any_of(newNames.begin(), newNames.end(),
                    [&](const QString& name) { return taken.contains(name); })) {
        window.app.services.prompts.MsgBox(
            QStringLiteral("Can not set same attribute name at XML attribute list!"));
        return false;
    }
    element.SetTag(JoinAttributes(names + newNames, values + newValues));
    window.bTreeChanged = true;
    return true;
}

bool PasteNodesAndAttributes(DocumentWindow& window, TreeNode target, const QString& nodes,
                             const QString& attributes, bool asChild) {
    const auto refuse = [&] {
        SayNothingFits(window);
        return false;
    };
    if (!attributes.isEmpty() && m_tvXML::GetKeyType(target) != kRowElement)
        return refuse();
    const QString before = target.Tag();
    const bool changedBefore = window.bTreeChanged;
    if (!attributes.isEmpty() && !AddAttributes(window, target, attributes))
        return false;
    if (nodes.isEmpty() || PasteXMLText(window, nodes, target, asChild))
        return true;
    target.SetTag(before);
    window.bTreeChanged = changedBefore;
    return window.app.lastParseError ? false : refuse(); // the parser's box has told it
}
