// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "platform/xml/ParsedDocument.h"

// The tree of a schema: that of any document, with marks on the declarations of root elements, and with the
// prefix of the schema's names beside it.
namespace schema {

/// Empties the tree and makes its root under the current file name; with defaults a declaration, a comment
/// and a schema element without a prefix below it, and the root selected.
void AddTreeRootS(DocumentWindow& window, bool withDefaults);

/// The whole document in place of what the tree holds, with new keys; msPrefix follows.
void SXMLToTree(DocumentWindow& window, const xml::ParsedDocument& document);

/// Marks the declarations of root elements as if the document had just been read; keys and selection stay.
void MarkRootDeclarations(DocumentWindow& window);

/// Whether a node bears the mark of a declaration of a root element. It is told by the picture alone, and has
/// the meaning that it had when the node was last built from a text.
bool IsMarkedAsRoot(controls::TreeNode node);

} // namespace schema
