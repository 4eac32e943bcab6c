// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/DomToTree.h"
#include "core/model/Attributes.h"
#include "core/model/Escaping.h"
#include "core/model/NodeNumbers.h"
#include "core/model/OpenNodes.h"
#include "platform/controls/TreeFiller.h"
#include "platform/controls/TreeRecord.h"
#include "platform/text/StringPool.h"

namespace m_tvXML {

namespace {

using controls::TreeFiller;
using controls::TreeNode;
using text::CompactBuilder;
using text::StringPool;

QString MakerComment() {
    return QStringLiteral("edited with Vantrel v2.0 by Orvane (https://vantrel.example/)");
}

// One copy of a document: names and pictures are looked up once, and nothing is made per node but the node.
class Copier {
public:
    Copier(Application& app, const controls::TreeView* active, const xml::ParsedDocument& document,
           controls::TreeView& tree, TreeNode parent)
        : app_(app), document_(document), tree_(tree), fill_(tree, parent), atRoot_(IsTreeRoot(parent)),
          ownTree_(active == &tree), rootStands_(active && HaveElementNodeAtXMLRootLevel(*active)),
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
                WriteAttributes(scratch_, node);
                fill_.setTag(target, scratch_.view());
            }
            break;
        case xml::TEXT:
            scratch_.clear();
            mXMLEdit::AppendText(scratch_, node.valueView());
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

void XMLChildNodesToTree(Application& app, const controls::TreeView* active, xml::Node domNode,
                         const QString& parentKey, controls::TreeView& tree) try {
    if (!domNode)
        return;
    const TreeNode parent = parentKey.isEmpty() ? TreeNode() : tree.Nodes(parentKey);
    const controls::TreeUpdate update(tree);
    Copier(app, active, *domNode.ownerDocument(), tree, parent).copyChildren(domNode);
} catch (const text::Fault& fault) {
    ErrorReportBox(app, fault, QStringLiteral("m_tvXML.XMLChildNodesToTree"));
}

void AddTreeRoot(Application& app, controls::TreeView& tree, bool withDefaults) {
    const controls::TreeUpdate update(tree);
    tree.Nodes.Clear();
    const TreeNode root = tree.Nodes.Add({}, 0, app.CurrentFileName, app.CurrentFileName,
                                         QStringLiteral("xmlroot"), QStringLiteral("openxmlroot"));
    if (!withDefaults)
        return;
    const auto add = [&](int kind, const QString& text) {
        const QString picture = PictureOf(kind);
        return tree.Nodes.Add(root, controls::tvwChild, GetDistinctElementKey(app, kind), text, picture,
                              picture);
    };
    add(kInstruction, QStringLiteral("xml"))
        .SetTag(QStringLiteral("version=\"1.0\" encoding=\"%1\"").arg(app.options.Encoding));
    add(kComment, QStringLiteral("#comment")).SetTag(MakerComment());
    tree.SetSelectedItem(root);
}

void FillTree(Application& app, controls::TreeView& tree, const xml::ParsedDocument& document) {
    const OpenNodes open(tree);
    controls::TreeRebuild rebuild(tree);
    AddTreeRoot(app, tree, false);
    XMLChildNodesToTree(app, &tree, document.document(), app.CurrentFileName, tree);
    open.openIn(tree);
    rebuild.keep();
}

} // namespace m_tvXML
