// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/Prefixes.h"
#include "core/model/Attributes.h"
#include "core/model/NodeKind.h"
#include "core/model/NodeNumbers.h"
#include "platform/controls/TreeCursor.h"
#include "platform/xml/ParsedDocument.h"

namespace table {

namespace {

using controls::TreeCursor;
using controls::TreeNode;
using m_tvXML::Attributes;

const QString kDeclares = QStringLiteral("xmlns:");

QString PrefixOf(const QString& name) {
    return name.left(std::max<qsizetype>(name.indexOf(u':'), 0));
}

bool Uses(const Attributes& attributes, const QString& prefix) {
    const auto& names = attributes.names();
    return std::any_of(names.begin(), names.end(),
                       [&](const QString& name) { return name.startsWith(prefix + u':'); });
}

bool IsDeclaredAbove(TreeNode element, const QString& prefix) {
    for (TreeNode node = element.Parent(); node; node = node.Parent()) {
        if (m_tvXML::IsElement(node) && Attributes(node).contains(kDeclares + prefix))
            return true;
    }
    return prefix == QStringLiteral("xml");
}

TreeCursor Behind(TreeCursor node, TreeCursor top) {
    while (node != top && !node.next())
        node = node.parent();
    return node == top ? TreeCursor() : node.next();
}

// Elements that declare the prefix anew don't need it.
bool IsUsedBelow(TreeNode element, const QString& prefix) {
    const TreeCursor top(element);
    for (TreeCursor node = top.nextBelow(top); node;) {
        const bool isElement = node.kind() == m_tvXML::kElement;
        const Attributes attributes(isElement ? node.tag().toString() : QString());
        if (attributes.contains(kDeclares + prefix)) {
            node = Behind(node, top);
            continue;
        }
        if (isElement && (PrefixOf(node.text().toString()) == prefix || Uses(attributes, prefix)))
            return true;
        node = node.nextBelow(top);
    }
    return false;
}

bool CanDeclare(const QString& name, const QString& value) {
    return xml::ParsedDocument().loadXML(QStringLiteral("<temp ") + Attributes::pair(name, value) +
                                             QStringLiteral("/>"),
                                         {}, {}, xml::Prefixes::Declared);
}

/// What stood before is left alone, however it is declared.
class Change {
public:
    Change(TreeNode element, const QString& tag) : element_(element), before_(element), after_(tag) {}

    bool keepsDeclarations() const {
        for (const QString& name : before_.names()) {
            const QString prefix = DeclaresPrefix(name) ? name.sliced(kDeclares.size()) : QString();
            if (!prefix.isEmpty() && !after_.contains(name) && !IsDeclaredAbove(element_, prefix) &&
                (PrefixOf(element_.Text()) == prefix || Uses(after_, prefix) ||
                 IsUsedBelow(element_, prefix)))
                return false;
        }
        return true;
    }
    bool addsWhatCanBeRead() const {
        for (qsizetype i = 0; i < after_.count(); ++i) {
            const QString& name = after_.name(i);
            const QString prefix = PrefixOf(name);
            const qsizetype old = before_.find(name);
            if (DeclaresPrefix(name)) {
                if ((old < 0 || before_.value(old) != after_.value(i)) && !CanDeclare(name, after_.value(i)))
                    return false;
            } else if (old < 0 && !prefix.isEmpty() && !knows(prefix)) {
                return false;
            }
        }
        return true;
    }

private:
    bool knows(const QString& prefix) const {
        return after_.contains(kDeclares + prefix) || Uses(before_, prefix) ||
               PrefixOf(element_.Text()) == prefix || IsDeclaredAbove(element_, prefix);
    }
    TreeNode element_;
    Attributes before_, after_;
};

} // namespace

bool DeclaresPrefix(QStringView name) {
    return name.startsWith(kDeclares);
}

bool PrefixesStand(TreeNode element, const QString& tag) {
    const QString before = element.Tag();
    if (!before.contains(kDeclares) && !tag.contains(u':'))
        return true;
    const Change change(element, tag);
    return change.keepsDeclarations() && change.addsWhatCanBeRead();
}

void SayNoDeclaration(Application& app) {
    app.services.prompts.Beep();
    app.services.prompts.MsgBox(
        QStringLiteral("The document could not be read any more: a prefix would have no declaration."),
        services::Buttons::Ok, services::Icon::Exclamation);
}

} // namespace table
