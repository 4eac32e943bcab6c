// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/SampleAttributes.h"
#include "core/model/Escaping.h"
#include "schema/SchemaState.h"
#include <QSet>
#include <vector>

namespace schema {

namespace {

using controls::TreeNode;

// Goes along types, bases and groups without recursion, and into each once: a second visit would only bring
// the same names again, and types may go in a circle.
class Walk {
public:
    Walk(const GlobalDeclarations& declarations, SampleValues& values)
        : declarations_(declarations), values_(values) {}

    QString run(TreeNode node) {
        toDo_.push_back(node);
        while (!toDo_.empty()) {
            const TreeNode next = toDo_.back();
            toDo_.pop_back();
            if (IsNamed(next, "attribute"))
                write(next);
            else if (!visited_.contains(next.Data()))
                visit(next);
        }
        return written_;
    }

private:
    // What it leads to, in this order.
    void visit(TreeNode node) {
        visited_.insert(node.Data());
        std::vector<TreeNode> next;
        if (const TreeNode type = typeBefore(node))
            next.push_back(type);
        for (TreeNode sibling = start(node); sibling; sibling = sibling.Next()) {
            if (const TreeNode target = targetOf(sibling))
                next.push_back(target);
        }
        toDo_.insert(toDo_.end(), next.rbegin(), next.rend());
    }

    TreeNode typeBefore(TreeNode node) const {
        if (IsNamed(node, "element"))
            return declarations_.GetRefTypeNode(AttributeValue(node, QStringLiteral("type")));
        if (IsNamed(node, "extension") || IsNamed(node, "restriction"))
            return declarations_.GetRefTypeNode(AttributeValue(node, QStringLiteral("base")));
        return {};
    }

    static TreeNode start(TreeNode node) {
        static const char* const kHolders[] = {"complexType",   "attributeGroup", "complexContent",
                                               "simpleContent", "extension",      "restriction"};
        const TreeNode child = node.Child();
        if (IsNamed(node, "element"))
            return IsNamed(child, "complexType") ? child.Child() : child;
        for (const char* holder : kHolders) {
            if (IsNamed(node, holder))
                return child;
        }
        return {};
    }

    TreeNode targetOf(TreeNode sibling) const {
        const QString name = LocalName(sibling.Text());
        const QString ref = QStringLiteral("ref");
        if (name == QStringLiteral("attribute"))
            return AttributeValue(sibling, QStringLiteral("name")).isEmpty()
                       ? declarations_.GetRefAttrNode(AttributeValue(sibling, ref))
                       : sibling;
        if (name == QStringLiteral("attributeGroup"))
            return declarations_.GetRefAttrGroupNode(AttributeValue(sibling, ref));
        if (name == QStringLiteral("simpleContent") || name == QStringLiteral("complexContent"))
            return sibling.Child() && sibling.Child().Child() ? sibling.Child() : TreeNode();
        const bool derives = name == QStringLiteral("restriction") || name == QStringLiteral("extension");
        return derives ? sibling : TreeNode();
    }

    void write(TreeNode attribute) {
        const QString name = AttributeValue(attribute, QStringLiteral("name"));
        if (name.isEmpty() || names_.contains(name))
            return;
        names_.insert(name);
        const QString type = AttributeValue(attribute, QStringLiteral("type"));
        const Sample sample =
            type.isEmpty() ? values_.GetSimpleTypeSample(attribute) : values_.GetSampleData(LocalName(type));
        if (values_.spend(name.size() + sample.value.size()))
            written_ += name + QStringLiteral("=\"") + mXMLEdit::WithLineEndReferences(sample.value) +
                        QStringLiteral("\" ");
    }

    const GlobalDeclarations& declarations_;
    SampleValues& values_;
    std::vector<TreeNode> toDo_; // the last one is next
    QSet<const controls::TreeNodeData*> visited_;
    QSet<QString> names_;
    QString written_;
};

} // namespace

QString GetRealXMLNodeAttributesString(TreeNode node, const GlobalDeclarations& declarations,
                                       SampleValues& values) {
    return Walk(declarations, values).run(node);
}

} // namespace schema
