// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "nodes/EditNode.h"
#include "nodes/dialogs/NodeBoxes.h"

namespace nodes {

/// The node in hand of the one-by-one editor, and what is typed about it.
class NodeEditor : public NodeBoxes {
public:
    DocumentWindow* Window() const { return window_; } ///< null while the dialog isn't shown
    controls::StatusBar& Messages() const;             ///< panel 1 tells what is wrong with what is typed

protected:
    explicit NodeEditor(Application& app) : app_(app) {}

    int Kind() const { return held_.hand.kind; }
    bool IsChanged() const;
    /// Takes the current row or node in hand. The boxes are as they were.
    void TakeInHand(int context);
    bool HasCurrentNode(int context); ///< it is that one, as it is
    /// Whether it is there, perhaps in a tree that was built anew.
    bool FindAgain() { return FindNodeAgain(*window_, held_); }
    /// What was changed elsewhere meanwhile isn't written over.
    void FollowUntouched();
    /// Writes what is typed. False when the node is gone or the text was refused: the user has been told, and
    /// what is to be put right has the keys.
    bool WriteTyped();
    /// The parser's complaint while the user types. It isn't finished yet, so nothing else is told of it.
    void ComplainAboutName();
    void ComplainAboutValue();
    void ComplainAboutText();

    static QString GoneNotice();

    Application& app_;
    DocumentWindow* window_ = nullptr;
    HeldNode held_;
    m_tvXML::NodeContent node_; ///< as the boxes had it from the node

private:
    void Complain(const QString& probe, int attributes);
    controls::TextBox& RefusedBox();
};

} // namespace nodes
