// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Transaction.h"
#include "core/edit/FileOnDisk.h"
#include "core/edit/NodePath.h"
#include "core/edit/Rewriting.h"
#include "core/edit/TextWay.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include "core/model/NodeKind.h"
#include <utility>

namespace edit {

namespace {

/// What an edit leaves to its end.
struct Pending {
    int depth = 0, series = 0;
    bool failed = false;       ///< a step inside the running edit
    bool seriesFailed = false; ///< an edit of the running series
    bool unnamedToo = false;
    bool held = false;  ///< the text waits for what is typed about a new node
    bool opens = false; ///< in an editor that the running edit is about to open
    std::vector<std::function<void()>> after;
    std::uint64_t shownRevision = 0; ///< of the tree, as the view on show has it
    QString pathKey;                 ///< of the node whose path was shown last
    bool pathShown = false;
};

Pending& PendingOf(DocumentWindow& window) {
    return window.rooms.of<Pending>();
}

bool TextWaits(DocumentWindow& window, bool unnamedToo) {
    Pending& pending = PendingOf(window);
    pending.held = pending.held && (pending.opens || IsEditorOpen(window));
    return pending.held || (!unnamedToo && IsAddingNewNode(window));
}

void WriteText(DocumentWindow& window) {
    window.bond.countTree(window.tvXML.Revision());
    const bool unnamedToo = std::exchange(PendingOf(window).unnamedToo, false);
    if (window.way && window.bond.bTreeChanged() && !TextWaits(window, unnamedToo))
        window.way->write(window);
}

void Forget(Pending& pending) {
    pending.after.clear();
    pending.failed = pending.unnamedToo = pending.held = pending.opens = false;
}

bool HasChangedNodes(const DocumentWindow& window) {
    return window.bond.bTreeChanged() || !window.bond.isTreeCounted(window.tvXML.Revision());
}

void RefreshView(DocumentWindow& window) {
    const std::uint64_t revision = window.tvXML.Revision();
    const bool changed = std::exchange(PendingOf(window).shownRevision, revision) != revision;
    if (const View* view = ViewOnShow(window); view && view->refresh)
        view->refresh(window, changed);
    if (changed)
        PendingOf(window).pathShown = false; // its place among the siblings may be another one
    for (const auto& act : std::exchange(PendingOf(window).after, {}))
        act();
    PendingOf(window).opens = false;
}

void RefreshPath(DocumentWindow& window) {
    if (window.tvXML.LabelEditNode())
        return; // told when the node has its name
    Pending& pending = PendingOf(window);
    const controls::TreeNode node = window.tvXML.SelectedItem();
    const QString key = node ? node.Key() : QString();
    if (std::exchange(pending.pathShown, true) && key == pending.pathKey)
        return;
    pending.pathKey = key;
    ShowNodePath(window, window.app.frame().StatusBar1());
}

bool IsSettled(DocumentWindow& window) {
    const Pending& pending = PendingOf(window);
    const bool written = !window.way || !window.bond.bTreeChanged() || TextWaits(window, false);
    return written && pending.after.empty() && pending.shownRevision == window.tvXML.Revision();
}

// What follows may change nodes itself, such as an element that could not be named and gets a name: it
// follows once more.
void FollowText(DocumentWindow& window) {
    constexpr int kRounds = 4;
    RefreshView(window);
    for (int round = 1; round < kRounds && !IsSettled(window); ++round) {
        WriteText(window);
        RefreshView(window);
    }
    RefreshPath(window);
}

void End(DocumentWindow& window, int& level) {
    --level;
    ShowUnsaved(window);
    window.app.frame().RefreshMenu();
}

/// What comes behind the text, and the end of it all.
void Follow(DocumentWindow& window, int& level) {
    try {
        FollowText(window);
    } catch (...) { // text and history have the edit: taking the nodes back alone would part them
        PendingOf(window).after.clear();
        End(window, level);
        throw;
    }
    End(window, level);
}

} // namespace

Transaction::Transaction(DocumentWindow& window)
    : window_(window), record_(window.tvXML), before_(window.bond) {
    Pending& pending = PendingOf(window);
    if (pending.depth++ == 0)
        pending.failed = false; // of what followed the edit before
}

Transaction::~Transaction() {
    if (!open_)
        return;
    TakeBack();
    Pending& pending = PendingOf(window_);
    pending.failed = --pending.depth > 0;
    pending.seriesFailed = pending.series > 0;
    if (pending.depth == 0)
        Forget(pending);
}

void Transaction::TakeBack() {
    if (record_.takeBack())
        window_.bond.takeTreeBack(before_);
}

void Transaction::Close() {
    Pending& pending = PendingOf(window_);
    if (pending.depth > 1) {
        open_ = false;
        --pending.depth;
        return;
    }
    const bool failed = std::exchange(pending.failed, false); // and reported
    if (failed)
        TakeBack();
    const bool declined = HasChangedNodes(window_) && !MayChangeNodes(window_);
    if (declined)
        TakeBack();
    if (failed || declined) {
        Forget(pending);
        pending.seriesFailed = pending.series > 0;
    }
    if (!declined)
        WriteText(window_);
    open_ = false;
    if (pending.series > 0)
        --pending.depth;
    else
        Follow(window_, pending.depth);
    if (declined)
        throw text::Fault(text::kFaultDeclined, {});
}

bool MayChangeNodes(DocumentWindow& window) {
    return !window.way || MayRewrite(window, window.bond.losses(), EditOf::Tree);
}

Series::Series(DocumentWindow& window) : window_(window), record_(window.tvXML), before_(window.bond) {
    if (window.way)
        takeTextBack_ = window.way->keep(window);
    Pending& pending = PendingOf(window);
    if (pending.series++ == 0)
        pending.seriesFailed = false;
}

Series::~Series() {
    if (!open_)
        return;
    TakeBack();
    --PendingOf(window_).series;
}

void Series::TakeBack() {
    if (!record_.takeBack())
        return;
    if (takeTextBack_)
        takeTextBack_();
    window_.bond = before_;
}

void Series::Close() {
    Pending& pending = PendingOf(window_);
    open_ = false;
    if (pending.series > 1 || pending.depth > 0) {
        --pending.series;
        return;
    }
    if (std::exchange(pending.seriesFailed, false)) // and reported
        TakeBack();
    Follow(window_, pending.series);
}

void Then(DocumentWindow& window, std::function<void()> act) {
    if (PendingOf(window).depth > 0 || PendingOf(window).series > 0)
        PendingOf(window).after.push_back(std::move(act));
    else
        act();
}

void WriteUnnamed(DocumentWindow& window) {
    PendingOf(window).unnamedToo = true;
}

void HoldText(DocumentWindow& window, bool hold) {
    PendingOf(window).held = PendingOf(window).opens = hold;
}

bool IsNaming(DocumentWindow& window) {
    return window.tvXML.LabelEditNode() || window.ListView1.LabelEditRow() > 0 || IsNamingInView(window);
}

bool IsEditorOpen(DocumentWindow& window) {
    return IsNaming(window) || OpenCell(window);
}

bool IsAddingNewNode(const DocumentWindow& window) {
    const controls::TreeNode selected = window.tvXML.SelectedItem();
    if (!selected)
        return false;
    // A new element is selected itself while it gets its name.
    if (m_tvXML::IsElement(selected) && selected.TextView().isEmpty())
        return true;
    for (controls::TreeNode child = selected.Child(); child; child = child.Next()) {
        if (child.TextView().isEmpty())
            return true;
    }
    return false;
}

void DoTree(DocumentWindow& window) {
    Run(window, "DoTree", [] {});
}

void SelectNode(DocumentWindow& window, controls::TreeNode node) {
    Run(window, "DoTree", [&] { window.tvXML.SetSelectedItem(node); });
}

void ExpandRoot(DocumentWindow& window) {
    Run(window, "ExpandRoot", [&] {
        if (window.tvXML.Nodes.Count() == 0)
            return;
        controls::TreeNode root = window.tvXML.Nodes(1);
        root.SetExpanded(true);
        root.SetSelected(true);
    });
}

void Attend(DocumentWindow& window, int context) {
    const MenuSide side =
        context == kContextTree || context == kContextTreeNode ? MenuSide::Tree : MenuSide::View;
    const bool same = window.miPopupContext == context && window.menuSide == side;
    window.miPopupContext = context;
    window.menuSide = side;
    if (!same && PendingOf(window).depth == 0)
        window.app.frame().RefreshMenu();
}

void TellPathAgain(DocumentWindow& window) {
    PendingOf(window).pathShown = false;
}

} // namespace edit
