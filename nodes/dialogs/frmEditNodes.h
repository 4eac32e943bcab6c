// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "nodes/EditNode.h"
#include "platform/controls/Controls.h"
#include "platform/xml/ParsedDocument.h"
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
    /// The user comes back from the documents: another window may be in front, another node current, or the
    /// node in hand changed or gone. What is typed stays, together with its node. Opens no box of its own:
    /// the dialog becomes active again when a box closes. True when another document had to give way.
    bool Form_Activate();
    /// The user goes to the documents: what waits in the boxes leaves no mark on them.
    void Form_Deactivate();
    /// Qt key code and modifiers, from any control. Ctrl and an arrow work the button of that direction;
    /// `key` is 0 then.
    void Form_KeyDown(int& key, int modifiers);
    /// Ends the dialog with its window; other windows don't matter.
    void WindowClosed(const DocumentWindow& window);
    DocumentWindow* Window() const { return window_; } ///< null while the dialog isn't shown

    void ShowCurrentNode();
    /// Writes what was changed to the node in hand. False when that was refused: the user has been told, the
    /// node is as it was, and the boxes keep what was typed. A move doesn't go on then. OK closes the dialog
    /// all the same, and what was typed comes back when the node is taken in hand next. Only where the node
    /// itself is gone the dialog stays until Cancel.
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
    bool BringUpToDate(DocumentWindow& window);
    void ComeBack();
    bool WriteTyped();
    void ShowMessage(const QString& message);
    void FollowUntouched();
    void TakeAttention();
    void GiveAttentionBack();
    void NoteBeforeProbe();
    void NoteAfterProbe();
    void UndoProbe();
    int Context() const;
    bool ShowsCurrentNode();
    static void ShowListTab(DocumentWindow& window);
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
    void ComplainAbout(const QString& probe, int attributes);

    Application& app_;
    DocumentWindow* window_ = nullptr;
    NodeInHand hand_;
    NodeTrace trace_;
    QString name_, attrs_, text_; ///< as the node had them
    QString path_;                ///< as the window showed it
    int kind_ = kNoNodeInHand;
    bool activating_ = false, saving_ = false;

    struct Texts {
        QString name, attrs, text;
        bool operator==(const Texts&) const = default;
    };
    struct Refused {
        const DocumentWindow* window;
        NodeInHand hand;
        NodeTrace trace;
        Texts node, typed;
    };
    std::optional<Refused> refused_; ///< what OK could not write

    /// What had the user's attention in the window before the dialog had it, and the view in force then.
    struct Attention {
        int context, view;
    };
    std::optional<Attention> attention_;

    /// What checking an unfinished value changes beside the dialog: the program's last parse error and the
    /// caret of the text view.
    struct BeforeProbe {
        std::optional<xml::ParseError> error;
        const controls::RichTextBox* pane;
        qsizetype selStart, selLength;
        qsizetype probeStart, probeLength; ///< where the probe left the caret
    };
    std::optional<BeforeProbe> beforeProbe_;
};
