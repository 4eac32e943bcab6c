// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringList>
#include <vector>

struct DocumentWindow;
namespace edit {
struct View;
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
    /// A text that was opened, or that the user has left, stands in the tree now. Inside an edit.
    void (*textRead)(DocumentWindow& window) = nullptr;
    /// Names of the attributes that the list offers for an element by its name, carried or not.
    QStringList (*attributesOffered)(DocumentWindow& window, const QString& elementName) = nullptr;
    /// The checks that follow once the text is known to be well-formed. True for a document that passes; else
    /// the user has been told.
    bool (*check)(DocumentWindow& window) = nullptr;
};
