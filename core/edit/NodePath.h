// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// The path of a node, and the place of the caret.
namespace edit {

/// Writes the path of the current node into txtXPath, and the place of the caret into status panel 2 while
/// the text view shows.
void ShowNodePath(DocumentWindow& window, controls::StatusBar& statusBar);
/// Path of a node, each step with its 1-based place among the siblings of the same kind and name (quirk 31);
/// empty for the tree root.
QString GetXPath(controls::TreeNode node);
/// Shows the position of the caret in status panel 2: of the text view in use, or of another one.
void ShowCursorPosition(const DocumentWindow& window);
void ShowCursorPosition(const DocumentWindow& window, const controls::RichTextBox& textView);

} // namespace edit
