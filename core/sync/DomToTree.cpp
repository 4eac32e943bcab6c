// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/DocumentWindow.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "platform/text/StringPool.h"

// A parsed document into nodes of a tree.
namespace m_tvXML {

namespace {

using controls::TreeNode;
using text::CompactBuilder;
using text::StringPool;

// name="value" pairs joined by one blank.
void AttributesInto(CompactBuilder& out, xml::Node element) {
    out.clear();
    const xml::ParsedDocument& document = *element.ownerDocument();
    const xml::Attribute* attributes = element.attributes();
    for (int i = 0; i < element.attributeCount(); ++i) {
        if (i > 0)
            out.append(' ');
        out.append(document.name(attributes[i].nameId));
        out.append("=\"", 2);
        out.appendEscaped(document.view(attributes[i].value));
        out.append('"');
    }
}

// One copy of a document: names and pictures are looked up once, and nothing is made per node but the node.
class Copier {
public:
    Copier(Application& app, DocumentWindow* active, const xml::ParsedDocument& document, controls::TreeView& tree)
        : app_(app), document_(document), tree_(tree), ownTree_(active && &active->tvXML == &tree),
          rootStands_(active && HaveElementNodeAtXMLRootLevel(*active)) {
        names_.resize(document.nameCount(), 0);
    }

    // Walks without recursion: a document may be deeper than the stack.
    void copyChildren(xml::Node from, TreeNode to) {
        const bool atRoot = IsTreeRoot(to);
        bool rootChecked = false;
        xml::Node node = from.firstChild();
        TreeNode parent = to;
        while (node) {
            if (parent == to && atRoot && !rootChecked && rootStands_) {
                rootChecked = true;
                if (node.nodeType() == xml::ELEMENT || node.nodeType() == xml::TEXT)
                    return; // a document has one root element and no text beside it
            }
            const TreeNode added = add(node, parent);
            if (parent == to && atRoot && ownTree_ && node.nodeType() == xml::ELEMENT)
                rootStands_ = true;
            if (added && node.nodeType() == xml::ELEMENT && node.hasChildNodes()) {
                node = node.firstChild();
                parent = added;
                continue;
            }
            while (!node.nextSibling()) {
                node = node.parentNode();
                if (node == from)
                    return;
                parent = parent.Parent();
            }
            node = node.nextSibling();
        }
    }

private:
    TreeNode add(xml::Node node, TreeNode parent) {
        const int type = node.nodeType();
        TreeNode added;
        try {
            added = tree_.AppendChild(parent, static_cast<std::uint8_t>(type),
                                      static_cast<std::uint32_t>(++app_.ElementKeyCounter), nameOf(node), image(node, false),
                                      image(node, true));
            last_ = added;
        } catch (const text::Fault& fault) {
            ErrorReportBox(app_, fault, QStringLiteral("m_tvXML.XMLChildNodesToTree"));
        }
        if (last_)
            setTag(last_, node); // after a node that could not be added, its Tag lands on the one before
        return added;
    }

    void setTag(TreeNode target, xml::Node node) {
        switch (node.nodeType()) {
        case xml::ELEMENT:
            if (node.attributeCount() > 0) {
                AttributesInto(scratch_, node);
                tree_.SetTag(target, scratch_.view());
            }
            break;
        case xml::TEXT:
            scratch_.clear();
            scratch_.appendEscaped(node.valueView());
            tree_.SetTag(target, scratch_.view());
            SetTextNodeDisplay(app_, target);
            break;
        case xml::DOCUMENT_TYPE:
            break; // the declaration's content is not kept
        default:
            tree_.SetTag(target, node.valueView());
        }
    }

    StringPool::Ref nameOf(xml::Node node) {
        StringPool::Ref& ref = names_[node.nameId()];
        if (ref == 0)
            ref = tree_.InternText(document_.name(node.nameId()));
        return ref;
    }

    int image(xml::Node node, bool open) {
        int& place = images_[open ? 1 : 0][node.nodeType() & 15];
        if (place == 0) {
            const QString type = node.nodeTypeString();
            place = tree_.ImageIndex(open ? QStringLiteral("open") + type : type);
        }
        return place;
    }

    Application& app_;
    const xml::ParsedDocument& document_;
    controls::TreeView& tree_;
    bool ownTree_;    // the tree is the active window's: what is added counts for the next look at its root level
    bool rootStands_; // the active window's document has its root element
    TreeNode last_;
    std::vector<StringPool::Ref> names_;
    int images_[2][16] = {};
    CompactBuilder scratch_;
};

} // namespace

void XMLChildNodesToTree(Application& app, DocumentWindow* active, xml::Node domNode, const QString& parentKey,
                         controls::TreeView& tree) try {
    if (!domNode)
        return;
    const TreeNode parent = parentKey.isEmpty() ? TreeNode() : tree.Nodes(parentKey);
    const controls::TreeUpdate update(tree);
    Copier(app, active, *domNode.ownerDocument(), tree).copyChildren(domNode, parent);
} catch (const text::Fault& fault) {
    ErrorReportBox(app, fault, QStringLiteral("m_tvXML.XMLChildNodesToTree"));
}

QString GenerateAttributeString(xml::Node domNode) {
    if (!domNode)
        return {};
    CompactBuilder out;
    AttributesInto(out, domNode);
    return out.view().toString();
}

QString GetXmlNodeAllNodeText(xml::Node domNode) {
    QString text;
    if (!domNode)
        return text;
    for (xml::Node child = domNode.firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() == xml::TEXT)
            text += child.nodeValue();
    }
    return text;
}

} // namespace m_tvXML
