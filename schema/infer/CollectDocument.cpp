// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/infer/CollectDocument.h"
#include "core/model/Escaping.h"
#include "core/model/NodeKind.h"
#include "platform/controls/TreeCursor.h"
#include "schema/infer/Collector.h"

namespace schema {

namespace {

constexpr unsigned kSteps = 100000; // nodes between two of them

using controls::TreeCursor;
using text::CompactBuilder;
using text::CompactView;

/// Reads the nodes of a tree.
struct TreeNodes {
    using Node = TreeCursor;
    static int Kind(const Node& node) { return m_tvXML::GetKeyType(node); }
    static Node First(const Node& node) { return node.firstChild(); }
    static Node Next(const Node& node) { return node.next(); }
    static Node Parent(const Node& node) { return node.parent(); }
    CompactView Name(const Node& node) { return node.text(); }
    CompactView Attributes(const Node& node) { return node.tag(); }
    CompactView Text(const Node& node) { return node.tag(); }
    static bool IsPlain(const Node& node) { return Kind(node) == m_tvXML::kCData; }
};

/// Reads those of a parsed document, whose values have no references.
struct ParsedNodes {
    using Node = xml::Node;
    static int Kind(const Node& node) { return node.nodeType(); }
    static Node First(const Node& node) { return node.firstChild(); }
    static Node Next(const Node& node) { return node.nextSibling(); }
    static Node Parent(const Node& node) { return node.parentNode(); }

    CompactView Name(const Node& node) {
        name.clear();
        name.append(QStringView(node.nodeName()));
        return name.view();
    }
    CompactView Attributes(const Node& node) {
        attributes.clear();
        for (int i = 0; i < node.attributeCount(); ++i) {
            const xml::Attribute& one = node.attributes()[i];
            attributes.append(QStringView(node.ownerDocument()->name(one.nameId)));
            attributes.append("=\"", 2);
            mXMLEdit::AppendAttributeValue(attributes, node.ownerDocument()->view(one.value));
            attributes.append("\" ", 2);
        }
        return attributes.view();
    }
    CompactView Text(const Node& node) { return node.valueView(); }
    static bool IsPlain(const Node& node) { return IsSection(node) || NeedsReferences(node.valueView()); }
    static bool IsSection(const Node& node) { return node.nodeType() == xml::CDATA_SECTION; }
    static bool NeedsReferences(CompactView view) {
        for (std::uint32_t i = 0; i < view.length; ++i) {
            if (view.at(i) == u'&' || view.at(i) == u'<')
                return true;
        }
        return false;
    }

    CompactBuilder name, attributes;
};

template <typename Nodes> class Walk {
public:
    using Node = typename Nodes::Node;
    Walk(DocumentFacts& facts, const CollectStep& step) : collector_(facts), step_(step) {}

    bool Run(const Node& root) {
        Node node = root;
        while (true) {
            const bool ended = !Enter(node);
            if (stopped_)
                return false;
            if (!ended && Nodes::First(node)) {
                node = Nodes::First(node);
                continue;
            }
            if (!ended)
                collector_.Close();
            while (node != root && !Nodes::Next(node)) {
                node = Nodes::Parent(node);
                collector_.Close();
            }
            if (node == root)
                return true;
            node = Nodes::Next(node);
        }
    }

private:
    // True for an element, which is open then.
    bool Enter(const Node& node) {
        if (++count_ % kSteps == 0 && step_ && !step_()) {
            stopped_ = true;
            return false;
        }
        switch (Nodes::Kind(node)) {
        case m_tvXML::kElement:
            stopped_ = !collector_.Open(nodes_.Name(node), nodes_.Attributes(node));
            return !stopped_;
        case m_tvXML::kText:
        case m_tvXML::kCData:
            collector_.Text(nodes_.Text(node), Nodes::IsPlain(node));
            return false;
        default:
            return false;
        }
    }
    Nodes nodes_;
    Collector collector_;
    const CollectStep& step_;
    unsigned count_ = 0;
    bool stopped_ = false;
};

} // namespace

bool CollectTree(const controls::TreeView& tree, DocumentFacts& facts, const CollectStep& step) {
    if (tree.Nodes.Count() == 0)
        return true;
    TreeCursor node = TreeCursor(tree.Nodes(1)).firstChild();
    while (node && m_tvXML::GetKeyType(node) != m_tvXML::kElement)
        node = node.next();
    return !node || Walk<TreeNodes>(facts, step).Run(node);
}

bool CollectParsed(const xml::ParsedDocument& document, DocumentFacts& facts, const CollectStep& step) {
    const xml::Node root = document.documentElement();
    return !root || Walk<ParsedNodes>(facts, step).Run(root);
}

} // namespace schema
