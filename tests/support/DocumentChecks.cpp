// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/DocumentChecks.h"
#include "core/model/Attributes.h"
#include "core/model/DomToTree.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeNumbers.h"
#include "core/model/Serialise.h"
#include "platform/text/LineEnds.h"
#include "platform/text/TextTools.h"
#include "platform/xml/ParsedDocument.h"
#include "textview/TreeText.h"

namespace test {

namespace {

using controls::TreeNode;

constexpr int kElement = 1, kText = 3, kInstruction = 7, kComment = 8, kDocumentType = 10;

QString Line(const QString& key, const QString& text, int kind, const QString& first, const QString& second) {
    return QStringList{key, text, QString::number(kind), first, second}.join(QStringLiteral(" | "));
}

QString FirstText(TreeNode node) {
    TreeNode child = node.Child();
    while (child && m_tvXML::GetKeyType(child) != kText)
        child = child.Next();
    return child ? child.Tag() : QString();
}

QString Local(const QString& name) {
    return name.section(u':', name.contains(u':') ? 1 : 0);
}

/// Copies a tree node by node, with the liberties taken out.
class Tamer {
public:
    Tamer(controls::TreeView& out, QStringList& rules) : out_(out), rules_(rules) {}

    void CopyChildren(TreeNode from, TreeNode to) {
        for (TreeNode child = from.Child(); child; child = child.Next()) {
            const int kind = m_tvXML::GetKeyType(child);
            TreeNode copy = out_.Nodes.Add(to, controls::tvwChild, child.Key(), NameOf(child, kind));
            copy.SetTag(TagOf(child, kind));
            CopyChildren(child, copy);
        }
    }

private:
    QString Tamed(const char* rule, const QString& piece) {
        rules_ << QLatin1String(rule);
        return piece;
    }
    QString NameOf(TreeNode node, int kind) {
        const QString name = node.Text();
        if (kind == kElement && !Parses(u'<' + name + QStringLiteral("/>")))
            return Tamed("what stands before a name's first colon isn't looked at", Local(name));
        return name;
    }
    QString TagOf(TreeNode node, int kind) {
        const QString tag = node.Tag();
        if (kind == kElement && !Parses(QStringLiteral("<e ") + tag + QStringLiteral("/>")))
            return Tamed("what stands before a name's first colon isn't looked at", {});
        if (kind == kText && tag.contains(QStringLiteral("</")))
            return Tamed("a text may close its element and open it again", QStringLiteral("x"));
        return tag;
    }

    controls::TreeView& out_;
    QStringList& rules_;
};

} // namespace

std::string RowsOf(TreeNode node) {
    QStringList lines;
    const int kind = m_tvXML::GetKeyType(node);
    const bool root = m_tvXML::IsTreeRoot(node);
    for (TreeNode child = node.Child(); child && (root || kind == kElement); child = child.Next()) {
        const int type = m_tvXML::GetKeyType(child);
        lines << Line(child.Key(), type == kText ? QStringLiteral("Node Text") : child.Text(), type,
                      child.Tag(), FirstText(child));
    }
    if (kind == kElement) {
        const QStringList pieces = node.Tag().split(u'"');
        for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
            const QString name = pieces[i].trimmed().chopped(1);
            lines << Line(node.Key() + u'/' + name, name, 2, pieces[i + 1], {});
        }
    } else if (!root && kind != kDocumentType) {
        static const QHash<int, QString> captions{
            {kText, "Node Text"}, {4, "CDATA"}, {kInstruction, "xml version"}, {kComment, "comment"}};
        lines << Line(node.Key(), captions.value(kind), kind, node.Tag(), {});
    }
    return lines.join(u'\n').toStdString();
}

std::string RowsShown(const controls::ListView& list) {
    QStringList lines;
    for (int i = 1; i <= list.Count(); ++i) {
        const controls::ListItem& item = list.Item(i);
        lines << Line(item.Key, item.Text, item.SmallIcon, item.Sub[0], item.Sub[1]);
    }
    return lines.join(u'\n').toStdString();
}

QString Written(const controls::TreeView& tree) {
    return text::ToCrLf(m_tvXML::GetTreeNodesXML(tree.Nodes(1), QStringLiteral("\t")));
}

bool Parses(const QString& text) {
    return xml::ParsedDocument().loadXML(text);
}

QString Rewritten(DocumentWindow& window, const QString& text) {
    xml::ParsedDocument document;
    if (!document.loadXML(text))
        return {};
    controls::TreeView tree;
    tree.ImageList = window.tvXML.ImageList;
    tree.Nodes.Add({}, 0, QStringLiteral("root"), QStringLiteral("root"));
    m_tvXML::XMLChildNodesToTree(window.app, nullptr, document.document(), QStringLiteral("root"), tree);
    return Written(tree);
}

QString WrittenWithoutLiberties(DocumentWindow& window, QStringList& rules) {
    controls::TreeView tree;
    tree.ImageList = window.tvXML.ImageList;
    const TreeNode root = tree.Nodes.Add({}, 0, QStringLiteral("root"), QStringLiteral("root"));
    Tamer(tree, rules).CopyChildren(window.tvXML.Nodes(1), root);
    TreeNode element;
    if (element = m_tvXML::FirstElement(root.Child()); !element) {
        rules << QStringLiteral("the root element can be deleted, or isn't there yet");
        tree.Nodes.Add(root, controls::tvwChild, QStringLiteral("<1>0"), QStringLiteral("r"));
    }
    return Written(tree);
}

} // namespace test
