// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeCursor.h"
#include "platform/text/LongText.h"
#include <unordered_map>
#include <vector>

namespace m_tvXML {

/// A place in a tree's text where an element begins, ahead of its indentation.
struct TextMark {
    controls::TreeCursor element;
    int level = 0;        ///< as the writer counts it
    qsizetype offset = 0; ///< in units of the text
};

/// Writes a tree as GetTreeNodesXML does, but with every line end as CR LF, and remembers the text. The next
/// time only what stands around changed nodes is written again, so that a change costs the same in a small
/// document and in one of 100 MB.
class TreeTextCache {
public:
    /// `stride`: units from one mark to the next, at least; about so much is written for a small change.
    explicit TreeTextCache(qsizetype stride = 65'536) : stride_(stride) {}

    /// The text of `root`, the top node of its tree, with all below it. Takes the tree's changes, so a tree
    /// has one cache. It shares pieces with `like` where it has to be written whole, else with the text
    /// before. Empty for nothing. Throws std::bad_alloc when memory runs out; nothing is remembered then.
    text::LongText text(controls::TreeNode root, const QString& indentUnit, const text::LongText& like);

private:
    struct Stretch;
    text::LongText writeAll(controls::TreeCursor root, int level, const text::LongText& like);
    bool writeAround(const controls::TreeChanges& changes, controls::TreeCursor root);
    bool find(const controls::TreeChanges& changes, controls::TreeCursor root, Stretch& stretch) const;
    int markBefore(controls::TreeCursor node) const;
    int markBehind(controls::TreeCursor node) const;
    int markOf(controls::TreeCursor node) const;
    void replaceMarks(const Stretch& stretch, std::vector<TextMark> fresh, qsizetype longer);
    void numberMarks();

    qsizetype stride_;
    text::LongText text_;
    QString unit_;
    std::vector<TextMark> marks_;                   ///< in the order of the text
    std::unordered_map<std::uint32_t, int> places_; ///< of a mark, by its element
    bool known_ = false;
};

} // namespace m_tvXML
