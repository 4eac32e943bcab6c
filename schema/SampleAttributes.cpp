// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/SampleAttributes.h"
#include "core/model/Escaping.h"
#include "schema/SchemaState.h"
#include <QSet>
#include <functional>
#include <vector>

namespace schema {

namespace {

using controls::TreeNode;

// Goes along types, bases and groups without recursion, and into each once: a second visit would only bring
// the same names again, and types may go in a circle.
class Walk {
public:
    /// Takes an attribute's declaration and name; true ends the walk.
    using Visitor = std::function<bool(const AttributeOrigin& origin, const QString& name)>;
    Walk(const GlobalDeclarations& declarations, Visitor visitor)
        : declarations_(declarations), visitor_(std::move(visitor)) {}

    void run(TreeNode node) {
        toDo_.push_back({node, node});
        while (!toDo_.empty()) {
            const AttributeOrigin next = toDo_.back();
            toDo_.pop_back();
            if (IsNamed(next.declaration, "attribute")) {
                if (meets(next))
                    return;
            } else if (!visited_.contains(next.declaration.Data())) {
                visit(next.declaration);
            }
        }
    }

private:
    bool meets(const AttributeOrigin& origin) {
        const QString name = AttributeValue(origin.declaration, QStringLiteral("name"));
        return !name.isEmpty() && visitor_(origin, name);
    }

    // What it leads to, in this order.
    void visit(TreeNode node) {
        visited_.insert(node.Data());
        std::vector<AttributeOrigin> next;
        if (const TreeNode type = typeBefore(node))
            next.push_back({type, type});
        for (TreeNode sibling = start(node); sibling; sibling = sibling.Next()) {
            if (const TreeNode target = targetOf(sibling))
                next.push_back({target, sibling});
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

    const GlobalDeclarations& declarations_;
    Visitor visitor_;
    std::vector<AttributeOrigin> toDo_; // the last one is next
    QSet<const controls::TreeNodeData*> visited_;
};

// Empty where nothing more fits in.
QString Written(const QString& name, TreeNode declaration, SampleValues& values) {
    const QString type = AttributeValue(declaration, QStringLiteral("type"));
    const Sample sample = values.isFull()  ? Sample()
                          : type.isEmpty() ? values.GetSimpleTypeSample(declaration)
                                           : values.GetSampleData(LocalName(type));
    if (!values.spend(name.size() + sample.value.size()))
        return {};
    return name + QStringLiteral("=\"") + mXMLEdit::WithLineEndReferences(sample.value) +
           QStringLiteral("\" ");
}

} // namespace

QString GetRealXMLNodeAttributesString(TreeNode node, const GlobalDeclarations& declarations,
                                       SampleValues& values) {
    QHash<QString, std::size_t> places;
    std::vector<std::pair<QString, TreeNode>> found;
    Walk(declarations, [&](const AttributeOrigin& origin, const QString& name) {
        const auto place = places.constFind(name);
        if (place != places.constEnd()) {
            found[*place].second = origin.declaration;
            return false;
        }
        places.insert(name, found.size());
        found.emplace_back(name, origin.declaration);
        return false;
    }).run(node);
    QString written;
    for (const auto& [name, declaration] : found)
        written += Written(name, declaration, values);
    return written;
}

AttributeOrigin FindAttribute(TreeNode node, const QString& name, const GlobalDeclarations& declarations) {
    AttributeOrigin found;
    Walk(declarations, [&](const AttributeOrigin& origin, const QString& met) {
        const bool here = met == name;
        if (here)
            found = origin;
        return here;
    }).run(node);
    return found;
}

} // namespace schema
