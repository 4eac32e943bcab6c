// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/EditNode.h"
#include "core/model/Validate.h"
#include "core/model/mXMLEdit.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/ListCommit.h"
#include "nodes/ListRows.h"
#include "nodes/TreeCommands.h"
#include "nodes/fill/ShowListView.h"
#include <algorithm>

namespace {

using controls::TreeNode;

constexpr int kTreeRoot = 0;
constexpr int kNotation = 12;

// What the attribute is called while its value is checked: the name may be under edit as well.
const QString kProbedAttribute = QStringLiteral("attr");

QString FixedName(int kind) {
    switch (kind) {
    case kRowText:
        return QStringLiteral("Node Text");
    case kRowCData:
        return QStringLiteral("CDATA");
    case kNotation:
        return QStringLiteral("Notation");
    default:
        return {};
    }
}

QString OwnerName(TreeNode node) {
    const TreeNode owner = node.Parent();
    return owner && !m_tvXML::IsTreeRoot(owner) ? owner.Text() : QString();
}

// --- an attribute -----------------------------------------------------------------------------------------

struct Attributes {
    explicit Attributes(TreeNode element) {
        m_tvXML::GetAllAttributesNameAndValue(element.Tag(), names, values);
    }
    QString Tag() const {
        QStringList pairs;
        for (qsizetype i = 0; i < names.size(); ++i) {
            if (!names[i].isEmpty())
                pairs << names[i] + QStringLiteral("=\"") + values[i] + u'"';
        }
        return pairs.join(u' ');
    }
    QStringList names, values;
};

NodeWrite WriteAttribute(DocumentWindow& window, NodeInHand& hand, TreeNode element, const QString& name,
                         const QString& value) {
    Application& app = window.app;
    Attributes all(element);
    const qsizetype at = all.names.indexOf(hand.attribute);
    if (at < 0 || (name == all.names[at] && value == all.values[at]))
        return NodeWrite::Unchanged;
    if (name != all.names[at]) {
        if (!m_tvXML::ValidateNodeAttributeName(app, name, element.Text()))
            return NodeWrite::Refused;
        if (all.names.contains(name)) {
            app.services.prompts.MsgBox(
                QStringLiteral("Can not set same attribute name at XML attribute list!"));
            return NodeWrite::Refused;
        }
    }
    if (value != all.values[at] &&
        !m_tvXML::ValidateNodeAttributeValue(app, value, element.Text(), kProbedAttribute))
        return NodeWrite::Refused;
    all.names[at] = name;
    all.values[at] = value;
    element.SetTag(all.Tag());
    hand.attribute = name;
    return NodeWrite::Written;
}

// --- an element -------------------------------------------------------------------------------------------

// An emptied text goes: a text child without a text is one that still waits for it. The current node stays,
// where deleting and adding choose another one.
void WriteElementText(DocumentWindow& window, TreeNode element, TreeNode child, const QString& text) {
    const TreeNode current = window.tvXML.SelectedItem();
    if (child && text.isEmpty()) {
        DeleteTreeNode(window, child);
    } else if (child) {
        child.SetTag(text);
        m_tvXML::SetTextNodeDisplay(window.app, child);
    } else {
        window.tvXML.SetSelectedItem(element);
        AddNewTreeNodeText(window, true, true, text);
    }
    window.tvXML.SetSelectedItem(current ? current : element);
}

NodeWrite WriteElement(DocumentWindow& window, TreeNode element, const QString& name, const QString& attrs,
                       const QString& text) {
    Application& app = window.app;
    QString key;
    const bool newName = name != element.Text();
    const bool newAttributes = attrs != element.Tag();
    const bool newText = text != GetFirstNodeText(element, key);
    if (!newName && !newAttributes && !newText)
        return NodeWrite::Unchanged;
    // Everything is checked before anything is written.
    if ((newName && !m_tvXML::ValidateNodeName(app, name)) ||
        (newAttributes && !m_tvXML::ValidateNodeAttributes(app, attrs, name, true)) ||
        (newText && !m_tvXML::ValidateNodeText(app, text, name)))
        return NodeWrite::Refused;
    if (newName)
        element.SetText(name);
    if (newAttributes)
        element.SetTag(PlainAttributes(attrs));
    window.bTreeChanged = true;
    if (newText)
        WriteElementText(window, element, window.tvXML.Nodes.Find(key), text);
    return NodeWrite::Written;
}

// --- other nodes ------------------------------------------------------------------------------------------

NodeWrite WriteValue(DocumentWindow& window, const NodeInHand& hand, TreeNode node, const QString& value) {
    if (value == node.Tag())
        return NodeWrite::Unchanged;
    if (hand.kind == kRowText) {
        if (!m_tvXML::ValidateNodeText(window.app, value, OwnerName(node)))
            return NodeWrite::Refused;
    } else if (const QString probe = NodeValueProbe(window, hand, value);
               !probe.isEmpty() && !PassesProbe(window.app, probe)) {
        return NodeWrite::Refused;
    }
    node.SetTag(value); // an emptied text keeps its node, so that the walk goes on from there
    if (hand.kind == kRowText)
        m_tvXML::SetTextNodeDisplay(window.app, node);
    return NodeWrite::Written;
}

NodeWrite WriteByKind(DocumentWindow& window, NodeInHand& hand, TreeNode node, const QString& name,
                      const QString& attrs, const QString& text) {
    switch (hand.kind) {
    case kRowElement:
        return WriteElement(window, node, name, attrs, text);
    case kRowAttribute:
        return WriteAttribute(window, hand, node, name, attrs);
    default:
        return WriteValue(window, hand, node, attrs);
    }
}

NodeWrite WriteRoot(DocumentWindow& window, NodeInHand& hand, TreeNode root, const QString& name) {
    if (name == root.Text())
        return NodeWrite::Unchanged;
    if (!ChangeTreeRootText(window, name))
        return NodeWrite::Refused;
    hand.key = root.Key();
    return NodeWrite::Written;
}

// --- finding a node again ---------------------------------------------------------------------------------

NodeTrace::Step StepTo(TreeNode node) {
    const int kind = m_tvXML::GetKeyType(node);
    return {kind, kind == kRowElement ? node.Text() : QString(), 0};
}

bool Agrees(TreeNode node, const NodeTrace::Step& step) {
    return m_tvXML::GetKeyType(node) == step.kind &&
           (step.kind != kRowElement || node.TextView() == QStringView(step.name));
}

TreeNode NodeAt(TreeNode node, const std::vector<NodeTrace::Step>& steps) {
    for (const NodeTrace::Step& step : steps) {
        int place = 0;
        TreeNode child = node ? node.Child() : TreeNode();
        while (child && !(Agrees(child, step) && ++place == step.place))
            child = child.Next();
        node = child;
    }
    return node;
}

// False when the element has no such attribute.
bool ReadContent(const NodeInHand& hand, TreeNode node, QString& value, QString& text) {
    QString key;
    value = node.Tag();
    text = hand.kind == kRowElement ? GetFirstNodeText(node, key) : QString();
    if (hand.kind != kRowAttribute)
        return true;
    const Attributes all(node);
    const qsizetype at = all.names.indexOf(hand.attribute);
    value = at < 0 ? QString() : all.values[at];
    return at >= 0;
}

} // namespace

NodeTrace TraceOf(DocumentWindow& window, const NodeInHand& hand) {
    NodeTrace trace;
    TreeNode node = window.tvXML.Nodes.Find(hand.key);
    if (!node)
        return trace;
    ReadContent(hand, node, trace.value, trace.text);
    for (; node && !m_tvXML::IsTreeRoot(node); node = node.Parent()) {
        NodeTrace::Step step = StepTo(node);
        for (TreeNode sibling = node; sibling; sibling = sibling.Previous())
            step.place += Agrees(sibling, step) ? 1 : 0;
        trace.steps.push_back(step);
    }
    std::reverse(trace.steps.begin(), trace.steps.end());
    return trace;
}

bool FindNodeAgain(DocumentWindow& window, NodeInHand& hand, const NodeTrace& trace) {
    if (hand.kind == kNoNodeInHand || window.tvXML.Nodes.Count() == 0)
        return false;
    QString value;
    QString text;
    if (const TreeNode node = window.tvXML.Nodes.Find(hand.key))
        return ReadContent(hand, node, value, text);
    const TreeNode node = NodeAt(window.tvXML.Nodes(1), trace.steps);
    if (!node || !ReadContent(hand, node, value, text) || value != trace.value || text != trace.text)
        return false;
    hand.key = node.Key();
    return true;
}

bool ReadNodeInHand(DocumentWindow& window, const NodeInHand& hand, QString& name, QString& value,
                    QString& text) {
    const TreeNode node = window.tvXML.Nodes.Find(hand.key);
    if (!node || !ReadContent(hand, node, value, text))
        return false;
    if (hand.kind == kRowAttribute)
        name = hand.attribute;
    else if (hand.kind == kRowElement || hand.kind == kTreeRoot)
        name = node.Text();
    return true;
}

NodeInHand GetNodeInHand(DocumentWindow& window, int context) {
    if (context != kContextList) {
        const TreeNode node = window.tvXML.SelectedItem();
        return node ? NodeInHand{m_tvXML::GetKeyType(node), node.Key(), {}} : NodeInHand();
    }
    const int row = window.ListView1.SelectedItem();
    if (row == 0)
        return {};
    const controls::ListItem& item = window.ListView1.Item(row);
    if (item.SmallIcon == kRowAttribute)
        return {item.SmallIcon, item.Tag, item.Text};
    return {item.SmallIcon, item.Key, {}};
}

void SelectNodeInHand(DocumentWindow& window, const NodeInHand& hand, int context) {
    const TreeNode node = window.tvXML.Nodes.Find(hand.key);
    if (!node)
        return;
    controls::ListView& list = window.ListView1;
    const QString row = hand.attribute.isEmpty() ? hand.key : hand.key + u'/' + hand.attribute;
    if (context != kContextList)
        window.tvXML.SetSelectedItem(node);
    else if (list.IndexOf(row) == 0)
        window.tvXML.SetSelectedItem(hand.attribute.isEmpty() ? node.Parent() : node);
    DoTree(window);
    if (context == kContextList && list.IndexOf(row) != list.SelectedItem()) {
        list.ClearSelected();
        list.SetSelectedItem(list.IndexOf(row));
    }
}

void SetMemberVars(DocumentWindow& window, int context, QString& name, QString& attrs, QString& text,
                   int& kind) {
    name = attrs = text = QString();
    const NodeInHand hand = GetNodeInHand(window, context);
    const TreeNode node = window.tvXML.Nodes.Find(hand.key);
    kind = node ? hand.kind : kNoNodeInHand;
    if (!node)
        return;
    if (context == kContextList) {
        const controls::ListItem& item = window.ListView1.Item(window.ListView1.SelectedItem());
        name = item.Text;
        attrs = item.Sub[0];
    } else {
        name = FixedName(kind).isEmpty() ? node.Text() : FixedName(kind);
        attrs = node.Tag();
    }
    QString key;
    if (kind == kRowElement)
        text = GetFirstNodeText(node, key);
}

NodeWrite WriteNodeInHand(DocumentWindow& window, NodeInHand& hand, const QString& name, const QString& attrs,
                          const QString& text) {
    const TreeNode node = window.tvXML.Nodes.Find(hand.key);
    if (!node || hand.kind == kNoNodeInHand)
        return NodeWrite::Unchanged;
    if (hand.kind == kTreeRoot)
        return WriteRoot(window, hand, node, name);
    const NodeWrite result = WriteByKind(window, hand, node, name, attrs, text);
    if (result == NodeWrite::Written) {
        window.bTreeChanged = true;
        TreeChangeTextView(window, true);
        window.bTreeChanged = true; // for the list: DoTree fills it anew after a change alone
        DoTree(window);
    }
    return result;
}

QString NodeValueProbe(DocumentWindow& window, const NodeInHand& hand, const QString& attrs) {
    const TreeNode node = window.tvXML.Nodes.Find(hand.key);
    if (!node)
        return {};
    switch (hand.kind) {
    case kRowElement:
        return m_tvXML::NodeAttributesProbe(attrs, node.Text());
    case kRowAttribute:
        return m_tvXML::NodeAttributeValueProbe(attrs, node.Text(), kProbedAttribute);
    case kRowText:
        return m_tvXML::NodeTextProbe(attrs, OwnerName(node));
    case kRowCData:
        return CDataProbe(attrs);
    case kRowComment:
        return QStringLiteral("<temp><!--") + attrs + QStringLiteral("--></temp>");
    case kRowInstruction:
        return QStringLiteral("<?") + node.Text() + u' ' + attrs + QStringLiteral("?><temp/>");
    default:
        return {};
    }
}
