// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// Between the instance and the schema behind it. Node arguments may be nothing.
namespace schema {

/// The declaration behind a node of the instance; for a text the facet that it is taken from, else that of
/// its element. Nothing where it is gone.
controls::TreeNode RelatedMainTreeNode(DocumentWindow& window, controls::TreeNode compactNode);
/// What stands behind the current row of lvRes: an attribute's declaration, a child's; else what stands
/// behind the node of the instance.
controls::TreeNode RelatedMainTreeRowNode(DocumentWindow& window);

/// The user has selected something in the instance: its declaration is the current node of the document, and
/// its text is shown.
void NavToRelatedMainTreeNode(DocumentWindow& window);
/// The same for a row of lvRes.
void NavToRelatedMainTreeAttrNode(DocumentWindow& window);
/// Whichever of them has the user's attention.
void NavToRelated(DocumentWindow& window);
/// Shows the text of the declaration behind what is selected.
void ShowSegment(DocumentWindow& window);
/// Another node of the document is current: what it describes is selected in the instance, or else what the
/// nearest declaration above it does.
void NavToRelatedCVNodes(DocumentWindow& window);

} // namespace schema
