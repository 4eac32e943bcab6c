// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/DocumentWindow.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "platform/controls/TreeFiller.h"
#include "platform/text/StringPool.h"

// A parsed document into nodes of a tree.
namespace m_tvXML {

namespace {

using controls::TreeFiller;
using controls::TreeNode;
using text::CompactBuilder;
using text::StringPool;

// name="value" pairs joined by one blank.
void AttributesInto(CompactBuilder& out, xml::Node element) {
    out.clear();
    const xml::ParsedDocument& document = *element.ownerDocument();
    const xml::Attribute* attributes = element.attributes();
    const int count = element.attributeCount();
    for (int i = 0; i < count; ++i) {
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
    Copier(Application& app, DocumentWindow* active, const xml::ParsedDocument& document,
           controls::TreeView& tree, TreeNode parent)
        : app_(app), document_(document), tree_(tree), fill_(tree, parent), atRoot_(IsTreeRoot(parent)),
          ownTree_(active && &active->tvXML == &tree),
          rootStands_(active && HaveElementNodeAtXMLRootLevel(*active)),
          shownLength_(static_cast<std::uint32_t>(std::max(app.options.TreeNodeTextShowLength, 0))) {
        names_.resize(document.nameCount(), 0);
    }

    // Walks without recursion: a document may be deeper than the stack.
    void copyChildren(xml::Node from) {
        xml::Node node = from.firstChild();
        TreeFiller::Slot parent = fill_.top();
        while (node) {
            const bool top = parent == fill_.top();
            if (top && endsWalk(node.nodeType()))
                return;
            const TreeFiller::Slot added = add(node, parent);
            if (top && ownTree_ && node.nodeType() == xml::ELEMENT)
                rootStands_ = true;
            const xml::Node child =
                added != 0 && node.nodeType() == xml::ELEMENT ? node.firstChild() : xml::Node();
            if (child) {
                node = child;
                parent = added;
                continue;
            }
            xml::Node next = node.nextSibling();
            while (!next) {
                node = node.parentNode();
                if (node == from)
                    return;
                parent = fill_.parentOf(parent);
                next = node.nextSibling();
            }
            node = next;
        }
    }

private:
    // A document has one root element and no text beside it. Looked at only once, from the moment the root
    // element stands.
    bool endsWalk(int nodeType) {
        if (!atRoot_ || rootChecked_ || !rootStands_)
            return false;
        rootChecked_ = true;
        return nodeType == xml::ELEMENT || nodeType == xml::TEXT;
    }

    TreeFiller::Slot add(xml::Node node, TreeFiller::Slot parent) {
        TreeFiller::Slot added = 0;
        try {
            const int type = node.nodeType();
            added = fill_.append(parent, static_cast<std::uint8_t>(type),
                                 static_cast<std::uint32_t>(++app_.ElementKeyCounter), nameOf(node),
                                 image(node, type, false), image(node, type, true));
            last_ = added;
        } catch (const text::Fault& fault) {
            ErrorReportBox(app_, fault, QStringLiteral("m_tvXML.XMLChildNodesToTree"));
        }
        if (last_ != 0)
            setTag(last_, node); // after a node that could not be added, its Tag lands on the one before
        return added;
    }

    void setTag(TreeFiller::Slot target, xml::Node node) {
        switch (node.nodeType()) {
        case xml::ELEMENT:
            if (node.attributeCount() > 0) {
                AttributesInto(scratch_, node);
                fill_.setTag(target, scratch_.view());
            }
            break;
        case xml::TEXT:
            scratch_.clear();
            scratch_.appendEscaped(node.valueView());
            fill_.setTag(target, scratch_.view());
            fill_.setTextFromTag(target, shownLength_);
            break;
        case xml::DOCUMENT_TYPE:
            break; // the declaration's content is not kept
        default:
            fill_.setTag(target, node.valueView());
        }
    }

    StringPool::Ref nameOf(xml::Node node) {
        StringPool::Ref& ref = names_[node.nameId()];
        if (ref == 0)
            ref = tree_.InternText(document_.name(node.nameId()));
        return ref;
    }

    int image(xml::Node node, int type, bool open) {
        int& place = images_[open ? 1 : 0][type & 15];
        if (place == 0) {
            const QString key = node.nodeTypeString();
            place = tree_.ImageIndex(open ? QStringLiteral("open") + key : key);
        }
        return place;
    }

    Application& app_;
    const xml::ParsedDocument& document_;
    controls::TreeView& tree_;
    TreeFiller fill_;
    bool atRoot_;
    bool rootChecked_ = false;
    bool
        ownTree_; // the tree is the active window's: what is added counts for the next look at its root level
    bool rootStands_; // the active window's document has its root element
    std::uint32_t shownLength_;
    TreeFiller::Slot last_ = 0;
    std::vector<StringPool::Ref> names_;
    int images_[2][16] = {};
    CompactBuilder scratch_;
};

} // namespace

void XMLChildNodesToTree(Application& app, DocumentWindow* active, xml::Node domNode,
                         const QString& parentKey, controls::TreeView& tree) try {
    if (!domNode)
        return;
    const TreeNode parent = parentKey.isEmpty() ? TreeNode() : tree.Nodes(parentKey);
    const controls::TreeUpdate update(tree);
    Copier(app, active, *domNode.ownerDocument(), tree, parent).copyChildren(domNode);
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
