// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "core/model/NodeKind.h"
#include <QString>
#include <optional>

// What is typed as a value of a node: how it is checked by the node's kind, and how an element gets its text.
// The value of an element is its attributes, that of an attribute stands in its element.
namespace nodes {

/// The tiny document that tells whether a value may stand in a node; empty where anything may. `attribute` is
/// the name of the attribute that has the value.
QString ValueProbe(int kind, controls::TreeNode node, const QString& value, const QString& attribute);
/// Asks the parser about a value. As it is to be written; nothing: the user has been told why.
std::optional<QString> TakeValue(Application& app, int kind, controls::TreeNode node, const QString& value,
                                 const QString& attribute);

/// Gives an attribute a value, or adds it. One that the list shows in any case (quirk 88) goes when its
/// value is emptied.
void SetAttribute(DocumentWindow& window, controls::TreeNode element, const QString& name,
                  const QString& value);
/// Gives an element's first text child a text, or makes it. An empty text takes the child away: one without a
/// text would be one that still waits for it. The current node stays.
void WriteElementText(DocumentWindow& window, controls::TreeNode element, const QString& text);

} // namespace nodes
