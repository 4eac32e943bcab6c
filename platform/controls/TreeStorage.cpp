// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/TreeStorage.h"
#include "platform/controls/Faults.h"
#include <new>
#include <vector>

namespace controls {

namespace {
// Replaced texts stay in the pool until they are this much, and half of it.
constexpr std::size_t kWasteWorthCompacting = 64u << 20;
constexpr std::size_t kChangesWorthCounting = 1000;
} // namespace

bool TreeView::Storage::isLiving(const TreeNode& node) {
    if (!node.tree_)
        return false;
    const Storage& storage = *node.tree_->storage_;
    return node.generation_ == storage.generation && !storage.isRemoved(node.slot_);
}

TreeView::Storage& TreeView::Storage::of(const TreeNode& node) {
    if (!isLiving(node))
        Throw(text::kFaultNothing);
    return *node.tree_->storage_;
}

std::uint32_t TreeView::Storage::slotOrNone(const TreeNode& node) const {
    if (!node.tree_)
        return 0;
    if (&of(node) != this)
        Throw(text::kFaultBadCall);
    return node.slot_;
}

TreeNode TreeView::Storage::handle(std::uint32_t slot) const {
    return slot != 0 ? TreeNode(&tree, slot, generation) : TreeNode();
}

// A node doesn't carry its own number, but its neighbour does: the sibling before it, else the parent.
std::uint32_t TreeView::Storage::slotOf(const TreeNodeData* data) const {
    if (!data || (data->flags & kRemoved) != 0)
        return 0;
    return data->previous != 0 ? nodes.at(data->previous).next : nodes.at(data->parent).firstChild;
}

std::uint32_t TreeView::Storage::slotAt(std::uint32_t index) const {
    while (isRemoved(oldest_))
        ++oldest_;
    std::uint32_t slot = oldest_;
    for (std::uint32_t left = index - 1; left > 0; left -= isRemoved(slot) ? 0 : 1)
        ++slot;
    return slot;
}

std::uint32_t TreeView::Storage::indexOf(std::uint32_t slot) const {
    std::uint32_t index = 1;
    for (std::uint32_t before = oldest_; before < slot; ++before)
        index += isRemoved(before) ? 0 : 1;
    return index;
}

std::uint32_t TreeView::Storage::link(std::uint32_t parent, std::uint32_t before) {
    const std::uint32_t slot = nodes.add();
    TreeNodeData& node = nodes.at(slot);
    TreeNodeData& above = nodes.at(parent);
    node.parent = parent;
    node.next = before;
    node.previous = before != 0 ? nodes.at(before).previous : above.lastChild;
    (node.previous != 0 ? nodes.at(node.previous).next : above.firstChild) = slot;
    (before != 0 ? nodes.at(before).previous : above.lastChild) = slot;
    ++above.children;
    ++count;
    rows.inserted(slot);
    note(slot);
    tree.journal_->note(Journal::What::Added, slot);
    ++tree.revision_;
    return slot;
}

void TreeView::Storage::note(std::uint32_t slot) {
    if (changes.everything)
        return;
    if (changes.nodes.size() == kChangesWorthCounting)
        noteEverything();
    else
        changes.nodes.push_back(handle(slot));
}

void TreeView::Storage::aboutToWrite(std::uint32_t slot) {
    tree.journal_->noteBefore(Journal::What::Written, slot, nodes.at(slot));
    if (nodes.at(slot).parent != 0) // a top node stands for the document, and says nothing of its content
        ++tree.revision_;
}

void TreeView::Storage::noteKey(std::uint32_t slot) {
    if (tree.journal_->isOpen()) {
        tree.journal_->note(Journal::What::Key, slot);
        tree.journal_->entries.back().keys.emplace_back(slot, keys.keyOf(nodes.at(slot)));
    }
    if (nodes.at(slot).parent != 0)
        ++tree.revision_;
}

void TreeView::Storage::unlink(std::uint32_t slot) {
    rows.aboutToRemove(slot);
    const TreeNodeData& node = nodes.at(slot);
    note(node.previous != 0 ? node.previous : node.next != 0 ? node.next : node.parent);
    TreeNodeData& above = nodes.at(node.parent);
    (node.previous != 0 ? nodes.at(node.previous).next : above.firstChild) = node.next;
    (node.next != 0 ? nodes.at(node.next).previous : above.lastChild) = node.previous;
    --above.children;
}

// Along the links: a tree may be deeper than the stack.
template <typename Visit> void TreeView::Storage::walk(std::uint32_t top, Visit visit) {
    std::uint32_t slot = top;
    while (true) {
        TreeNodeData& node = nodes.at(slot);
        visit(slot, node);
        if (node.firstChild != 0) {
            slot = node.firstChild;
            continue;
        }
        while (slot != top && nodes.at(slot).next == 0)
            slot = nodes.at(slot).parent;
        if (slot == top)
            return;
        slot = nodes.at(slot).next;
    }
}

// An unlinked branch goes. Its nodes keep their fields: it may be taken back.
void TreeView::Storage::dispose(std::uint32_t top) {
    walk(top, [this](std::uint32_t slot, TreeNodeData& node) {
        keys.remove(slot);
        --count;
        countWaste(node.tag);
        if ((node.flags & kOwnText) != 0)
            countWaste(node.text);
        node.flags |= kRemoved;
        if (slot == selected)
            selected = 0;
    });
}

void TreeView::Storage::remove(std::uint32_t top) {
    const TreeNodeData& node = nodes.at(top);
    const bool hadSelection = selected != 0;
    if (node.parent == 0 && nodes.at(0).children == 1) {
        removeAll(hadSelection);
        return;
    }
    const std::uint32_t successor = node.next != 0       ? node.next
                                    : node.previous != 0 ? node.previous
                                                         : node.parent;
    const TreeNode parent = handle(node.parent);
    const bool told = !quiet() && (tree.aboutToRemove.isConnected() || tree.removed.isConnected());
    const int row = told ? static_cast<int>(rows.rowOf(top)) : 0;
    if (told)
        tree.aboutToRemove(parent, row, row);
    noteRemoval(top);
    unlink(top);
    dispose(top);
    const bool selectionLost = hadSelection && selected == 0;
    if (selectionLost)
        selected = successor;
    compactIfWasteful();
    if (told)
        tree.removed(parent, row, row);
    if (selectionLost && !quiet())
        tree.selectionChanged(handle(selected));
}

void TreeView::Storage::noteRemoval(std::uint32_t top) {
    ++tree.revision_;
    if (!tree.journal_->isOpen())
        return;
    tree.journal_->note(Journal::What::Removed, top);
    Journal::Entry& entry = tree.journal_->entries.back();
    walk(top, [&](std::uint32_t slot, TreeNodeData& node) {
        if (node.kind == kOddKey)
            entry.keys.emplace_back(slot, keys.keyOf(node));
    });
}

void TreeView::Storage::removeAll(bool hadSelection) {
    if (!quiet())
        tree.aboutToRemove(TreeNode(), 0, 0);
    wipe();
    if (quiet())
        return;
    tree.removed(TreeNode(), 0, 0);
    if (hadSelection)
        tree.selectionChanged(TreeNode());
}

void TreeView::Storage::wipe() {
    nodes.clear();
    count = 0;
    oldest_ = 1;
    keys.clear();
    rows.clear();
    pool.clear();
    names.clear();
    selected = 0;
    wasted_ = 0;
    generation = ++tree.generations_;
    ++tree.revision_;
    tree.journal_->newContent();
    noteEverything();
}

void TreeView::Storage::setText(std::uint32_t slot, Ref ref, bool own) {
    aboutToWrite(slot);
    TreeNodeData& node = nodes.at(slot);
    if ((node.flags & kOwnText) != 0)
        countWaste(node.text);
    node.text = ref;
    node.flags = static_cast<std::uint8_t>(own ? node.flags | kOwnText : node.flags & ~kOwnText);
    note(slot);
    compactIfWasteful();
    if (!quiet())
        tree.changed(handle(slot));
}

void TreeView::Storage::setTag(std::uint32_t slot, Ref ref) {
    aboutToWrite(slot);
    TreeNodeData& node = nodes.at(slot);
    if (node.text == node.tag && (node.flags & kOwnText) == 0)
        node.flags |= kOwnText; // the text had the tag's storage and has it alone now
    else
        countWaste(node.tag);
    node.tag = ref;
    note(slot);
    compactIfWasteful();
    if (!quiet())
        tree.changed(handle(slot));
}

void TreeView::Storage::select(std::uint32_t slot) {
    if (selected == slot)
        return;
    selected = slot;
    if (!quiet())
        tree.selectionChanged(handle(slot));
}

void TreeView::Storage::countWaste(Ref ref) {
    if (ref == 0)
        return;
    const text::CompactView view = pool.view(ref);
    wasted_ += (view.wide ? std::size_t{view.length} * 2 : view.length) + 8;
}

// Not within an update: what fills the tree holds numbers of names. Nor while changes may be taken back:
// the texts that were there before count as waste.
void TreeView::Storage::compactIfWasteful() {
    if (quiet() || tree.journal_->isOpen() || wasted_ <= kWasteWorthCompacting || wasted_ <= pool.bytes() / 2)
        return;
    try {
        compact();
    } catch (const std::bad_alloc&) { // no more than a saving: all is as it was, and it is tried again later
    }
    wasted_ = 0;
}

// Nothing is changed before all of it is there: the memory may run out on the way.
void TreeView::Storage::compact() {
    struct Texts {
        Ref text = 0, tag = 0;
    };
    text::StringPool fresh;
    QHash<QString, Ref> newNames;
    QHash<Ref, Ref> newNumbers;
    for (auto name = names.cbegin(); name != names.cend(); ++name) {
        const Ref number = fresh.add(pool.view(*name));
        newNames.insert(name.key(), number);
        newNumbers.insert(*name, number);
    }
    std::vector<Texts> moved(nodes.end());
    for (std::uint32_t slot = 1; slot < nodes.end(); ++slot) {
        const TreeNodeData& node = nodes.at(slot);
        if ((node.flags & kRemoved) != 0)
            continue;
        Texts& texts = moved[slot];
        texts.tag = node.tag != 0 ? fresh.add(pool.view(node.tag)) : 0;
        if (node.text == node.tag)
            texts.text = texts.tag;
        else if (const auto name = newNumbers.constFind(node.text); name != newNumbers.constEnd())
            texts.text = *name;
        else if (node.text != 0)
            texts.text = fresh.add(pool.view(node.text));
    }
    for (std::uint32_t slot = 1; slot < nodes.end(); ++slot) {
        nodes.at(slot).text = moved[slot].text;
        nodes.at(slot).tag = moved[slot].tag;
    }
    names.swap(newNames);
    pool = std::move(fresh);
}

std::size_t TreeView::Storage::bytes() const {
    std::size_t named = static_cast<std::size_t>(names.capacity()) * (sizeof(QString) + sizeof(Ref));
    for (auto name = names.keyBegin(); name != names.keyEnd(); ++name)
        named += static_cast<std::size_t>(name->capacity()) * sizeof(QChar);
    return nodes.bytes() + keys.bytes() + pool.bytes() + named;
}

// --- taking back -----------------------------------------------------------------------------------------

// At the place that it was taken from: its neighbours are there again.
void TreeView::Storage::relink(std::uint32_t top) {
    const TreeNodeData& node = nodes.at(top);
    TreeNodeData& above = nodes.at(node.parent);
    (node.previous != 0 ? nodes.at(node.previous).next : above.firstChild) = top;
    (node.next != 0 ? nodes.at(node.next).previous : above.lastChild) = top;
    ++above.children;
    rows.inserted(top);
    note(top);
}

void TreeView::Storage::revive(const Journal::Entry& removed) {
    walk(removed.slot, [this](std::uint32_t slot, TreeNodeData& node) {
        node.flags &= static_cast<std::uint8_t>(~kRemoved);
        ++count;
        oldest_ = std::min(oldest_, slot);
        if (node.kind != kOddKey)
            keys.claim(slot, node.kind, node.serial);
    });
    for (const auto& [slot, key] : removed.keys)
        keys.insert(slot, key);
    relink(removed.slot);
}

void TreeView::Storage::takeBack(const Journal::Entry& entry) {
    TreeNodeData& node = nodes.at(entry.slot);
    switch (entry.what) {
    case Journal::What::Added:
        unlink(entry.slot);
        dispose(entry.slot);
        return;
    case Journal::What::Removed:
        revive(entry);
        return;
    case Journal::What::Written:
        node.text = entry.before.text;
        node.tag = entry.before.tag;
        node.flags = static_cast<std::uint8_t>((node.flags & ~kOwnText) | (entry.before.flags & kOwnText));
        note(entry.slot);
        return;
    case Journal::What::Key:
        keys.remove(entry.slot);
        keys.insert(entry.slot, entry.keys.front().second);
        note(entry.slot);
        return;
    case Journal::What::Filled:
        while (node.lastChild != entry.before.lastChild) {
            const std::uint32_t added = node.lastChild;
            unlink(added);
            dispose(added);
        }
        return;
    }
}

} // namespace controls
