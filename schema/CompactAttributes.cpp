// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CompactAttributes.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/model/Attributes.h"
#include "schema/CompactContent.h"
#include "schema/CompactNavigation.h"
#include "schema/SampleAttributes.h"
#include <QSet>
#include <algorithm>

namespace schema {

namespace {

using controls::TreeNode;
using m_tvXML::Attributes;

/// Names of a list that another one doesn't have, in their order.
QStringList NamesBeside(const Attributes& all, const Attributes& others) {
    QStringList names;
    for (const QString& name : all.names()) {
        if (!others.contains(name) && !IsAboutTheInstance(name))
            names += name;
    }
    return names;
}

bool HasNameTwice(const Attributes& all) {
    return QSet<QString>(all.names().begin(), all.names().end()).size() < all.count();
}

bool HasUndeclarable(const Attributes& before, const Attributes& after) {
    return std::any_of(after.names().begin(), after.names().end(), [&](const QString& name) {
        return !before.contains(name) && (name.contains(u':') || IsAboutTheInstance(name));
    });
}

// Looked at before anything is done: a list is taken as a whole.
bool MayRenameAll(DocumentWindow& window, TreeNode declaration, const QStringList& from,
                  const QStringList& to) {
    const GlobalDeclarations declarations(window.tvXML);
    for (qsizetype i = 0; i < std::min(from.size(), to.size()); ++i) {
        const TreeNode attribute = FindAttribute(declaration, from[i], declarations).declaration;
        if (attribute && !MayRenameDeclaration(window, attribute, to[i]))
            return false;
    }
    return true;
}

bool HasOtherValue(const Attributes& before, const Attributes& after) {
    return std::any_of(after.names().begin(), after.names().end(), [&](const QString& name) {
        const qsizetype at = before.find(name);
        return at >= 0 && before.value(at) != after.value(after.find(name));
    });
}

} // namespace

bool IsAboutTheInstance(const QString& attribute) {
    return attribute.startsWith(QStringLiteral("xmlns")) || attribute.startsWith(QStringLiteral("xsi:"));
}

void DeletePropNameValueByKeyAtCV(DocumentWindow& window, TreeNode compactNode, const QString& name) {
    const TreeNode declaration = RelatedMainTreeNode(window, compactNode);
    const TreeNode particle = FindAttribute(declaration, name, GlobalDeclarations(window.tvXML)).particle;
    if (particle)
        window.tvXML.Nodes.Remove(particle);
    else
        edit::Then(window, [&window] {
            edit::Message(window.app, QStringLiteral("The schema doesn't declare this attribute."));
        });
}

bool ChangeMainTreeAttributesByAttrString(DocumentWindow& window, TreeNode compactNode,
                                          const QString& attributes) {
    const Attributes before(compactNode), after(attributes);
    if (HasNameTwice(after)) {
        SayAttributeIsThere(window);
        return false;
    }
    const TreeNode declaration = RelatedMainTreeNode(window, compactNode);
    const QStringList gone = NamesBeside(before, after), come = NamesBeside(after, before);
    if (HasUndeclarable(before, after)) {
        edit::Message(window.app, QStringLiteral("A name that is declared has no prefix."));
        return false;
    }
    if (!MayRenameAll(window, declaration, gone, come))
        return false;
    for (const QString& name : come.mid(std::min(gone.size(), come.size()))) {
        if (!AddNewAttrAtMainTree(window, declaration, name))
            return false; // so is the first one, and nothing has been done yet
    }
    for (qsizetype i = 0; i < gone.size(); ++i) {
        const GlobalDeclarations declarations(window.tvXML);
        const TreeNode attribute = FindAttribute(declaration, gone[i], declarations).declaration;
        if (i >= come.size() || !attribute)
            DeletePropNameValueByKeyAtCV(window, compactNode, gone[i]);
        else
            RenameDeclaration(window, attribute, come[i]);
    }
    if (HasOtherValue(before, after))
        SayItIsASample(window);
    return true;
}

void SayItIsASample(DocumentWindow& window) {
    edit::Then(window, [&window] {
        edit::Message(window.app, QStringLiteral("It is a sample: the schema has the type alone."));
    });
}

void SayAttributeIsThere(DocumentWindow& window) {
    window.app.services.prompts.MsgBox(QStringLiteral("There already have a same name attribute!"));
}

} // namespace schema
