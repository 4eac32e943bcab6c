// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QHash>
#include <QString>

// The instance that a schema describes, as a tree, and as a document of its own.
namespace schema {

/// The first declaration that is marked as that of a root element. Where none is, all declarations are marked
/// anew; nothing, and with `tell` a box, where there is still none.
controls::TreeNode GetRootElementNode(DocumentWindow& window, bool tell = true);

/// Builds the instance of the schema in `tree`: its root element at the top, without a node for the document.
/// The tree is empty where there is no root declaration, which the user is told of with `tell`. Nothing
/// happens in a window whose tree is empty. The result: keys of elements that stand there by a reference,
/// each with the key of that.
QHash<QString, QString> TreeToCompactTree(DocumentWindow& window, controls::TreeView& tree, bool tell = true);

/// A node of an instance, with all below it, as the text of a document; empty for nothing.
QString InstanceText(Application& app, controls::TreeNode top);

/// Saves the schema, and opens its instance as a new document.
void GenXMLBySchema(DocumentWindow& window);

} // namespace schema
