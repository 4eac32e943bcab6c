// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "platform/xml/ParsedDocument.h"
#include <QString>

// Switching views, and what follows a change of the current node.

/// Shows the view of the selected tab.
void tbsXML_Click(DocumentWindow& window);
/// Brings the views up to date after anything that may have changed the tree or the current node.
void DoTree(DocumentWindow& window);
/// Menus and toolbars for the current node.
void DoMenu(DocumentWindow& window);
/// Opens and selects the root, if there is one.
void ExpandRoot(DocumentWindow& window);

/// Writes the path of the current node into txtXPath, and the place of the caret into status panel 2 while
/// the text view shows.
void ShowNodePath(DocumentWindow& window, controls::StatusBar& statusBar);
/// Path of a node, each step with its 1-based place among the siblings of the same Text; empty for the tree
/// root.
QString GetXPath(controls::TreeNode node);
/// Selects the node at a path: what Enter in txtXPath does. A path that selects nothing gets a message.
void SelectTreeNodeByPath(DocumentWindow& window, const QString& path);
/// The same in a document that the text was parsed into, without a message.
void SelectTreeNodeByXPath(DocumentWindow& window, const xml::ParsedDocument& document, const QString& path);
/// Shows the position of the caret in status panel 2: of the text view in use, or of another one.
void ShowCursorPosition(DocumentWindow& window);
void ShowCursorPosition(DocumentWindow& window, const controls::RichTextBox& textView);

namespace m_tvXML {
/// Writes the text (an empty page for none) into the preview's file, whose name goes to `tempFile`, and shows
/// it.
void DisplayAtIE(Application& app, const QString& text, QString& tempFile, controls::WebBrowser& ie);
} // namespace m_tvXML

// Splitters, in twips.
void SavePos(DocumentWindow& window, float left, float top, float width, float height);
void ClearPos(DocumentWindow& window);
void SetVSplitPosition(DocumentWindow& window, double position); ///< held at 0 or more
void SplitTextViewHalf(DocumentWindow& window);                  ///< two panes on one text, or one again
