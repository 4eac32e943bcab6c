// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Transaction.h"
#include "core/edit/FileOnDisk.h"
#include "core/edit/NodePath.h"
#include "core/edit/TextWay.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include "core/model/NodeKind.h"
#include <utility>

namespace edit {

namespace {

/// What an edit leaves to its end.
struct Pending {
    int depth = 0;
    bool unnamedToo = false;
    std::vector<std::function<void()>> after;
    std::uint64_t shownRevision = 0; ///< of the tree, as the view on show has it
    QString pathKey;                 ///< of the node whose path was shown last
    bool pathShown = false;
};

Pending& PendingOf(DocumentWindow& window) {
    return window.rooms.of<Pending>();
}

void WriteText(DocumentWindow& window) {
    const std::uint64_t revision = window.tvXML.Revision();
    if (std::exchange(window.bond.treeRevision, revision) != revision)
        window.bond.move(BondMove::TreeChanged);
    const bool unnamedToo = std::exchange(PendingOf(window).unnamedToo, false);
    if (window.way && window.bond.bTreeChanged() && (unnamedToo || !IsAddingNewNode(window)))
        window.way->write(window);
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
    return pending.after.empty() && pending.shownRevision == window.tvXML.Revision();
}

} // namespace

Transaction::Transaction(DocumentWindow& window)
    : window_(window), record_(window.tvXML), before_(window.bond) {
    ++PendingOf(window).depth;
}

Transaction::~Transaction() {
    if (!open_)
        return;
    TakeBack();
    Pending& pending = PendingOf(window_);
    if (--pending.depth > 0)
        return;
    pending.after.clear();
    pending.unnamedToo = false;
}

void Transaction::TakeBack() {
    if (record_.takeBack())
        window_.bond.takeTreeBack(before_);
}

// What follows may change nodes itself, such as a refused name that becomes "Unnamed": it follows once more.
void Transaction::Follow() {
    constexpr int kRounds = 4;
    RefreshView(window_);
    for (int round = 1; round < kRounds && !IsSettled(window_); ++round) {
        WriteText(window_);
        RefreshView(window_);
    }
    RefreshPath(window_);
}

void Transaction::End() {
    open_ = false;
    --PendingOf(window_).depth;
    ShowUnsaved(window_);
    window_.app.frame().RefreshMenu();
}

void Transaction::Close() {
    Pending& pending = PendingOf(window_);
    if (pending.depth > 1) {
        open_ = false;
        --pending.depth;
        return;
    }
    WriteText(window_);
    try {
        Follow();
    } catch (...) { // text and history have the edit: taking the nodes back alone would part them
        pending.after.clear();
        End();
        throw;
    }
    End();
}

void Then(DocumentWindow& window, std::function<void()> act) {
    if (PendingOf(window).depth > 0)
        PendingOf(window).after.push_back(std::move(act));
    else
        act();
}

void WriteUnnamed(DocumentWindow& window) {
    PendingOf(window).unnamedToo = true;
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

void TellPathAgain(DocumentWindow& window) {
    PendingOf(window).pathShown = false;
}

} // namespace edit
