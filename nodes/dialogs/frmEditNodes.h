// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "nodes/dialogs/BorrowedAttention.h"
#include "nodes/dialogs/NodeEditor.h"
#include "platform/controls/Controls.h"
#include <memory>

namespace nodes {

/// The dialog that walks the nodes of a document one at a time, along the tree or the list, and edits the one
/// in hand: its name, its attributes or value, and its text. Its document window can be worked in meanwhile.
/// It ends with its window.
class frmEditNodes : public NodeEditor {
public:
    explicit frmEditNodes(Application& app);
    frmEditNodes(const frmEditNodes&) = delete;
    frmEditNodes& operator=(const frmEditNodes&) = delete;

    controls::CommandButton cmdUp, cmdDown, cmdLeft, cmdRight, cmdOk, cmdCancel;
    controls::OptionButton optTree, optList;

    /// The dialog is done with and to be hidden.
    controls::Event<> unloaded;

    /// Takes a window in hand, after saving the node that is. False when it can't be edited: its text doesn't
    /// parse, which the user sees there, or the node in hand was refused.
    bool Form_Load(DocumentWindow& window);
    /// The user comes back from the documents: another window may be in front, another node current, or the
    /// node in hand changed or gone. What is typed stays, together with its node. Opens no box of its own:
    /// the dialog becomes active again when a box closes. True when another document had to give way.
    bool Form_Activate();
    /// The user goes to the documents.
    void Form_Deactivate();
    /// Qt key code and modifiers, from any control. Ctrl and an arrow work the button of that direction;
    /// `key` is 0 then.
    void Form_KeyDown(int& key, int modifiers);

    void ShowCurrentNode();
    /// Writes what was changed to the node in hand. False when that was refused, or the node is gone: the
    /// user has been told, the node is as it was, and the boxes keep what was typed. A move doesn't go on
    /// then, and OK doesn't close the dialog; Cancel does.
    bool SaveCurrentNode();

private:
    template <typename Act> void Guarded(const char* routine, Act act);
    template <typename Event, typename Act> void Connect(Event& event, const char* routine, Act act);
    void ConnectButtons();
    void ConnectBoxes();
    template <typename Walk> void Move(Walk walk);
    void cmdOk_Click();
    void cmdCancel_Click();
    void ChangeContext(int context);
    void txtXPath_KeyDown(int& key);

    void WindowClosed(const DocumentWindow& window);
    void Unload();
    bool BringUpToDate(DocumentWindow& window);
    bool TextParses();
    void ComeBack();

    bool InList() const { return optList.Value(); }
    int Context() const { return InList() ? kContextList : kContextTree; }
    void FetchNode(); ///< takes the current node in hand and shows it
    void EnableButtons();
    void SelectRowInHand();

    QString path_; ///< as the window showed it
    bool activating_ = false, saving_ = false;
    BorrowedAttention attention_;

    std::shared_ptr<frmEditNodes*> self_; ///< events of the application outlive the dialog
};

} // namespace nodes
