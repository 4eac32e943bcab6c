// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The clipboard of the tree. Nodes travel as XML text.
namespace nodes {

/// False when nothing was copied: no node is selected, or it has no text form, which is told; the clipboard
/// is as it was then. False also where something below it has none (see TellWhatCopyLacks).
bool CopyTreeNode(DocumentWindow& window);
void CutTreeNode(DocumentWindow& window);   ///< only what was copied is deleted (quirk 4)
void PasteTreeNode(DocumentWindow& window); ///< under the selected node

} // namespace nodes
