// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/TreeTextCache.h"
#include "core/model/NodeNumbers.h"
#include "core/model/TreeWriter.h"
#include "platform/text/LineEnds.h"

namespace m_tvXML {

namespace {

using controls::TreeCursor;

// Gathers what is written, and sets marks.
class LongSink {
public:
    /// The first mark comes `ahead` units earlier than the others: all of a stride sets it at once.
    LongSink(text::LongText::Builder text, qsizetype stride, qsizetype ahead)
        : text_(std::move(text)), stride_(stride), lastMark_(-ahead) {}
    void element(TreeCursor node, int level) {
        if (written_ + (at_ - buffer_.data()) - lastMark_ < stride_)
            return;
        flush();
        lastMark_ = written_;
        marks_.push_back({node, level, text_.size()});
    }
    void put(text::CompactView piece) {
        while (piece.length > room()) {
            piece = copyPart(piece);
            flush();
        }
        at_ = piece.copyTo(at_);
    }
    void put(QStringView piece) {
        for (; piece.size() > room(); flush()) {
            const qsizetype part = room();
            at_ = std::copy_n(piece.utf16(), part, at_);
            piece = piece.sliced(part);
        }
        at_ = std::copy_n(piece.utf16(), piece.size(), at_);
    }
    void repeat(QStringView piece, int times) {
        for (int i = 0; i < times; ++i)
            put(piece);
    }
    text::LongText finish() {
        flush();
        return text_.finish();
    }
    std::vector<TextMark> takeMarks() { return std::move(marks_); }

private:
    static constexpr std::size_t kGathered = 16'384;
    qsizetype room() const { return buffer_.data() + kGathered - at_; }
    text::CompactView copyPart(text::CompactView piece) {
        text::CompactView part = piece;
        part.length = static_cast<std::uint32_t>(room());
        at_ = part.copyTo(at_);
        piece.data += part.length * (piece.wide ? 2U : 1U);
        piece.length -= part.length;
        return piece;
    }
    void flush() {
        text_.append(QStringView(buffer_.data(), at_));
        written_ += at_ - buffer_.data();
        at_ = buffer_.data();
    }

    text::CrLfBuilder text_;
    qsizetype stride_;
    qsizetype written_ = 0, lastMark_; // as they were put, not as they stand in the text
    std::vector<TextMark> marks_;
    std::vector<char16_t> buffer_ = std::vector<char16_t>(kGathered);
    char16_t* at_ = buffer_.data();
};

// The place after a node and all below it, in document order.
TreeCursor Following(TreeCursor node) {
    while (node && !node.next())
        node = node.parent();
    return node ? node.next() : TreeCursor();
}

TreeCursor Successor(TreeCursor node) {
    return node.firstChild() ? node.firstChild() : Following(node);
}

TreeCursor Predecessor(TreeCursor node) {
    TreeCursor before = node.previous();
    if (!before)
        return node.parent();
    while (before.lastChild())
        before = before.lastChild();
    return before;
}

} // namespace

/// What is to be written again, between two marks.
struct TreeTextCache::Stretch {
    int first = 0; ///< the mark it begins at; -1: at the beginning of the text
    int last = 0;  ///< the mark it ends at; the number of marks: at the end of the text
};

text::LongText TreeTextCache::text(controls::TreeNode root, const QString& indentUnit,
                                   const text::LongText& like) {
    if (!root)
        return {};
    const controls::TreeChanges changes = root.Owner()->TakeChanges();
    const bool sameManner = known_ && unit_ == indentUnit;
    known_ = false; // as long as it isn't done
    unit_ = indentUnit;
    const TreeCursor top(root);
    if (!sameManner || changes.everything || !writeAround(changes, top))
        text_ = writeAll(top, GetNodeLevel(root), like);
    known_ = true;
    return text_;
}

text::LongText TreeTextCache::writeAll(TreeCursor root, int level, const text::LongText& like) {
    LongSink sink(text::LongText::Builder(like), stride_, stride_);
    TreeWriter<LongSink>(sink, unit_).write(root, level);
    text::LongText text = sink.finish();
    marks_ = sink.takeMarks();
    numberMarks();
    return text;
}

// False when the whole text is to be written.
bool TreeTextCache::writeAround(const controls::TreeChanges& changes, TreeCursor root) {
    Stretch stretch{static_cast<int>(marks_.size()), -1};
    if (!find(changes, root, stretch))
        return false;
    if (stretch.last < 0)
        return true; // nothing changed that is seen in the text
    if (stretch.first < 0 || stretch.last - stretch.first > std::ssize(marks_) / 2)
        return false;
    const TextMark& first = marks_[static_cast<std::size_t>(stretch.first)];
    const bool toEnd = stretch.last == std::ssize(marks_);
    const TreeCursor until = toEnd ? TreeCursor() : marks_[static_cast<std::size_t>(stretch.last)].element;
    const qsizetype end = toEnd ? text_.size() : marks_[static_cast<std::size_t>(stretch.last)].offset;
    LongSink sink({}, stride_, 0); // it begins at a mark
    TreeWriter<LongSink>(sink, unit_).write(root, first.element, first.level, until);
    const text::LongText fresh = sink.finish();
    const qsizetype start = first.offset;
    text_.replace(start, end - start, fresh.toString());
    std::vector<TextMark> marks = sink.takeMarks();
    for (TextMark& mark : marks)
        mark.offset += start;
    replaceMarks(stretch, std::move(marks), fresh.size() - (end - start));
    return true;
}

// From the last mark ahead of all changes to the first one behind them. How an element's neighbours are
// written hangs on it, too: whether a line ends between them, and whether the parent's own tags stand alone.
// False for a document without anything in it.
bool TreeTextCache::find(const controls::TreeChanges& changes, TreeCursor root, Stretch& stretch) const {
    if (!root.firstChild())
        return false;
    for (const controls::TreeNode& changed : changes.nodes) {
        if (!changed)
            continue;
        const TreeCursor node(changed);
        if (!node.parent())
            continue; // the root's own name isn't written
        stretch.first =
            std::min(stretch.first, markBefore(node.previous() ? node.previous() : node.parent()));
        const TreeCursor behind = node.next() ? Successor(node.next()) : Following(node.parent());
        stretch.last = std::max(stretch.last, markBehind(behind));
    }
    return true;
}

int TreeTextCache::markOf(TreeCursor node) const {
    const auto place = places_.find(node.id());
    return place != places_.end() ? place->second : -1;
}

// The mark at a node or the last one ahead of it.
int TreeTextCache::markBefore(TreeCursor node) const {
    for (; node; node = Predecessor(node)) {
        if (const int mark = markOf(node); mark >= 0)
            return mark;
    }
    return -1;
}

// The mark at a node or the first one behind it.
int TreeTextCache::markBehind(TreeCursor node) const {
    for (; node; node = Successor(node)) {
        if (const int mark = markOf(node); mark >= 0)
            return mark;
    }
    return static_cast<int>(marks_.size());
}

void TreeTextCache::replaceMarks(const Stretch& stretch, std::vector<TextMark> fresh, qsizetype longer) {
    const auto first = marks_.begin() + stretch.first + 1;
    const auto last = marks_.begin() + stretch.last;
    for (auto mark = last; mark != marks_.end(); ++mark)
        mark->offset += longer;
    marks_.insert(marks_.erase(first, last), fresh.begin(), fresh.end());
    numberMarks();
}

void TreeTextCache::numberMarks() {
    places_.clear();
    for (int i = 0; i < std::ssize(marks_); ++i)
        places_[marks_[static_cast<std::size_t>(i)].element.id()] = i;
}

} // namespace m_tvXML
