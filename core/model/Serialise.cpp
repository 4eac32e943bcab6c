// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Serialise.h"
#include "core/model/m_tvXML.h"
#include "platform/controls/TreeCursor.h"
#include "platform/text/LineEnds.h"

namespace m_tvXML {

namespace {

using controls::TreeCursor;
using text::CompactView;

enum Kind { kRoot = 0, kElement = 1, kText = 3, kInstruction = 7, kComment = 8 };

// The text is written twice: once to learn its length, then into a text of exactly that length. So a document
// of any size costs one allocation and no growing.
class LengthSink {
public:
    void put(CompactView piece) { length_ += piece.length; }
    void put(QStringView piece) { length_ += piece.size(); }
    void repeat(QStringView piece, int times) { length_ += piece.size() * times; }
    qsizetype length() const { return length_; }

private:
    qsizetype length_ = 0;
};

class TextSink {
public:
    explicit TextSink(qsizetype length) : text_(length, Qt::Uninitialized), at_(begin()) {}
    void put(CompactView piece) { at_ = piece.copyTo(at_); }
    void put(QStringView piece) { at_ = std::copy_n(piece.utf16(), piece.size(), at_); }
    void repeat(QStringView piece, int times) {
        for (int i = 0; i < times && !piece.isEmpty(); ++i)
            put(piece);
    }
    QString take() { return std::move(text_); }

private:
    char16_t* begin() { return reinterpret_cast<char16_t*>(text_.data()); }
    QString text_;
    char16_t* at_;
};

// Gathers pieces that are worth handing on.
class LongSink {
public:
    explicit LongSink(const text::LongText& like) : text_(text::LongText::Builder(like)) {}
    void put(CompactView piece) {
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

private:
    static constexpr std::size_t kGathered = 16'384;
    qsizetype room() const { return buffer_.data() + kGathered - at_; }
    CompactView copyPart(CompactView piece) {
        CompactView part = piece;
        part.length = static_cast<std::uint32_t>(room());
        at_ = part.copyTo(at_);
        piece.data += part.length * (piece.wide ? 2U : 1U);
        piece.length -= part.length;
        return piece;
    }
    void flush() {
        text_.append(QStringView(buffer_.data(), at_));
        at_ = buffer_.data();
    }

    text::CrLfBuilder text_;
    std::vector<char16_t> buffer_ = std::vector<char16_t>(kGathered);
    char16_t* at_ = buffer_.data();
};

CompactView WithoutTrailingBlanks(CompactView view) {
    while (view.length > 0 && view.at(view.length - 1) == u' ')
        --view.length;
    return view;
}

// The root's key is a name, which says no kind.
int KindOf(TreeCursor node) {
    return std::max(node.kind(), 0);
}

bool IsText(TreeCursor node) {
    return node.kind() == kText;
}

template <typename Sink> class Writer {
public:
    Writer(Sink& sink, QStringView unit) : sink_(sink), unit_(unit) {}

    // Walks without recursion: a document may be deeper than the stack.
    void write(TreeCursor top, int level) {
        TreeCursor node = top;
        bool opening = true;
        while (true) {
            if (opening) {
                const int kind = KindOf(node);
                open(node, kind, level);
                if ((kind == kElement || kind == kRoot) && node.firstChild()) {
                    node = node.firstChild();
                    level += kind == kRoot ? 0 : 1;
                    continue;
                }
            }
            lineBreakBehind(node);
            if (node == top)
                return;
            if (const TreeCursor next = node.next()) {
                node = next;
                opening = true;
                continue;
            }
            node = node.parent();
            const bool root = KindOf(node) == kRoot;
            level -= root ? 0 : 1;
            if (!root)
                close(node, level);
            opening = false;
        }
    }

private:
    void open(TreeCursor node, int kind, int level) {
        switch (kind) {
        case kComment:
            sink_.put(u"<!--");
            sink_.put(node.tag());
            sink_.put(u"-->");
            break;
        case kInstruction:
            sink_.put(u"<?");
            sink_.put(node.text());
            sink_.put(u" ");
            sink_.put(node.tag());
            sink_.put(u"?>");
            break;
        case kText:
            sink_.put(node.tag());
            break;
        case kElement:
            openElement(node, level);
            break;
        default:
            break; // CDATA sections, document types and the like are left out
        }
    }

    void openElement(TreeCursor node, int level) {
        const TreeCursor before = node.previous();
        if (!before || !IsText(before))
            indent(level);
        sink_.put(u"<");
        const CompactView tag = WithoutTrailingBlanks(node.tag());
        if (tag.isEmpty()) {
            sink_.put(WithoutTrailingBlanks(node.text()));
        } else {
            sink_.put(node.text());
            sink_.put(u" ");
            sink_.put(tag);
        }
        sink_.put(u">");
        const TreeCursor child = node.firstChild();
        if (!child) {
            sink_.put(u"</");
            sink_.put(node.text());
            sink_.put(u">");
        } else if (!IsText(child)) {
            sink_.put(u"\r\n");
        }
    }

    void close(TreeCursor node, int level) {
        if (!IsText(node.lastChild())) {
            sink_.put(u"\r\n");
            indent(level);
        }
        sink_.put(u"</");
        sink_.put(node.text());
        sink_.put(u">");
    }

    void lineBreakBehind(TreeCursor node) {
        if (IsText(node))
            return;
        const TreeCursor next = node.next();
        if (next && !IsText(next))
            sink_.put(u"\r\n");
    }

    void indent(int level) { sink_.repeat(unit_, level - 1); }

    Sink& sink_;
    QStringView unit_;
};

// Calls `visit` with the 0-based place of each "<" in the first `length` units that begins no end tag there,
// until it returns false.
template <typename Visit> void VisitNodeStarts(const text::LongText& text, qsizetype length, Visit visit) {
    qsizetype start = 0; // of the piece
    qsizetype last = -1; // a "<" that ended the piece before
    bool more = true;
    text.visit(0, length, [&](QStringView piece) {
        if (last >= 0 && piece.front() != u'/')
            more = visit(last);
        last = -1;
        for (qsizetype at = piece.indexOf(u'<'); at >= 0 && more; at = piece.indexOf(u'<', at + 1)) {
            if (at + 1 == piece.size())
                last = start + at;
            else if (piece[at + 1] != u'/')
                more = visit(start + at);
        }
        start += piece.size();
        return more;
    });
    if (last >= 0 && more)
        visit(last);
}

} // namespace

QString GetTreeNodesXML(controls::TreeNode node, const QString& indentUnit) {
    if (!node)
        return {};
    const TreeCursor top(node);
    const int level = GetNodeLevel(node);
    LengthSink length;
    Writer<LengthSink>(length, indentUnit).write(top, level);
    TextSink sink(length.length());
    Writer<TextSink>(sink, indentUnit).write(top, level);
    return sink.take();
}

text::LongText GetTreeText(controls::TreeNode node, const QString& indentUnit, const text::LongText& like) {
    if (!node)
        return {};
    LongSink sink(like);
    Writer<LongSink>(sink, indentUnit).write(TreeCursor(node), GetNodeLevel(node));
    return sink.finish();
}

qsizetype GetTextPositionByNodeNum(const text::LongText& text, long number) {
    if (number <= 0)
        return 0;
    long count = 0;
    qsizetype found = 0;
    VisitNodeStarts(text, text.size(), [&](qsizetype place) {
        if (++count == number)
            found = place + 1;
        return found == 0;
    });
    return found;
}

long GetNodeNumByTextPosition(const text::LongText& text, qsizetype position) {
    long number = 0;
    VisitNodeStarts(text, position, [&](qsizetype) {
        ++number;
        return true;
    });
    return number;
}

} // namespace m_tvXML
