// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/Extensions.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/model/Attributes.h"
#include "core/model/NodeKind.h"
#include "nodes/ListState.h"
#include "schema/SchemaState.h"
#include <QRegularExpression>

namespace schema {

namespace {

using controls::TreeNode;

struct Extension {
    bool SchemaState::*enabled;
    bool SchemaState::*takenAway;
    const char* prefix;
    const char* declaration;
};
constexpr Extension kMsSql{&SchemaState::mbEnabledMsSQL, &SchemaState::bMsSQLTakenAway, "sql",
                           "xmlns:sql=\"urn:schemas-microsoft-com:mapping-schema\""};
constexpr Extension kOracle{&SchemaState::mbEnabledOracle, &SchemaState::bOracleTakenAway, "xdb",
                            "xmlns:xdb=\"http://xmlns.oracle.com/xdb\""};

// Names stand in values, too: one or several, or in a path.
bool UsesPrefix(TreeNode element, const QRegularExpression& prefix) {
    if (element.Text().contains(prefix))
        return true;
    const QString tag = element.Tag();
    if (!tag.contains(prefix))
        return false;
    const m_tvXML::Attributes attributes(tag);
    for (qsizetype at = 0; at < attributes.count(); ++at) {
        if (attributes.name(at).contains(prefix) || attributes.value(at).contains(prefix))
            return true;
    }
    return false;
}

TreeNode NextInDocument(TreeNode node, TreeNode top) {
    if (node.Child())
        return node.Child();
    while (node != top && !node.Next())
        node = node.Parent();
    return node == top ? TreeNode() : node.Next();
}

bool IsPrefixInUse(TreeNode top, const char* name) {
    const QRegularExpression prefix(QStringLiteral("(?<![\\w.:-])%1:(?=[\\w*])").arg(QLatin1String(name)));
    for (TreeNode node = top; node; node = NextInDocument(node, top)) {
        if (m_tvXML::IsElement(node) && UsesPrefix(node, prefix))
            return true;
    }
    return false;
}

void Declare(DocumentWindow& window, TreeNode schema, const Extension& extension) {
    const QString declaration = QLatin1String(extension.declaration);
    if (schema.Tag().contains(declaration))
        return;
    const QString name = QStringLiteral("xmlns:") + QLatin1String(extension.prefix);
    if (m_tvXML::Attributes(schema).contains(name)) { // quirk 89
        edit::Message(window.app, name + QStringLiteral(" is declared already, for another namespace."));
        return;
    }
    schema.SetTag(schema.Tag() + u' ' + declaration);
}

void TakeDeclarationAway(DocumentWindow& window, TreeNode schema, const Extension& extension) {
    const QString declaration = QLatin1String(extension.declaration);
    if (!schema.Tag().contains(declaration))
        return;
    if (IsPrefixInUse(schema, extension.prefix)) { // quirk 90
        edit::Message(window.app,
                      QStringLiteral("Names with the prefix %1 stay, and their declaration with them.")
                          .arg(QLatin1String(extension.prefix)));
        return;
    }
    schema.SetTag(schema.Tag().remove(declaration + u' ').remove(declaration));
}

// For the extension's namespace, in whichever quotes.
bool IsDeclared(TreeNode schema, const Extension& extension) {
    const m_tvXML::Attributes attributes(schema);
    const qsizetype at = attributes.find(QStringLiteral("xmlns:") + QLatin1String(extension.prefix));
    return at >= 0 &&
           QString(attributes.value(at)) == QString(QLatin1String(extension.declaration)).section(u'"', 1, 1);
}

bool Offers(DocumentWindow& window, const Extension& extension) {
    const SchemaState& state = SchemaOf(window);
    const TreeNode schema = GetSchemaNode(window.tvXML);
    if (!schema)
        return state.*extension.enabled;
    return (state.*extension.enabled || state.*extension.takenAway) && IsDeclared(schema, extension);
}

// Taken away, the declaration takes the offer with it, and undo brings back both.
void Set(DocumentWindow& window, const char* routine, const Extension& extension, bool enabled) {
    bool& flag = SchemaOf(window).*extension.enabled;
    bool& takenAway = SchemaOf(window).*extension.takenAway;
    const bool before = flag, takenBefore = takenAway;
    const bool done = edit::Run(window, routine, [&] {
        nodes::ShowRowsAnew(window);
        flag = enabled;
        takenAway = false;
        const TreeNode schema = GetSchemaNode(window.tvXML);
        if (!schema)
            return true;
        if (enabled) {
            Declare(window, schema, extension);
        } else {
            TakeDeclarationAway(window, schema, extension);
            takenAway = !IsDeclared(schema, extension);
        }
        return true;
    });
    if (!done) {
        flag = before;
        takenAway = takenBefore;
    }
}

} // namespace

void EnableMSSQL(DocumentWindow& window) {
    Set(window, "EnableMSSQL", kMsSql, true);
}

void DisableMSSQL(DocumentWindow& window) {
    Set(window, "DisableMSSQL", kMsSql, false);
}

void EnableOracle(DocumentWindow& window) {
    Set(window, "EnableOracle", kOracle, true);
}

void DisableOracle(DocumentWindow& window) {
    Set(window, "DisableOracle", kOracle, false);
}

bool OffersMSSQL(DocumentWindow& window) {
    return Offers(window, kMsSql);
}

bool OffersOracle(DocumentWindow& window) {
    return Offers(window, kOracle);
}

void ToggleMSSQL(DocumentWindow& window) {
    if (OffersMSSQL(window))
        DisableMSSQL(window);
    else
        EnableMSSQL(window);
}

void ToggleOracle(DocumentWindow& window) {
    if (OffersOracle(window))
        DisableOracle(window);
    else
        EnableOracle(window);
}

} // namespace schema
