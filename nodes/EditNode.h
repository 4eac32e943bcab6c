// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// One node with all that can be edited of it: what the one-by-one editor shows and writes back.

/// The kind where there is no node: nothing is selected, or the list is empty.
inline constexpr int kNoNodeInHand = -1;

/// What is to be edited of the selected row of the list (context 2) or the selected node of the tree (any
/// other). `kind` is 0 for the tree root, 1 an element, 2 an attribute, else the node's type; `attrs` are an
/// element's attributes, or the value of any other node. Texts, CDATA sections and notations have a fixed
/// name.
void SetMemberVars(DocumentWindow& window, int context, QString& name, QString& attrs, QString& text,
                   int& kind);

/// Which node that was. It stays the same when another one is selected.
struct NodeInHand {
    int kind = kNoNodeInHand;
    QString key;       ///< of the tree node; an attribute's element
    QString attribute; ///< the attribute's name
    bool operator==(const NodeInHand&) const = default;
};
NodeInHand GetNodeInHand(DocumentWindow& window, int context);

enum class NodeWrite {
    Unchanged, ///< also when the node is gone
    Written,
    Refused ///< the user has been told why; the node is as it was
};

/// Writes what differs from the node, all or nothing, and brings text and list up to date with one step of
/// the text's history. `text` counts for an element only, `attrs` for all but the tree root. An attribute
/// that gets another name changes `hand`.
NodeWrite WriteNodeInHand(DocumentWindow& window, NodeInHand& hand, const QString& name, const QString& attrs,
                          const QString& text);

/// The tiny document that tells whether a value may stand in the node; empty where anything may.
QString NodeValueProbe(DocumentWindow& window, const NodeInHand& hand, const QString& attrs);
