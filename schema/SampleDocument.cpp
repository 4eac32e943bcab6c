// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/SampleDocument.h"
#include "core/edit/Guard.h"
#include "core/edit/Report.h"
#include "core/edit/Save.h"
#include "core/edit/View.h"
#include "core/model/Escaping.h"
#include "core/model/FileNames.h"
#include "core/model/Frame.h"
#include "core/model/NodeKind.h"
#include "core/model/Serialise.h"
#include "schema/BindSchema.h"
#include "schema/SampleAttributes.h"
#include "schema/SampleWalk.h"
#include "schema/SchemaState.h"
#include "schema/SchemaTree.h"

namespace schema {

namespace {

using controls::TreeNode;
using controls::TreeView;

TreeNode FirstMarked(const TreeView& tree) {
    const TreeNode schema = GetSchemaNode(tree);
    TreeNode child = schema ? schema.Child() : TreeNode();
    while (child && !IsMarkedAsRoot(child))
        child = child.Next();
    return child;
}

void Tell(DocumentWindow& window, const char* text) {
    window.app.services.prompts.MsgBox(QLatin1String(text), services::Buttons::Ok);
}

// A path that begins with a slash names a place as one with a drive does.
bool HasPlace(const QString& fileName) {
    return fileName.indexOf(u':') > 0 || mXMLEdit::IsLocalPath(fileName);
}

QString LocationAttributes(const QString& targetNamespace, const QString& fileName) {
    if (!HasPlace(fileName))
        return {};
    const QString location =
        targetNamespace.isEmpty()
            ? QStringLiteral("xsi:noNamespaceSchemaLocation=\"") + mXMLEdit::convertStringToXML(fileName)
            : QStringLiteral("xsi:schemaLocation=\"") + targetNamespace + u' ' +
                  mXMLEdit::convertStringToXML(AsListEntry(fileName));
    return QStringLiteral(" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" ") + location + u'"';
}

QHash<QString, QString> Build(DocumentWindow& window, TreeNode root, TreeView& tree) {
    const QString rootName = AttributeValue(root, QStringLiteral("name"));
    if (rootName.isEmpty()) {
        Tell(window, "System error! frmSXMLEdit.TreeToCompactView!");
        return {};
    }
    const GlobalDeclarations declarations(window.tvXML);
    SampleValues values(window.app, declarations);
    TreeNode top = tree.Nodes.Add({}, 0, root.Key(), rootName, QStringLiteral("xmlrootelement"),
                                  QStringLiteral("openxmlrootelement"));
    const QString targetNamespace =
        AttributeValue(GetSchemaNode(window.tvXML), QStringLiteral("targetNamespace"));
    top.SetTag(GetRealXMLNodeAttributesString(root, declarations, values) +
               (targetNamespace.isEmpty() ? QString() : QStringLiteral(" ")) +
               LocationAttributes(targetNamespace, window.Caption));
    SampleWalk walk(window.app, declarations, values, tree);
    if (const TreeNode type = declarations.GetRefTypeNode(AttributeValue(root, QStringLiteral("type"))))
        walk.TreeNodesToTree(type.Child(), top);
    walk.TreeNodesToTree(root.Child(), top);
    if (values.leftOut())
        edit::Message(window.app, QStringLiteral("The sample leaves out what is too long for it."));
    return walk.References();
}

/// Below `parent`, with keys of the form that the serialiser knows.
void CopyPlain(Application& app, TreeNode from, TreeView& tree, TreeNode parent) {
    const QString key = m_tvXML::GetDistinctElementKey(app, KindInInstance(from));
    TreeNode copy = tree.Nodes.Add(parent, controls::tvwChild, key, from.Text());
    copy.SetTag(from.Tag());
    for (TreeNode child = from.Child(); child; child = child.Next())
        CopyPlain(app, child, tree, copy);
}

} // namespace

// Marks go with what was read; declarations that were added since have none. The document is looked at and
// not saved and opened again: showing a view must not write a file (quirk 151).
TreeNode GetRootElementNode(DocumentWindow& window, bool tell) {
    TreeNode root = FirstMarked(window.tvXML);
    if (!root) {
        MarkRootDeclarations(window);
        root = FirstMarked(window.tvXML);
    }
    if (!root && tell)
        Tell(window, "This schema does not have root element.");
    return root;
}

QHash<QString, QString> TreeToCompactTree(DocumentWindow& window, TreeView& tree, bool tell) {
    if (window.tvXML.Nodes.Count() == 0)
        return {};
    const controls::TreeUpdate update(tree);
    tree.Nodes.Clear();
    const TreeNode root = GetRootElementNode(window, tell);
    return root ? Build(window, root, tree) : QHash<QString, QString>();
}

QString InstanceText(Application& app, TreeNode top) {
    if (!top)
        return {};
    TreeView plain;
    const TreeNode document = plain.Nodes.Add({}, 0, QStringLiteral("document"), {});
    CopyPlain(app, top, plain, document);
    return m_tvXML::GetTreeNodesXML(document, QStringLiteral("\t"));
}

void GenXMLBySchema(DocumentWindow& window) {
    edit::Guarded(window, "GenXMLBySchema", [&] {
        edit::SaveXMLFile(window, false, false);
        MarkRootDeclarations(window);
        TreeView instance;
        instance.ImageList = window.tvXML.ImageList;
        TreeToCompactTree(window, instance, !edit::Shows(window, edit::kCompactTab));
        FetchedText made(
            InstanceText(window.app, instance.Nodes.Count() > 0 ? instance.Nodes(1) : TreeNode()));
        if (made.text.isEmpty())
            return Tell(window, "XML is empty!");
        made.made = true;
        window.app.frame().NewXMLFile(made, {});
    });
}

} // namespace schema
