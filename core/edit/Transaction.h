// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Guard.h"
#include "core/model/DocumentWindow.h"
#include "platform/controls/TreeRecord.h"
#include <functional>

// The one way in which nodes are changed, and in which everything else follows.
//
// Whatever changes nodes or the current node runs inside an edit. Edits may be nested; when the outermost one
// ends, once and in this order:
//   1. the text, if nodes changed: written from the tree, one step of its history;
//   2. the view on show, and what a command does in it (Then);
//   3. the path of the current node;
//   4. menus and toolbars, and whether the document is shown as unsaved.
// A fault inside an edit, or in one nested in it, takes back what the outermost did: all is as before.
// So does a user who won't have the text written anew at the price that it has (MayRewrite); they are asked
// at the end of the first edit that changes nodes, also where its text is to wait for a name. A fault of a
// view, once the text is written, takes nothing back.
namespace edit {

class Transaction {
public:
    explicit Transaction(DocumentWindow& window);
    ~Transaction(); ///< one that wasn't closed is taken back
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// The edit's end. What writing the text throws takes the edit back; what comes behind the text may
    /// throw, too, but the edit stands. Throws text::kFaultDeclined where the user had it taken back.
    void Close();
    void TakeBack(); ///< the nodes are as they were at the beginning; the edit goes on

private:
    DocumentWindow& window_;
    controls::TreeRecord record_;
    Bond before_;
    bool open_ = true;
};

/// Edits that belong together, each of them a step of the text: views, path and menus follow the last one.
/// Where one of them fails or is declined, all are taken back.
class Series {
public:
    explicit Series(DocumentWindow& window);
    ~Series(); ///< one that wasn't closed is taken back; views, path and menus follow the next edit
    Series(const Series&) = delete;
    Series& operator=(const Series&) = delete;

    void Close();

private:
    void TakeBack();

    DocumentWindow& window_;
    controls::TreeRecord record_;
    Bond before_;
    std::function<void()> takeTextBack_;
    bool open_ = true;
};

/// Runs `act` as one edit. What it throws takes the edit back.
template <typename Act> auto RunEdit(DocumentWindow& window, Act act) -> decltype(act()) {
    Transaction edit(window);
    if constexpr (std::is_void_v<decltype(act())>) {
        act();
        edit.Close();
    } else {
        auto result = act();
        edit.Close();
        return result;
    }
}

/// The same with the error exit of a routine of the window.
template <typename Act> auto Run(DocumentWindow& window, const char* routine, Act act) -> decltype(act()) {
    return Guarded(window, routine, [&] { return RunEdit(window, act); });
}
/// The same; the routine's name is given as it is reported.
template <typename Act> auto Run(DocumentWindow& window, const QString& routine, Act act) -> decltype(act()) {
    return Guarded(window.app, routine, [&] { return RunEdit(window, act); });
}

/// Runs edits as a series, with the error exit of a routine of the window.
template <typename Act> void RunSeries(DocumentWindow& window, const char* routine, Act act) {
    Guarded(window, routine, [&] {
        Series series(window);
        act();
        series.Close();
    });
}

/// What the running edit does in the view on show once that has followed: choosing a row, opening an editor.
/// Outside an edit it is done at once.
void Then(DocumentWindow& window, std::function<void()> act);

/// The text of the running edit is written also while a new node waits for its name or text: what was left
/// empty stays so.
void WriteUnnamed(DocumentWindow& window);

/// What was added isn't sure yet: the text waits as long as a label or a cell is open behind the running
/// edit. With false it needn't any more.
void HoldText(DocumentWindow& window, bool hold);

/// A name is being typed over a label of the tree or of a view.
bool IsNaming(DocumentWindow& window);
/// A name is being typed, or a value in a cell.
bool IsEditorOpen(DocumentWindow& window);

/// A new node is under way: the selected node, or a child of it, has no name or text yet. The text waits.
bool IsAddingNewNode(const DocumentWindow& window);

/// The views, path and menus follow the current node; the text follows a tree that is ahead of it.
void DoTree(DocumentWindow& window);
/// Makes a node the current one. All that follows it does so at the end of the edit.
void SelectNode(DocumentWindow& window, controls::TreeNode node);
/// Whether nodes of the window may be changed, for what changes them before its edit begins: asks as the end
/// of an edit does.
bool MayChangeNodes(DocumentWindow& window);
/// Opens and selects the root, if there is one.
void ExpandRoot(DocumentWindow& window);
/// The user's attention is with a part of the window: commands and menus are for that. Inside an edit the
/// menus follow at its end.
void Attend(DocumentWindow& window, int context);
/// The current node's path has been told already, or is to be told again although it is the same.
void TellPathAgain(DocumentWindow& window);

} // namespace edit
