// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <vector>

struct DocumentWindow;
namespace edit {
struct View;
}

/// All that differs between the two kinds of document window, at a glance.
struct WindowKind {
    QString Name;      ///< "frmXMLEdit" or "frmSXMLEdit", as faults report it
    QString extension; ///< of new documents, with the dot: ".xml" or ".xsd"
    bool schema;       ///< designs schemas: the schema menus are offered
    bool renamesNodes; ///< labels of the tree can be edited, not the tree root's alone
    /// The views behind the tabs, in their order; the first one is on show in a new window.
    std::vector<const edit::View*> views;
};
