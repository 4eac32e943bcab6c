// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

struct DocumentWindow;
namespace edit {
struct Target;
struct View;
} // namespace edit
namespace controls {
class TreeNode;
}
namespace xml {
class ParsedDocument;
}

/// All that differs between the two kinds of document window, at a glance.
struct WindowKind {
    QString Name;      ///< "frmXMLEdit" or "frmSXMLEdit", as faults report it
    QString extension; ///< of new documents, with the dot: ".xml" or ".xsd"
    bool schema;       ///< designs schemas: the schema menus are offered
    bool renamesNodes; ///< labels of the tree can be edited, not the tree root's alone
    /// The views behind the tabs, in their order; the first one is on show in a new window.
    std::vector<const edit::View*> views;

    // --- the document's tree. Null: nothing to do, unless it says otherwise --------------------------------
    /// Empties the tree and makes its root; with defaults what a new document of the kind starts with.
    void (*newTree)(DocumentWindow& window, bool withDefaults) = nullptr;
    /// The whole parsed document in place of what the tree holds, with new keys.
    void (*fillTree)(DocumentWindow& window, const xml::ParsedDocument& document) = nullptr;
    /// A text that was opened, or that the user has edited, stands in the tree now. Inside an edit.
    void (*textRead)(DocumentWindow& window) = nullptr;
    /// The user has left the text, which is in the tree.
    void (*textLeft)(DocumentWindow& window) = nullptr;
    /// Names of the attributes that the list offers for an element by its name, carried or not.
    QStringList (*attributesOffered)(DocumentWindow& window, const QString& elementName) = nullptr;
    /// The values from which an attribute's is chosen in the list; nothing for one that takes plain text.
    std::optional<QStringList> (*valuesOffered)(DocumentWindow& window, const QString& attribute) = nullptr;
    /// The names from which an element's is chosen in the list; empty for one that has a name of its own.
    QStringList (*namesOffered)(DocumentWindow& window, const QString& elementName) = nullptr;
    /// Completes what conditions of commands ask about; `node`: the one that they would work on.
    void (*describeTarget)(DocumentWindow& window, const controls::TreeNode& node,
                           edit::Target& target) = nullptr;
    /// What follows the check of a text's form, which the user asked for and has been told of. True for a
    /// document that passes this as well; else the user has been told.
    bool (*check)(DocumentWindow& window, bool wellFormed) = nullptr;
};
