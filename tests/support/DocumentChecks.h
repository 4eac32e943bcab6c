// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>
#include <QStringList>
#include <string>

// What tree, list and text of a window tell of the same document.

namespace test {

/// The rows that a node's list should have, and those that it has: one line each, with its key.
std::string RowsOf(controls::TreeNode node);
std::string RowsShown(const controls::ListView& list);

/// The document as its tree is written.
QString Written(const controls::TreeView& tree);
/// A text as a tree of its own would write it; nothing where it doesn't parse.
QString Rewritten(DocumentWindow& window, const QString& text);
bool Parses(const QString& text);

/// The same as Written, with a harmless piece in place of each one that got into the tree by a rule that lets
/// it through although no document can have it. `rules` takes those rules' names.
QString WrittenWithoutLiberties(DocumentWindow& window, QStringList& rules);

} // namespace test
