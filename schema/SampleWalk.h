// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "schema/GlobalDeclarations.h"
#include "schema/SampleValues.h"
#include <QString>

// From the declarations of a schema to a sample instance. Occurrence bounds aren't read: each particle is
// written once.
namespace schema {

/// The key of the schema's node behind a node of an instance: what stands behind "=", else the key itself.
QString GetRealKey(const QString& key);

/// What a node of an instance is: an element, or a text. Its key may name a facet, which is an element.
int KindInInstance(controls::TreeNode node);

/// Whether a path of keys, each with ";" behind it, has one twice. The first time it counts as a whole key,
/// the second time also as the beginning of another one.
bool HaveTwoAppears(const QString& path, const QString& key);

/// One walk along a schema, which fills a tree. An element's key is that of its declaration, or a new one,
/// "=" and that key where it stands in the tree already; a text's is a new one, with "=" and the key of the
/// facet that it comes from. After 1,024 visits the rest is left out.
class SampleWalk {
public:
    SampleWalk(Application& app, const GlobalDeclarations& declarations, SampleValues& values,
               controls::TreeView& tree)
        : app_(app), declarations_(declarations), values_(values), tree_(tree) {}

    /// The children and siblings of a declaration, below a node of the instance.
    void TreeNodesToTree(controls::TreeNode firstNode, controls::TreeNode parent);

    /// Elements of the instance that stand there by a reference, and the key of that.
    const QHash<QString, QString>& References() const { return references_; }

private:
    void TreeNodeToTree(controls::TreeNode node, controls::TreeNode parent);
    void declaration(controls::TreeNode node, controls::TreeNode parent);
    void named(controls::TreeNode node, controls::TreeNode parent);
    void reference(controls::TreeNode node, const QString& ref, controls::TreeNode parent);
    void nameless(controls::TreeNode node, controls::TreeNode parent);
    void choice(controls::TreeNode node, controls::TreeNode parent);
    void type(controls::TreeNode type, controls::TreeNode parent);
    bool enter(controls::TreeNode node);
    bool isSpent() const;
    QString attributes(controls::TreeNode declaration);
    controls::TreeNode add(controls::TreeNode declaration, const QString& text, controls::TreeNode parent);
    void addText(const Sample& sample, controls::TreeNode parent);
    void report(const char* what);

    Application& app_;
    const GlobalDeclarations& declarations_;
    SampleValues& values_;
    controls::TreeView& tree_;
    int miLoopCount_ = 0;
    QString reference_; ///< that leads to the declaration which is visited next
    QHash<QString, QString> references_;
    QHash<const controls::TreeNodeData*, controls::TreeNode> branches_; ///< of choices
    QHash<const controls::TreeNodeData*, QString> attributes_; ///< of types, and of other declarations
    /// The types, bases and references that the walk has entered so far. It is no stack of those it is in:
    /// only a reference is taken back. So of two elements of one type the second stays empty.
    QString path_;
};

} // namespace schema
