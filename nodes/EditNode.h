// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>
#include <vector>

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
/// Makes it the current one again: of the tree, or of the list, which then shows what it is a row of. Nothing
/// happens when it is gone.
void SelectNodeInHand(DocumentWindow& window, const NodeInHand& hand, int context);

/// What a node is known by after its tree was built anew: where it stood, and what was in it.
struct NodeTrace {
    struct Step {
        int kind;
        QString name; ///< an element's; empty for other nodes
        int place;    ///< 1-based, among the siblings that agree in both
    };
    std::vector<Step> steps; ///< from the tree root down; none for the root itself
    QString value, text;     ///< as SetMemberVars tells them
};
NodeTrace TraceOf(DocumentWindow& window, const NodeInHand& hand);
/// Whether the node is there. In a tree that was built anew it is the one at the same place that says the
/// same, and `hand` is that one from then on.
bool FindNodeAgain(DocumentWindow& window, NodeInHand& hand, const NodeTrace& trace);

/// What is in a node now, in the terms of SetMemberVars; a name that can't be edited stays as given. False
/// where it is gone.
bool ReadNodeInHand(DocumentWindow& window, const NodeInHand& hand, QString& name, QString& value,
                    QString& text);

enum class NodeWrite {
    Unchanged, ///< or there is no such node any more
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
