// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "core/model/Bond.h"
#include "core/model/StateSlots.h"
#include "core/model/WindowKind.h"
#include "platform/controls/Chart.h"
#include "platform/controls/Controls.h"
#include "platform/controls/FlexGrid.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TreeView.h"
#include "platform/text/TextFile.h"
#include <QString>
#include <vector>

namespace edit {
struct View;
struct TextWay;
} // namespace edit

// The view that has the user's attention, as miPopupContext numbers it.
inline constexpr int kContextTree = 1;
inline constexpr int kContextList = 2;
inline constexpr int kContextTable = 3;
inline constexpr int kContextText = 4;
inline constexpr int kContextTreeNode = 6; ///< the tree, as the delete command sees it
inline constexpr int kContextCompact = 7;

/// What the menus are for: the tree, or the view that shows beside it.
enum class MenuSide { Tree, View };

/// The controls and the state of one open document. The document lives in the nodes of tvXML and nowhere
/// else. No behaviour: routines take a DocumentWindow&. What belongs to one view stands in that view's own
/// state (see rooms).
struct DocumentWindow {
    DocumentWindow(Application& application, const WindowKind& windowKind);
    DocumentWindow(const DocumentWindow&) = delete;
    DocumentWindow& operator=(const DocumentWindow&) = delete;

    Application& app;
    const WindowKind& kind;

    // --- controls ---------------------------------------------------------------------------------------
    controls::TreeView tvXML;
    controls::ListView ListView1;
    controls::TextBox txtListView;  ///< edits a cell of the list; its Tag tells the column: "0", "1" or "2"
    controls::CommandButton cmdPop; ///< beside txtListView
    controls::Timer tmList{100};    ///< txtListView follows the scrolling of the list
    controls::RichTextBox rtxtXML, rtxtXML2;
    controls::Timer tmText{400};     ///< a large document's tree follows undo and redo when the keys rest
    controls::TabStrip tbsXML;       ///< tells which view shows
    controls::Pane pctTV;            ///< the sheet in pctTableView that the grids lie on
    controls::ScrollBar vsTableView; ///< beside it
    controls::FlexGridArray hfgrdTableView; ///< a table each
    controls::TextBox txtTView;             ///< edits a cell of a grid
    controls::TextBox txtTViewHeader;       ///< edits the name of a column
    controls::ComboBox cmbSum;              ///< chooses what a cell below a column tells of it
    controls::TextBox txtXPath;
    controls::RichTextBox txtSchema; ///< to be read only
    controls::WebBrowser IE;
    controls::Pane pctText, pctTableView, pctLHSplit, pctSplitText;
    controls::Chart chtAna;           ///< of what is selected in a table
    controls::Event<> captionChanged; ///< it is shown otherwise now

    // --- the document -----------------------------------------------------------------------------------
    QString Caption; ///< file path or address; equals the tree root's key. Set through SetCaption
    QString Tag;     ///< the same; the frame finds a window by it
    void SetCaption(const QString& name);
    /// The caption as the user sees it: an asterisk stands before that of a document with unsaved changes.
    QString ShownCaption() const { return ShownAs(Caption); }
    QString ShownAs(const QString& name) const { return bUnsaved ? u'*' + name : name; }
    bool bUnsaved = false; ///< the file doesn't hold the document as it is. Set through SetUnsaved
    void SetUnsaved(bool unsaved);
    text::FileForm fileForm; ///< how the document's file writes its text
    Bond bond;               ///< how tree and text stand to each other

    // --- life -------------------------------------------------------------------------------------------
    bool bLoaded = false;     ///< false while a load runs; change handlers stay quiet
    bool bUnloading = false;  ///< while the window is being closed
    bool bCancelSave = false; ///< Cancel at the question on saving

    // --- what the user works in -------------------------------------------------------------------------
    int miPopupContext = 0;
    MenuSide menuSide = MenuSide::Tree;
    bool brtxtXML2Focus = false; ///< rtxtXML2 is the text view in use
    controls::RichTextBox& TextInUse() { return brtxtXML2Focus ? rtxtXML2 : rtxtXML; }
    const controls::RichTextBox& TextInUse() const { return brtxtXML2Focus ? rtxtXML2 : rtxtXML; }
    double msngVSplit = 3000; ///< between tree and view, in twips

    // --- rooms --------------------------------------------------------------------------------------------
    std::vector<const edit::View*> views; ///< one for each tab, in their order
    const edit::TextWay* way = nullptr;   ///< how the document's text is read and written
    StateSlots rooms;                     ///< the states of views and commands
};
