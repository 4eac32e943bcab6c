// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "core/model/TreeTextCache.h"
#include "core/model/WindowKind.h"
#include "platform/controls/Controls.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TreeView.h"
#include <QString>
#include <memory>
#include <vector>

/// One step of the text's history.
struct UndoRecord {
    qsizetype DelPos = 0; ///< 0-based
    QString DelText;
    qsizetype InsPos = 0; ///< 0-based
    QString InsText;
    bool WholeText = false; ///< the step replaced everything: OldRTF and NewRTF hold both sides
    std::shared_ptr<const controls::RichContent> OldRTF, NewRTF;
    /// Colours of DelText and InsText where these are too long to be coloured when they come back.
    std::vector<controls::ColourRun> DelColours, InsColours;
};

/// How a text pane stood at a moment: what SelText was is the stretch of the text from SelStart on.
struct TextStatus {
    controls::RichContent Content; ///< the text with its colours
    qsizetype SelStart = 0;        ///< 0-based
    qsizetype SelLength = 0;
};

// Views, as miCurrentView numbers them.
inline constexpr int kViewTree = 1;
inline constexpr int kViewList = 2;
inline constexpr int kViewTable = 3;
inline constexpr int kViewText = 4;
inline constexpr int kViewSchema = 5;
inline constexpr int kViewBrowser = 6;

// The view that has the user's attention, as miPopupContext numbers it.
inline constexpr int kContextTree = 1;
inline constexpr int kContextList = 2;
inline constexpr int kContextTable = 3;
inline constexpr int kContextText = 4;
inline constexpr int kContextTreeNode = 6; ///< the tree, as the delete command sees it
inline constexpr int kContextCompact = 7;

/// The controls and the state of one open document. The document lives in the nodes of tvXML and nowhere
/// else. No behaviour: routines take a DocumentWindow&.
struct DocumentWindow {
    DocumentWindow(Application& application, const WindowKind& windowKind);
    DocumentWindow(const DocumentWindow&) = delete;
    DocumentWindow& operator=(const DocumentWindow&) = delete;

    Application& app;
    const WindowKind& kind;

    // --- controls ---------------------------------------------------------------------------------------
    controls::TreeView tvXML;
    m_tvXML::TreeTextCache treeText; ///< the tree as text, for the text view
    controls::ListView ListView1;
    controls::TextBox txtListView;  ///< edits a cell of the list; its Tag tells the column: "1" or "2"
    controls::CommandButton cmdPop; ///< beside txtListView
    controls::Timer tmList{100};    ///< txtListView follows the scrolling of the list
    controls::RichTextBox rtxtXML, rtxtXML2;
    controls::TabStrip tbsXML;
    controls::TextBox txtXPath;
    controls::TextBox txtSchema;
    controls::WebBrowser IE;
    controls::Pane pctText, pctTableView, chtAna, pctLHSplit, pctSplitText;
    controls::Event<> captionChanged;

    QString Caption; ///< file path or address; equals the tree root's key. Set through SetCaption
    QString Tag;     ///< the same; the frame finds a window by it
    void SetCaption(const QString& name);

    // --- state ------------------------------------------------------------------------------------------
    bool bLoaded = false;            ///< false while a load runs; change handlers stay quiet
    bool bControlChange = false;     ///< the program itself writes to a text view
    bool bQuietParse = false;        ///< the next parse failure goes to the status bar
    bool bTreeChanged = false;       ///< the tree changed and the text view doesn't show it yet
    bool bTextChanged = false;       ///< the text was edited and the tree doesn't show it yet
    bool bTextUntried = false;       ///< the text came from the tree and was too long to be tried at once
    bool bTextUnread = false;        ///< the text didn't come into the tree, which is an earlier document
    text::LongText msOpenText;       ///< the text at the last open or save
    text::LongText msLastParsedText; ///< the text that the tree was last built from
    bool brtxtXML2Focus = false;     ///< rtxtXML2 is the text view in use
    int miCurrentView = kViewTree;
    int miPopupContext = 0;
    int miTableViewIndex = 0;
    int miTextSizeLevel = 0;    ///< colouring level of the current text
    bool mbIsEditValue = false; ///< txtListView is open
    QString msListEditKey;      ///< key of the row under edit
    int miListFirstVisible = 1; ///< the list's scrolling when txtListView was laid down last
    double mdListLeft = 0;
    double mdSavedLeft = 0;   ///< where txtListView would stand while it is out of sight
    bool bCancelSave = false; ///< Cancel at the question on saving
    bool bUnloading = false;
    bool mbKeyNavigation = false; ///< the last tree selection came from the arrow keys
    QString msTempFile;           ///< the browser preview's file, deleted on closing
    QString msNodeClip;           ///< key of the node that was copied last
    QString msShownPathKey;       ///< key of the node whose path was shown last

    std::vector<UndoRecord> undoStack;
    int UndoPos = 0;           ///< steps that can be undone; where the next record goes
    bool bUndoRunning = false; ///< a step is being taken back or done again
    // The pane in use, before its last change and as it stands: a change is told by the difference.
    TextStatus previousStatus, currentStatus;

    // Splitters, in twips. SavePos keeps a dragged bar's place, ClearPos forgets it.
    double msngVSplit = 3000;
    double msngHSplit = 1000000;
    float mfSavedLeft = 0, mfSavedTop = 0, mfSavedWidth = 0, mfSavedHeight = 0;

    text::FileForm fileForm; ///< how the document's file writes its text

    /// The text view in use.
    controls::RichTextBox& TextInUse() { return brtxtXML2Focus ? rtxtXML2 : rtxtXML; }
};
