// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Dragging.h"
#include "platform/controls/Event.h"
#include "platform/text/StringPool.h"
#include <QHash>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace controls {

class TreeView;

/// One node as the tree stores it. Made for millions: 44 bytes, no strings of its own. Its address stays the
/// same as long as the node lives, so an item model can carry it. Only TreeView reads and writes it.
struct TreeNodeData {
    std::uint32_t parent, next, previous, firstChild, lastChild; ///< slots; 0 is none
    std::uint32_t children;                                      ///< number of direct children
    mutable std::uint32_t
        row; ///< 0-based place among its siblings, good while the parent's rows are in order
    std::uint32_t
        serial; ///< packed key: the number behind ">"; else number of the key in the table of odd keys
    text::StringPool::Ref text;
    text::StringPool::Ref tag;
    std::uint8_t kind;  ///< packed key: the number in "<>"; kOddKey when the key has another shape
    std::uint8_t image; ///< 1-based place in the image list
    std::uint8_t selectedImage;
    mutable std::uint8_t flags;
};

/// A handle on a node; may be "nothing". It costs 16 bytes and is passed by value. Using a handle of a
/// removed node, or of nothing, throws Fault 91.
class TreeNode {
public:
    TreeNode() = default;
    bool IsNothing() const; ///< true also when the node has been removed
    explicit operator bool() const { return !IsNothing(); }
    bool operator==(const TreeNode& other) const = default;

    QString Key() const;
    void SetKey(const QString& key); ///< throws Fault 35602 when another node has it
    QString Text() const;
    void SetText(const QString& text);
    QString Tag() const;
    void SetTag(const QString& tag);
    QString Image() const;
    void SetImage(const QString& image); ///< throws Fault 35601 for a picture that isn't in the list
    QString SelectedImage() const;
    void SetSelectedImage(const QString& image);
    bool Expanded() const;
    void SetExpanded(bool expanded);
    bool Selected() const;
    void SetSelected(bool selected); ///< true makes it the SelectedItem
    void EnsureVisible();            ///< expands the ancestors and raises TreeView::ensureVisible

    // Relatives: nothing where there is none.
    TreeNode Parent() const;
    TreeNode Child() const; ///< the first child
    TreeNode LastChild() const;
    TreeNode Next() const;
    TreeNode Previous() const;
    TreeNode FirstSibling() const;
    TreeNode LastSibling() const;
    TreeNode Root() const; ///< the top node of its tree (the first top node)
    int Children() const;
    int Index() const; ///< 1-based place in the control's Nodes, in the order of adding: found by counting
    int Row() const;   ///< 0-based place among its siblings

    // For walks over whole documents: no strings are made.
    /// The number in "<>" of a key of the form <number>number; -1 for a key of another shape.
    int KeyKind() const;
    text::CompactView TextView() const;
    text::CompactView TagView() const;
    /// A number that two nodes share exactly when their texts were set by the same interned name (element
    /// names).
    text::StringPool::Ref TextId() const;
    const TreeNodeData* Data() const; ///< stable address; null for nothing
    TreeView* Owner() const { return tree_; }

private:
    friend class TreeView;
    friend class OpenRows;
    TreeNode(TreeView* tree, std::uint32_t slot, std::uint32_t generation)
        : tree_(tree), slot_(slot), generation_(generation) {}
    TreeView* tree_ = nullptr;
    std::uint32_t slot_ = 0;
    std::uint32_t generation_ = 0;
};

/// Where Nodes.Add places a node, numbered as the commands pass it.
enum TreeRelationship { tvwLast = 1, tvwNext = 2, tvwPrevious = 3, tvwChild = 4 };

/// The collection `Nodes` of a tree.
class TreeNodes {
public:
    explicit TreeNodes(TreeView& tree) : tree_(tree) {}
    /// Adds a node and returns it. `relative` nothing: a top node, behind the others. 4: last child of
    /// `relative`; 2: directly behind it; 3: directly before it; 1: behind its last sibling. Throws Fault
    /// 35602 for a key that exists, 35603 for an empty key, 35601 for a picture that isn't in the image list
    /// (an empty picture key is no picture).
    TreeNode Add(TreeNode relative, int relationship, const QString& key, const QString& text,
                 const QString& image = {}, const QString& selectedImage = {});
    /// Looks a node up by its key, or by its 1-based place in the order of adding: in constant time, but for
    /// a place beyond the first. Throws Fault 35601 for an unknown key, 35600 for an index outside 1 to
    /// Count.
    TreeNode operator()(const QString& key) const;
    TreeNode operator()(int index) const;
    TreeNode Find(const QString& key) const; ///< as above, but nothing for an unknown key
    int Count() const;
    /// Removes a node and its descendants; the cost is the size of what is removed. The selection, if it was
    /// in there, goes to the next sibling, else the previous one, else the parent. Throws as the look-up
    /// does.
    void Remove(const QString& key);
    void Remove(int index);
    void Remove(TreeNode node);
    void Clear(); ///< all nodes at once

private:
    TreeView& tree_;
};

/// What is no longer as it was in a tree. A node that was added or written to stands for itself; for one that
/// was removed the sibling in front of it stands, else the one behind it, else the parent. Nodes among them
/// may have been removed since; others stand for their place then.
struct TreeChanges {
    bool everything =
        true; ///< the tree was filled or emptied, or too many changes to count; `nodes` is empty
    std::vector<TreeNode> nodes;
};

/// A tree of nodes as the commands see it, without a widget.
class TreeView {
public:
    TreeView();
    ~TreeView();
    TreeView(const TreeView&) = delete;
    TreeView& operator=(const TreeView&) = delete;

    TreeNodes Nodes{*this};
    QStringList ImageList; ///< picture keys in order; set before the first node is added

    TreeNode SelectedItem() const; ///< may be nothing
    void SetSelectedItem(TreeNode node);
    bool TabStop = true;

    // --- label editing -------------------------------------------------------------------------------
    /// Lets the user edit the selected node's Text. BeforeLabelEdit may refuse; false then, without a
    /// selected node, or while another label is being edited.
    bool StartLabelEdit();
    TreeNode LabelEditNode() const { return labelEdit_; } ///< nothing when no label is being edited
    /// The user finished: AfterLabelEdit may change the new text or refuse it, then the node takes it and
    /// LabelEdited is raised. The same text again is asked about only where it is empty. Nothing happens for
    /// a node that was removed meanwhile.
    void EndLabelEdit(const QString& text);
    /// To be called by AfterLabelEdit: what was typed stays in its editor, to be put right.
    void KeepLabelEdit() { labelKept_ = true; }
    bool LabelKept() const { return labelKept_ && labelEdit_; } ///< and it is there still
    void CancelLabelEdit(); ///< the user gave up: the text stays, and LabelGivenUp is raised
    /// Ends an open edit as if the user had left it: the widget hands in what was typed so far.
    void FinishLabelEdit() {
        if (labelEdit_)
            labelEditFinish();
    }
    Event<bool&> BeforeLabelEdit;                    ///< cancel
    Event<TreeNode, bool&, QString&> AfterLabelEdit; ///< the node, cancel, new text
    Event<const QString&> LabelTyped;                ///< what the editor holds by now, while the user types
    Event<> LabelEdited;                             ///< the label has what was typed, or had it already
    Event<TreeNode> LabelGivenUp;                    ///< the node; nothing when it is gone
    Event<TreeNode> labelEditStarted;                ///< for the widget
    Event<> labelEditFinish, labelEditEnded;

    // --- user's acts, raised by the widget or a test -------------------------------------------------
    Event<TreeNode> NodeClick; ///< the selection was changed by the user (SelectedItem is set already)
    Event<> Click;
    Event<> DblClick;
    Event<int, int> KeyDown, KeyUp;   ///< Qt key code, Qt modifiers
    Event<TreeNode> Expand, Collapse; ///< after the user opened or closed a node (Expanded is set already)
    Event<> GotFocus, LostFocus;
    Event<> focusRequested; ///< SetFocus was called
    void SetFocus() { focusRequested(); }
    Dragging<TreeNode> Drag;

    // --- announcements for the widget ----------------------------------------------------------------
    Event<> aboutToReset, reset;                       ///< the whole tree is replaced
    Event<TreeNode, int, int> aboutToInsert, inserted; ///< parent (nothing: top level), first and last row
    Event<TreeNode, int, int> aboutToRemove, removed;  ///< likewise
    Event<TreeNode> changed;                           ///< text, picture or tag of one node
    Event<TreeNode> expandedChanged;
    Event<TreeNode> selectionChanged; ///< the new SelectedItem, may be nothing
    Event<TreeNode> ensureVisible;

    /// Goes on with every change of a node below the top nodes: key, text, tag, place. The same number: all
    /// is as it was.
    std::uint64_t Revision() const { return revision_; }
    /// All changes of keys, texts, tags and places since the last call, in the order they came.
    TreeChanges TakeChanges();

    /// Within an update the tree announces nothing but aboutToReset at the start of the outermost and reset
    /// at its end.
    void BeginUpdate();
    void EndUpdate();

    // --- bulk filling: TreeFiller copies a whole document in -------------------------------------------
    /// Number of a name in the pool; the same name always gives the same number, so element names are shared.
    /// Numbers are good until the tree is emptied or the update ends.
    text::StringPool::Ref InternText(const QString& text);
    /// 1-based place of a picture in the list; throws Fault 35601 when it isn't there; 0 for an empty key.
    int ImageIndex(const QString& image) const;
    /// Sets the text to the first `length` characters of the tag, and "..." if the tag is longer; a text
    /// equal to the tag shares its storage.
    void SetTextFromTag(TreeNode node, std::uint32_t length);

    // --- for item models -------------------------------------------------------------------------------
    TreeNode NodeOf(const TreeNodeData* data) const; ///< from a stable address
    TreeNode ChildAt(TreeNode parent,
                     int row) const; ///< `parent` nothing: top level; nothing when out of range. Constant
                                     ///< time when rows are asked in order or repeatedly
    int TopCount() const;
    std::size_t bytes() const; ///< memory held

private:
    friend class TreeNode;
    friend class TreeNodes;
    friend class TreeCursor;
    friend class TreeFiller;
    friend class TreeRecord;
    friend class TreeRebuild;
    friend class OpenRows;
    struct Storage;
    struct Journal;
    std::unique_ptr<Journal> journal_;
    std::uint64_t revision_ = 0;
    std::uint32_t generations_ = 1; ///< of contents, this one among them
    std::unique_ptr<Storage> storage_;
    TreeNode labelEdit_;
    bool labelKept_ = false;
};

/// An update of a tree as long as it lives.
class TreeUpdate {
public:
    explicit TreeUpdate(TreeView& tree) : tree_(tree) { tree_.BeginUpdate(); }
    ~TreeUpdate() { tree_.EndUpdate(); }
    TreeUpdate(const TreeUpdate&) = delete;
    TreeUpdate& operator=(const TreeUpdate&) = delete;

private:
    TreeView& tree_;
};

} // namespace controls
