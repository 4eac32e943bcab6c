// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

/// Fills the list with the current node's children and, below them, its attributes (or, for a leaf, its own
/// content). A row that was selected stays selected if its key is still there.
void ShowListView(DocumentWindow& window);

/// Adds a row behind the others; its 1-based index. Throws Fault 35602 for a key that exists.
int AddOneItemToListView(DocumentWindow& window, const QString& key, const QString& text, int icon,
                         const QString& sub1 = {}, const QString& sub2 = {});
bool HaveItemByKey(DocumentWindow& window, const QString& key);

/// The Tag of a node's first text child; empty without one. `key` takes that child's key.
QString GetFirstNodeText(controls::TreeNode node, QString& key);
