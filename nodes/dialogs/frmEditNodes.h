// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "nodes/EditNode.h"
#include "platform/controls/Controls.h"
#include <optional>

/// The dialog that walks the nodes of a document one at a time, along the tree or the list, and edits the one
/// in hand: its name, its attributes or value, and its text. Its document window can be worked in meanwhile.
class frmEditNodes {
public:
    explicit frmEditNodes(Application& app);
    frmEditNodes(const frmEditNodes&) = delete;
    frmEditNodes& operator=(const frmEditNodes&) = delete;

    controls::Label lNodeName, lAttrs, lText, lXPath;
    /// The height of txtNodeAttrs tells the layout: 5795 twips with one box, 2775 with two.
    controls::TextBox txtNodeName, txtNodeAttrs, txtNodeText, txtXPath;
    controls::CommandButton cmdUp, cmdDown, cmdLeft, cmdRight, cmdOk, cmdCancel;
    controls::OptionButton optTree, optList;

    /// The dialog is done with and to be hidden.
    controls::Event<> unloaded;

    /// Takes a window in hand, after saving the node that is. False when it can't be edited: its text doesn't
    /// parse, which the user sees there, or the node in hand was refused.
    bool Form_Load(DocumentWindow& window);
    /// The user comes back from the window: another node may be current there, or the same one changed.
    void Form_Activate();
    /// Qt key code and modifiers, from any control. Ctrl and an arrow work the button of that direction;
    /// `key` is 0 then.
    void Form_KeyDown(int& key, int modifiers);
    /// Ends the dialog with its window; other windows don't matter.
    void WindowClosed(const DocumentWindow& window);
    DocumentWindow* Window() const { return window_; } ///< null while the dialog isn't shown

    void ShowCurrentNode();
    /// Writes what was changed to the node in hand. False when that was refused: the user has been told, the
    /// node is as it was, and the boxes keep what was typed. A move doesn't go on then. OK closes the dialog
    /// all the same, and what was typed comes back when the node is taken in hand next.
    bool SaveCurrentNode();

private:
    void ConnectButtons();
    void ConnectBoxes();
    void Click(controls::CommandButton& button, void (frmEditNodes::*act)(), const char* routine);
    template <typename Act> void Guarded(const char* routine, Act act);
    void cmdUp_Click();
    void cmdDown_Click();
    void cmdLeft_Click();
    void cmdRight_Click();
    void cmdOk_Click();
    void cmdCancel_Click();
    void Unload();
    void KeepTyped();
    void BringTypedBack();
    void ChangeContext(int context);
    void txtXPath_KeyDown(int& key);
    void SelectSibling(bool next);
    void FetchNode(); ///< SetMemberVars and ShowCurrentNode
    bool InList() const;
    bool IsChanged() const;
    void ShowKind();
    void ShowMenu();
    void SelectRowInHand();
    void EnableButtons();
    void EnableListMoves();
    void txtNodeAttrs_Change();
    void ComplainAbout(const QString& probe);

    Application& app_;
    DocumentWindow* window_ = nullptr;
    NodeInHand hand_;
    QString name_, attrs_, text_; ///< as the node had them
    int kind_ = kNoNodeInHand;

    struct Texts {
        QString name, attrs, text;
        bool operator==(const Texts&) const = default;
    };
    struct Refused {
        NodeInHand hand;
        Texts node, typed;
    };
    std::optional<Refused> refused_; ///< what OK could not write
};
