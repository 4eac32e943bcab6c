// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/SampleWalk.h"
#include "core/model/NodeKind.h"
#include "schema/SampleAttributes.h"
#include "schema/SchemaState.h"

namespace schema {

namespace {

using controls::TreeNode;

constexpr int kMostVisits = 1024;

QString NameOf(TreeNode node) {
    return AttributeValue(node, QStringLiteral("name"));
}
QString TypeOf(TreeNode node) {
    return AttributeValue(node, QStringLiteral("type"));
}

TreeNode BranchOf(TreeNode choice) {
    for (const char* kind : {"element", "group", "sequence", "choice"}) {
        if (const TreeNode branch = GetChildNodeByName(choice, kind))
            return branch;
    }
    return {};
}

} // namespace

QString GetRealKey(const QString& key) {
    const qsizetype at = key.lastIndexOf(u'=');
    return at < 0 ? key : key.mid(at + 1);
}

int KindInInstance(TreeNode node) {
    return m_tvXML::GetKeyType(node.Key().section(u'=', 0, 0));
}

bool HaveTwoAppears(const QString& path, const QString& key) {
    qsizetype at = path.indexOf(key);
    while (at >= 0) {
        const qsizetype end = at + key.size();
        if (end == path.size() || path[end] == u';')
            return path.indexOf(key, end) >= 0;
        at = path.indexOf(key, end);
    }
    return false;
}

void SampleWalk::TreeNodesToTree(TreeNode firstNode, TreeNode parent) {
    for (TreeNode node = firstNode; node && !isSpent(); node = node.Next()) {
        if (HaveTwoAppears(path_, node.Key()))
            return;
        TreeNodeToTree(node, parent);
    }
}

bool SampleWalk::isSpent() const {
    return miLoopCount_ > kMostVisits || values_.isFull();
}

void SampleWalk::TreeNodeToTree(TreeNode node, TreeNode parent) {
    static const char* const kGoThrough[] = {"complexType",    "sequence",      "all",
                                             "complexContent", "simpleContent", "restriction"};
    if (++miLoopCount_ > kMostVisits) {
        if (miLoopCount_ == kMostVisits + 1)
            report("frmSXMLEdit.TreeNodesToTree miLoopCount > 1024!");
        return;
    }
    if (!node || HaveTwoAppears(path_, node.Key()))
        return;
    if (IsNamed(node, "element") || IsNamed(node, "group"))
        return declaration(node, parent);
    if (IsNamed(node, "choice"))
        return choice(node, parent);
    if (IsNamed(node, "extension"))
        type(declarations_.GetRefTypeNode(AttributeValue(node, QStringLiteral("base"))), parent);
    else if (std::none_of(std::begin(kGoThrough), std::end(kGoThrough),
                          [&](const char* name) { return IsNamed(node, name); }))
        return;
    TreeNodesToTree(node.Child(), parent);
}

// One branch alone, by kind before the order of the document.
void SampleWalk::choice(TreeNode node, TreeNode parent) {
    const auto known = branches_.constFind(node.Data());
    const TreeNode branch = known == branches_.constEnd() ? BranchOf(node) : *known;
    branches_.insert(node.Data(), branch);
    if (branch)
        return TreeNodeToTree(branch, parent);
    TreeNodesToTree(node.Child(), parent);
}

void SampleWalk::declaration(TreeNode node, TreeNode parent) {
    const QString ref = AttributeValue(node, QStringLiteral("ref"));
    if (!NameOf(node).isEmpty()) {
        if (IsNamed(node, "group"))
            TreeNodesToTree(node.Child(), parent);
        else
            named(node, parent);
    } else if (!ref.isEmpty()) {
        reference(node, ref, parent);
    } else {
        nameless(node, parent);
    }
}

void SampleWalk::named(TreeNode node, TreeNode parent) {
    const TreeNode added = add(node, NameOf(node), parent);
    const QString typeName = TypeOf(node);
    if (typeName.isEmpty()) {
        addText(values_.GetSimpleTypeSample(node), added);
        TreeNodesToTree(node.Child(), added);
    } else if (const TreeNode complexType = declarations_.GetRefTypeNode(typeName)) {
        type(complexType, added);
    } else {
        addText(values_.GetSampleData(LocalName(typeName)), added);
    }
}

void SampleWalk::reference(TreeNode node, const QString& ref, TreeNode parent) {
    const TreeNode target = declarations_.GetRefNode(ref, IsNamed(node, "group") ? "group" : "element");
    if (!target) {
        report("frmSXMLEdit.TreeNodesToTree oRefNode is nothing!");
        return TreeNodesToTree(node.Child(), parent);
    }
    const qsizetype before = path_.size();
    if (!enter(target))
        return;
    if (IsNamed(node, "element"))
        reference_ = node.Key();
    TreeNodeToTree(target, parent);
    reference_.clear();
    path_.truncate(before);
}

void SampleWalk::nameless(TreeNode node, TreeNode parent) {
    if (TypeOf(node).isEmpty())
        TreeNodesToTree(node.Child(), add(node, node.Text(), parent));
    else
        type(declarations_.GetRefTypeNode(TypeOf(node)), parent);
}

void SampleWalk::type(TreeNode type, TreeNode parent) {
    if (type && enter(type))
        TreeNodesToTree(type.Child(), parent);
}

// It is noted also where it was entered before.
bool SampleWalk::enter(TreeNode node) {
    path_ += node.Key() + u';';
    return !HaveTwoAppears(path_, node.Key());
}

TreeNode SampleWalk::add(TreeNode declaration, const QString& text, TreeNode parent) {
    QString key = declaration.Key();
    if (tree_.Nodes.Find(key))
        key = m_tvXML::GetDistinctElementKey(app_, m_tvXML::kElement) + u'=' + key;
    if (const QString reference = std::exchange(reference_, {}); !reference.isEmpty())
        references_.insert(key, reference);
    const QString image = declaration.Image();
    TreeNode added =
        tree_.Nodes.Add(parent, controls::tvwChild, key, text, image, QStringLiteral("open") + image);
    values_.spend(text.size());
    added.SetTag(attributes(declaration));
    return added;
}

// A type that a thousand elements have is looked at once.
QString SampleWalk::attributes(TreeNode declaration) {
    const TreeNode type =
        declaration.Child() ? TreeNode() : declarations_.GetRefTypeNode(TypeOf(declaration));
    const auto* owner = (type ? type : declaration).Data();
    if (const auto known = attributes_.constFind(owner); known != attributes_.constEnd())
        return values_.spend(known->size()) ? *known : QString();
    const QString made = GetRealXMLNodeAttributesString(declaration, declarations_, values_);
    attributes_.insert(owner, made);
    return made;
}

void SampleWalk::addText(const Sample& sample, TreeNode parent) {
    if (sample.value.isEmpty() || !values_.spend(sample.value.size()))
        return;
    QString key = m_tvXML::GetDistinctElementKey(app_, m_tvXML::kText);
    if (sample.facet)
        key += u'=' + sample.facet.Key();
    tree_.Nodes
        .Add(parent, controls::tvwChild, key, QStringLiteral("#text"), QStringLiteral("text"),
             QStringLiteral("opentext"))
        .SetTag(sample.value);
}

void SampleWalk::report(const char* what) {
    ErrorReportBox(app_, {text::kFaultNotFound, QLatin1String(what)},
                   QStringLiteral("frmSXMLEdit.TreeNodesToTree"));
}

} // namespace schema
